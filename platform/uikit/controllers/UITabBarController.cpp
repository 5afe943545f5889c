#include "zarnic/platform/uikit/UITabBarController.h"

#include <algorithm>

#include "zarnic/platform/uikit/UINavigationController.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {

UITabBarController::UITabBarController() = default;

UITabBarController::~UITabBarController() = default;

void UITabBarController::init() {
    UIViewController::init();
    bar_ = make<UITabBar>(Rect());
    const WeakRef<UITabBarController> weak = ref(this);
    bar_->setSelectHandler([weak](std::size_t index) {
        if (const auto self = weak.lock())
            self->setSelectedIndex(index);
    });
}

void UITabBarController::viewDidLoad() {
    UIViewController::viewDidLoad();
    content_ = make<UIView>(view()->bounds());
    view()->addSubview(content_);
    view()->addSubview(bar_);
    showSelected();
}

void UITabBarController::setViewControllers(const std::vector<Ref<UIViewController>>& controllers) {
    const Ref<UIViewController> old = selectedViewController();
    for (const auto& each : std::exchange(controllers_, controllers))
        if (std::find(controllers.begin(), controllers.end(), each) == controllers.end())
            each->removeFromParentViewController();
    for (const auto& each : controllers_)
        addChildViewController(each);
    selected_ = 0;
    showItems();
    if (!isViewLoaded())
        return;
    if (old && old != selectedViewController())
        leave(old);
    showSelected();
}

Ref<UIViewController> UITabBarController::selectedViewController() const {
    return selected_ < controllers_.size() ? controllers_[selected_] : nullptr;
}

void UITabBarController::setSelectedIndex(std::size_t index) {
    if (index >= controllers_.size() || index == selected_)
        return;
    const Ref<UIViewController> old = selectedViewController();
    selected_ = index;
    if (!isViewLoaded())
        return;
    leave(old);
    showSelected();
    setNeedsStatusBarAppearanceUpdate();
}

void UITabBarController::leave(const Ref<UIViewController>& controller) {
    controller->beginAppearanceTransition(false, false);
    controller->view()->removeFromSuperview();
    controller->endAppearanceTransition();
}

void UITabBarController::showItems() {
    std::vector<Ref<UITabBarItem>> items;
    items.reserve(controllers_.size());
    for (const auto& each : controllers_)
        items.push_back(each->tabBarItem());
    bar_->setItems(std::move(items));
    const Ref<UIViewController> selected = selectedViewController();
    bar_->setSelectedItem(selected ? selected->tabBarItem() : nullptr);
}

void UITabBarController::showSelected() {
    const Ref<UIViewController> selected = selectedViewController();
    bar_->setSelectedItem(selected ? selected->tabBarItem() : nullptr);
    updateTabBar();
    if (!selected)
        return;
    if (appearing_)
        selected->beginAppearanceTransition(true, false);
    content_->addSubview(selected->view());
    if (appeared_)
        selected->endAppearanceTransition();
}

bool UITabBarController::tabBarHides() const {
    const auto navigation = as<UINavigationController>(selectedViewController());
    return navigation && navigation->hidesBottomBar();
}

void UITabBarController::updateTabBar() {
    barHidden_ = tabBarHides();
    UIView::performWithoutAnimation([this] {
        if (std::exchange(barLent_, false))
            view()->addSubview(bar_);
        bar_->setUserInteractionEnabled(true);
        bar_->setHidden(barHidden_);
        layoutContent();
    });
}

void UITabBarController::lendTabBar(const Ref<UIView>& borrower) {
    barLent_ = true;
    bar_->setUserInteractionEnabled(false);
    bar_->setHidden(false);
    borrower->addSubview(bar_);
    layoutContent();
}

void UITabBarController::viewDidLayoutSubviews() {
    UIViewController::viewDidLayoutSubviews();
    layoutContent();
}

void UITabBarController::layoutContent() {
    const Rect area = view()->bounds();
    const double height = UITabBar::Height + UIScreen::mainScreen()->profile().safeBottom;
    if (!barLent_)
        bar_->setFrame({0, area.height() - height, area.width(), height});
    const bool whole = barHidden_ || barLent_;
    content_->setFrame({0, 0, area.width(), area.height() - (whole ? 0 : height)});
    if (const auto selected = selectedViewController())
        selected->view()->setFrame(content_->bounds());
}

void UITabBarController::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    appearing_ = true;
    if (const auto selected = selectedViewController())
        selected->beginAppearanceTransition(true, animated);
}

void UITabBarController::viewDidAppear(bool animated) {
    UIViewController::viewDidAppear(animated);
    appeared_ = true;
    if (const auto selected = selectedViewController())
        selected->endAppearanceTransition();
}

void UITabBarController::viewWillDisappear(bool animated) {
    UIViewController::viewWillDisappear(animated);
    appearing_ = appeared_ = false;
    if (const auto selected = selectedViewController())
        selected->beginAppearanceTransition(false, animated);
}

void UITabBarController::viewDidDisappear(bool animated) {
    UIViewController::viewDidDisappear(animated);
    if (const auto selected = selectedViewController())
        selected->endAppearanceTransition();
}

std::int64_t UITabBarController::preferredStatusBarStyle() const {
    const auto selected = selectedViewController();
    return selected ? selected->preferredStatusBarStyle() : 0;
}

bool UITabBarController::prefersStatusBarHidden() const {
    const auto selected = selectedViewController();
    return selected && selected->prefersStatusBarHidden();
}

std::int64_t UITabBarController::preferredStatusBarUpdateAnimation() const {
    const auto selected = selectedViewController();
    return selected ? selected->preferredStatusBarUpdateAnimation()
                    : UIViewController::preferredStatusBarUpdateAnimation();
}

}  // namespace zn
