#include "RoutePages.h"

#include <zarnic/platform/uikit/UINavigationController.h>

#include "RoutesPage.h"
#include "TabScreens.h"

using namespace zn;

namespace gallery {
namespace {

/// Longer than any fade or transition.
constexpr double settled = 0.6;
/// About half of a push or a root transition.
constexpr double transitionMiddle = 0.1;

/// The page of routes, so many seconds after something was done there.
Page route(const std::string& name, std::string summary, const std::function<void()>& act,
           double after) {
    const auto pose = [act, after](const Ref<PageController>&) {
        act();
        return after;
    };
    return {"routes-" + name,
            "Routes",
            std::move(summary),
            [] { return make<RoutesPage>(); },
            pose,
            [] { return settled; }};
}

/// A finger that has come half-way from the left edge, and stays there.
void swipe() {
    const auto application = UIApplication::sharedApplication();
    application->touchDown(0, {2, 300});
    application->touchMove(0, {40, 300});
    application->touchMove(0, {150, 300});
}

Page backSwipe() {
    const auto leave = [] {
        UIApplication::sharedApplication()->touchUp(0, {150, 300});
        return settled;
    };
    const auto pose = [](const Ref<PageController>&) {
        swipe();
        return 0.0;
    };
    return {"routes-swipe",
            "Routes",
            "a back-swipe under the finger",
            [] { return make<RoutesPage>(); },
            pose,
            leave};
}

/// Tabs that were presented, in the middle of a push of a screen without the tab bar.
Page tabsPushing() {
    const auto pose = [](const Ref<PageController>& page) {
        const auto tabs = tabScreens();
        page->presentViewController(tabs, false, {});
        const auto stack = as<UINavigationController>(tabs->selectedViewController());
        as<TabPage>(stack->topViewController())->pushWithoutBar();
        return transitionMiddle;
    };
    return {"routes-tabs-push",
            "Routes",
            "the tab bar leaves with its screen",
            [] { return make<RoutesPage>(); },
            pose,
            [] { return settled; }};
}

}  // namespace

std::vector<Page> routePages() {
    return {
        {"routes", "Routes", "screens by name, URL, class and instance",
         [] { return make<RoutesPage>(); }, [](const Ref<PageController>&) { return settled; },
         [] { return 0.0; }},
        route("url", "a screen opened by a URL", RoutesPage::openByURL, settled),
        route("below", "a root transition half-way", RoutesPage::rise, transitionMiddle),
        route("present", "a screen that comes to be presented", RoutesPage::present,
              2 * transitionMiddle),
        route("tabs", "a tab bar with pictures and a badge", RoutesPage::presentTabs, settled),
        tabsPushing(),
        backSwipe(),
    };
}

}  // namespace gallery
