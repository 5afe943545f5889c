#include "RoutesPage.h"

#include <zarnic/UIViewController+ZNCategory.h>
#include <zarnic/ZNControllerHelper.h>
#include <zarnic/platform/foundation/NSURL.h>

#include "DetailPage.h"
#include "RowList.h"
#include "TabScreens.h"
#include "Theme.h"

using namespace zn;

namespace gallery {

ZN_REGISTER_CLASS(RoutesPage);

namespace {

constexpr const char* detailURL = "app:///DetailPage.page?id=7&colour=green";

}  // namespace

void RoutesPage::init() {
    PageController::init();
    setTitle("Routes");
}

void RoutesPage::openByURL() {
    ZNControllerHelper::PushViewController(NSURL::URLWithString(detailURL), true);
}

void RoutesPage::rise() {
    ZNControllerHelper::PushViewControllerForRootTransition(DetailPage::staticClass(),
                                                            Dictionary{{"came", "from below"}});
}

void RoutesPage::present() {
    ZNControllerHelper::PresentViewController(
        "DetailPage", Dictionary{{"came", "as a presented screen"}}, true, {});
}

void RoutesPage::presentTabs() {
    ZNControllerHelper::PresentViewController(tabScreens(), true, {});
}

void RoutesPage::build() {
    const Ref<UIViewController> self = ref(this);
    zn_SetNavigationRightItems(self,
                               Array{make<UIBarButtonItem>("Detail", UIBarButtonItemStyle::Plain,
                                                           ZN_ACTION(ref(this), detailTapped))});
    addWaysIn();
    addOtherWays();
}

void RoutesPage::addWaysIn() {
    addHeading("OPEN A SCREEN");
    add(make<RowList>(
        Point{}, contentWidth(),
        std::vector<Row>{
            {"By name", "\"DetailPage\"",
             [] { ZNControllerHelper::PushViewController("DetailPage", true); }},
            {"By URL", detailURL, openByURL},
            {"By class", "DetailPage::staticClass()",
             [] {
                 ZNControllerHelper::PushViewController(
                     DetailPage::staticClass(), Dictionary{{"made", "from its class"}}, true);
             }},
            {"By instance", "A screen that was made already",
             [] { ZNControllerHelper::PushViewController(make<DetailPage>(), 5, true); }},
        }));
}

void RoutesPage::addOtherWays() {
    const WeakRef<RoutesPage> weak = ref(this);
    addHeading("OTHER WAYS");
    add(make<RowList>(Point{}, contentWidth(),
                      std::vector<Row>{
                          {"From below", "The root transition", rise},
                          {"Presented", "Above all bars", present},
                          {"A tab bar", "Presented, with screens that hide it", presentTabs},
                          {"Make this the anchor", "To come back to in one step",
                           [weak] { ZNControllerHelper::SetAnchorViewController(weak.lock()); }},
                      }));
}

}  // namespace gallery
