#include "TabScreens.h"

#include <zarnic/ZNNavigationController.h>
#include <zarnic/platform/drawing/UIBezierPath.h>

#include "RowList.h"

using namespace zn;

namespace gallery {
namespace {

const Rect iconBox(0, 0, 25, 25);

Ref<UIImage> icon(const Ref<UIBezierPath>& path) {
    UIGraphicsBeginImageContextWithOptions(iconBox.size, false, 3);
    UIColor::blackColor()->setStroke();
    path->setLineWidth(2);
    path->stroke();
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

Ref<UIViewController> tab(const std::string& title, const Ref<UIBezierPath>& path) {
    const auto navigation = make<ZNNavigationController>(make<TabPage>(title));
    navigation->tabBarItem()->setTitle(title);
    navigation->tabBarItem()->setImage(icon(path));
    return navigation;
}

}  // namespace

void TabPage::init() {
    PageController::init();
    setTitle(name_);
}

void TabPage::build() {
    addText("Each tab has a stack of its own.");
    const WeakRef<TabPage> weak = ref(this);
    add(make<RowList>(
        Point{}, contentWidth(),
        std::vector<Row>{{"A screen without the tab bar", "The bar stays with this one",
                          [weak] {
                              if (const auto self = weak.lock())
                                  self->pushWithoutBar();
                          }},
                         {"Close", "Dismisses the tabs", [weak] {
                              if (const auto self = weak.lock())
                                  self->dismissViewControllerAnimated(true, {});
                          }}}));
}

void TabPage::pushWithoutBar() {
    const auto next = make<TabPage>(name_ + ", next");
    next->setHidesBottomBarWhenPushed(true);
    navigationController()->pushViewController(next, true);
}

Ref<ZNTabBarController> tabScreens() {
    auto tabs = make<ZNTabBarController>();
    tabs->setViewControllers(
        {tab("Rounds", UIBezierPath::bezierPathWithOvalInRect(iconBox.insetBy(2, 2))),
         tab("Squares", UIBezierPath::bezierPathWithRoundedRect(iconBox.insetBy(3, 3), 5)),
         tab("Bars", UIBezierPath::bezierPathWithRect(Rect(4, 9, 17, 7)))});
    tabs->viewControllers()[1]->tabBarItem()->setBadgeValue("3");
    return tabs;
}

}  // namespace gallery
