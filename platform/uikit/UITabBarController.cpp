#include "zarnic/platform/UITabBarController.h"

#include <algorithm>

#include "zarnic/platform/UILabel.h"
#include "zarnic/platform/UIScreen.h"

namespace zn {
namespace {

constexpr CGColor barColor{0.976, 0.976, 0.976, 1};
constexpr CGColor lineColor{0, 0, 0, 0.2};
constexpr CGColor unselectedColor{0.57, 0.57, 0.57, 1};

}  // namespace

UITabBarController::UITabBarController() = default;

UITabBarController::~UITabBarController() = default;

void UITabBarController::viewDidLoad() {
    UIViewController::viewDidLoad();
    content_ = make<UIView>(view()->bounds());
    view()->addSubview(content_);
    bar_ = make<UIView>(Rect());
    bar_->setBackgroundColor(make<UIColor>(barColor));
    line_ = make<UIView>(Rect());
    line_->setBackgroundColor(make<UIColor>(lineColor));
    bar_->addSubview(line_);
    view()->addSubview(bar_);
    makeTabs();
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
    if (!isViewLoaded())
        return;
    if (old && old != selectedViewController())
        leave(old);
    makeTabs();
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

void UITabBarController::showSelected() {
    colorTabs();
    const Ref<UIViewController> selected = selectedViewController();
    if (!selected)
        return;
    selected->view()->setFrame(content_->bounds());
    if (appearing_)
        selected->beginAppearanceTransition(true, false);
    content_->addSubview(selected->view());
    if (appeared_)
        selected->endAppearanceTransition();
}

void UITabBarController::makeTabs() {
    for (const auto& tab : std::exchange(tabs_, {}))
        tab->removeFromSuperview();
    for (const auto& controller : controllers_) {
        const auto tab = UIButton::buttonWithType(UIButtonType::Custom);
        tab->titleLabel()->setFont(UIFont::systemFontOfSize(12, UIFontWeight::Medium));
        tab->setTitle(controller->tabBarItem()->title(), UIControlState::Normal);
        tab->setImage(controller->tabBarItem()->image(), UIControlState::Normal);
        tab->addTarget(ZN_ACTION(ref(this), tabTapped), UIControlEvents::TouchDown);
        bar_->addSubview(tab);
        tabs_.push_back(tab);
    }
    colorTabs();
    view()->setNeedsLayout();
}

void UITabBarController::colorTabs() {
    const auto unselected = make<UIColor>(unselectedColor);
    for (std::size_t index = 0; index < tabs_.size(); ++index)
        tabs_[index]->setTitleColor(index == selected_ ? bar_->tintColor() : unselected,
                                    UIControlState::Normal);
}

void UITabBarController::tabTapped(const Ref<UIButton>& button) {
    const auto found = std::find(tabs_.begin(), tabs_.end(), button);
    if (found != tabs_.end())
        setSelectedIndex(static_cast<std::size_t>(found - tabs_.begin()));
}

void UITabBarController::viewDidLayoutSubviews() {
    UIViewController::viewDidLayoutSubviews();
    const Rect area = view()->bounds();
    const double height = BarHeight + UIScreen::mainScreen()->profile().safeBottom;
    bar_->setFrame({0, area.height() - height, area.width(), height});
    line_->setFrame({0, 0, area.width(), 1 / view()->contentScaleFactor()});
    content_->setFrame({0, 0, area.width(), area.height() - height});
    const double width = tabs_.empty() ? 0 : area.width() / static_cast<double>(tabs_.size());
    for (std::size_t index = 0; index < tabs_.size(); ++index)
        tabs_[index]->setFrame({static_cast<double>(index) * width, 0, width, BarHeight});
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
