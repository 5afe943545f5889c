#include "zarnic/UIView+ZNCategory.h"

#include "zarnic/platform/uikit/UIScrollView.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {

namespace {

Rect frameOf(const Ref<UIView>& view) {
    return view ? view->frame().standardized() : Rect();
}

void setFrameOf(const Ref<UIView>& view, const Rect& frame) {
    if (view)
        view->setFrame(frame);
}

/// Where the superviews put the view, as far as the window or the topmost view.
Point originInSuperviews(const Ref<UIView>& view) {
    Point origin = view->frame().origin;
    for (auto each = view->superview(); each && !as<UIWindow>(each); each = each->superview()) {
        const Point place = each->frame().origin;
        const auto scroll = as<UIScrollView>(each);
        const Point offset = scroll ? scroll->contentOffset() : Point();
        origin = {origin.x - offset.x + place.x, origin.y - offset.y + place.y};
    }
    return origin;
}

}  // namespace

double zn_GetX(const Ref<UIView>& view) {
    return frameOf(view).minX();
}

double zn_GetY(const Ref<UIView>& view) {
    return frameOf(view).minY();
}

double zn_GetWidth(const Ref<UIView>& view) {
    return frameOf(view).width();
}

double zn_GetHeight(const Ref<UIView>& view) {
    return frameOf(view).height();
}

double zn_GetLeft(const Ref<UIView>& view) {
    return zn_GetX(view);
}

double zn_GetTop(const Ref<UIView>& view) {
    return zn_GetY(view);
}

double zn_GetRight(const Ref<UIView>& view) {
    return zn_GetX(view) + zn_GetWidth(view);
}

double zn_GetBottom(const Ref<UIView>& view) {
    return zn_GetY(view) + zn_GetHeight(view);
}

void zn_SetX(const Ref<UIView>& view, double x) {
    const Rect frame = frameOf(view);
    setFrameOf(view, {{x, frame.origin.y}, frame.size});
}

void zn_SetY(const Ref<UIView>& view, double y) {
    const Rect frame = frameOf(view);
    setFrameOf(view, {{frame.origin.x, y}, frame.size});
}

void zn_SetWidth(const Ref<UIView>& view, double width) {
    const Rect frame = frameOf(view);
    setFrameOf(view, {frame.origin, {width, frame.size.height}});
}

void zn_SetHeight(const Ref<UIView>& view, double height) {
    const Rect frame = frameOf(view);
    setFrameOf(view, {frame.origin, {frame.size.width, height}});
}

Ref<UIViewController> zn_FindViewController(const Ref<UIView>& view) {
    for (Ref<UIResponder> each = view ? view->nextResponder() : nullptr; each;
         each = each->nextResponder())
        if (auto controller = as<UIViewController>(each))
            return controller;
    return nullptr;
}

Ref<UIWindow> zn_FindWindow(const Ref<UIView>& view) {
    const auto controller = zn_FindViewController(view);
    return controller && controller->view() ? controller->view()->window() : nullptr;
}

Rect zn_GetRelativeFrame(const Ref<UIView>& view) {
    if (!view)
        return {};
    if (const auto window = zn_FindWindow(view))
        return window->convertRectFromView(view->frame(), view->superview());
    return {originInSuperviews(view), view->frame().size};
}

}  // namespace zn
