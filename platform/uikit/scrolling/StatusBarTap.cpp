#include "platform/uikit/scrolling/StatusBarTap.h"

#include "platform/uikit/scrolling/ScrollViewState.h"
#include "zarnic/platform/uikit/UIApplication.h"

namespace zn {
namespace {

/// Views fainter than this are not there for the finger.
constexpr double leastAlpha = 0.01;

}  // namespace

bool StatusBarTap::isIn(Point place) {
    return UIApplication::sharedApplication()->statusBarFrame().contains(place);
}

void StatusBarTap::scrollToTop(const Ref<UIWindow>& window) {
    if (!window || window->windowLevel() >= UIWindowLevel::StatusBar)
        return;
    std::vector<Ref<UIScrollView>> found;
    collect(window, window->bounds(), found);
    if (found.size() == 1)
        found.front()->state_->scrollToTop();
}

void StatusBarTap::collect(const Ref<UIView>& view, const Rect& shown,
                           std::vector<Ref<UIScrollView>>& found) {
    if (view->hidden() || view->alpha() < leastAlpha)
        return;
    const auto scrollView = as<UIScrollView>(view);
    if (scrollView && scrollView->scrollsToTop() && scrollView->scrollEnabled() &&
        view->convertRectToView(view->bounds(), nullptr).intersects(shown))
        found.push_back(scrollView);
    for (const Ref<UIView>& each : view->subviews())
        collect(each, shown, found);
}

}  // namespace zn
