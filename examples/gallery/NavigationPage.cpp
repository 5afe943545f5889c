#include "NavigationPage.h"

#include <zarnic/platform/uikit/UINavigationController.h>

#include "RowList.h"
#include "Theme.h"

using namespace zn;

namespace gallery {

ZN_REGISTER_CLASS(NavigationPage);

namespace {

/// Calls the method unless the screen has gone.
std::function<void()> calling(const Ref<NavigationPage>& page, void (NavigationPage::*method)()) {
    return [weak = WeakRef<NavigationPage>(page), method] {
        if (const auto screen = weak.lock())
            (screen.get()->*method)();
    };
}

}  // namespace

void NavigationPage::init() {
    PageController::init();
    setTitle(depth_ == 1 ? "Navigation" : "Screen " + std::to_string(depth_));
}

void NavigationPage::build() {
    if (navigationBarHide())
        addText("This screen asks for no bar. Popping back brings the bar of the one below back.");
    else
        addText(
            "Each screen says what it wants of the bars around it, and gets it when it comes on "
            "top.");
    const Ref<NavigationPage> self = as<NavigationPage>(ref(this));
    addHeading("PUSH");
    add(make<RowList>(Point{}, contentWidth(),
                      std::vector<Row>{
                          {"Another screen", "With a bar and the back-swipe",
                           calling(self, &NavigationPage::push)},
                          {"A screen without a bar", "It slides away with the push",
                           calling(self, &NavigationPage::pushWithoutBar)},
                          {"A screen without the back-swipe", "Only its button leads back",
                           calling(self, &NavigationPage::pushWithoutSwipe)},
                      }));
    addHeading("POP");
    add(make<RowList>(Point{}, contentWidth(),
                      std::vector<Row>{{"Back to the screen below", "As the bar's button does",
                                        calling(self, &NavigationPage::pop)}}));
}

void NavigationPage::pushScreen(const Ref<NavigationPage>& screen) {
    navigationController()->pushViewController(screen, true);
}

void NavigationPage::push() {
    pushScreen(make<NavigationPage>(depth_ + 1));
}

void NavigationPage::pushWithoutBar() {
    const auto screen = make<NavigationPage>(depth_ + 1);
    screen->setNavigationBarHide(true);
    pushScreen(screen);
}

void NavigationPage::pushWithoutSwipe() {
    const auto screen = make<NavigationPage>(depth_ + 1);
    screen->setDisableSlide(true);
    pushScreen(screen);
}

void NavigationPage::pop() {
    navigationController()->popViewControllerAnimated(true);
}

}  // namespace gallery
