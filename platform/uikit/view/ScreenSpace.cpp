#include "platform/uikit/view/ScreenSpace.h"

namespace zn {
namespace {

Ref<UIWindow> windowOf(const Ref<UIView>& view, const Ref<UIWindow>& otherwise) {
    const Ref<UIWindow> own = view ? view->window() : nullptr;
    return own ? own : otherwise;
}

}  // namespace

Point pointFromScreen(Point place, const Ref<UIView>& view, const Ref<UIWindow>& window) {
    const Ref<UIWindow> space = windowOf(view, window);
    const Point inWindow = space ? space->convertPointFromWindow(place, nullptr) : place;
    return view ? view->convertPointFromView(inWindow, space) : inWindow;
}

Point pointToScreen(Point point, const Ref<UIView>& view, const Ref<UIWindow>& window) {
    const Ref<UIWindow> space = windowOf(view, window);
    const Point inWindow = view ? view->convertPointToView(point, space) : point;
    return space ? space->convertPointToWindow(inWindow, nullptr) : inWindow;
}

}  // namespace zn
