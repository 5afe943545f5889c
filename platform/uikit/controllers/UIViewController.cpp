#include "zarnic/platform/uikit/UIViewController.h"

#include <algorithm>

#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/uikit/UINavigationItem.h"
#include "zarnic/platform/uikit/UIScreen.h"
#include "zarnic/platform/uikit/UITabBarItem.h"

namespace zn {

UIViewController::UIViewController() = default;

UIViewController::~UIViewController() = default;

const Ref<UIView>& UIViewController::view() {
    loadViewIfNeeded();
    return view_;
}

void UIViewController::setView(const Ref<UIView>& view) {
    if (view_)
        view_->controller_.reset();
    view_ = view;
    if (view_)
        view_->controller_ = ref(this);
}

void UIViewController::loadView() {
    const auto view = make<UIView>(UIScreen::mainScreen()->bounds());
    view->setAutoresizingMask(UIViewAutoresizing::FlexibleWidth |
                              UIViewAutoresizing::FlexibleHeight);
    setView(view);
}

void UIViewController::loadViewIfNeeded() {
    if (view_)
        return;
    UIView::performWithoutAnimation([this] {
        loadView();
        if (!view_)
            throw NSException(NSInternalInconsistencyException,
                              description() + " loadView made no view");
        viewDidLoad();
    });
}

void UIViewController::beginAppearanceTransition(bool appears, bool animated) {
    const Appearance present = appearance_;
    if (appears ? present == Appearance::Appeared || present == Appearance::Appearing
                : present == Appearance::Disappeared || present == Appearance::Disappearing)
        return;
    const Ref<UIViewController> self = ref(this);
    appearanceAnimated_ = animated;
    if (appears) {
        loadViewIfNeeded();
        appearance_ = Appearance::Appearing;
        viewWillAppear(animated);
    } else {
        appearance_ = Appearance::Disappearing;
        viewWillDisappear(animated);
    }
}

void UIViewController::endAppearanceTransition() {
    const Ref<UIViewController> self = ref(this);
    if (appearance_ == Appearance::Appearing) {
        appearance_ = Appearance::Appeared;
        viewDidAppear(appearanceAnimated_);
    } else if (appearance_ == Appearance::Disappearing) {
        appearance_ = Appearance::Disappeared;
        viewDidDisappear(appearanceAnimated_);
    }
}

void UIViewController::addChildViewController(const Ref<UIViewController>& child) {
    if (!child || child.get() == this)
        throw NSException(NSInvalidArgumentException, "a child controller is absent or the parent");
    if (child->parentViewController().get() == this)
        return;
    child->removeFromParentViewController();
    child->willMoveToParentViewController(ref(this));
    child->parent_ = ref(this);
    children_.push_back(child);
}

void UIViewController::removeFromParentViewController() {
    const Ref<UIViewController> parent = parent_.lock();
    if (!parent)
        return;
    const Ref<UIViewController> self = ref(this);
    std::erase(parent->children_, self);
    parent_.reset();
    didMoveToParentViewController(nullptr);
}

void UIViewController::setTitle(std::string_view title) {
    title_ = title;
    navigationItem()->setTitle(title);
    tabBarItem()->setTitle(title);
}

const Ref<UINavigationItem>& UIViewController::navigationItem() {
    if (!navigationItem_)
        navigationItem_ = make<UINavigationItem>(title_);
    return navigationItem_;
}

const Ref<UITabBarItem>& UIViewController::tabBarItem() {
    if (!tabBarItem_)
        tabBarItem_ = make<UITabBarItem>(title_, nullptr);
    return tabBarItem_;
}

std::int64_t UIViewController::supportedInterfaceOrientations() const {
    return UIScreen::mainScreen()->profile().tablet ? UIInterfaceOrientationMask::All
                                                    : UIInterfaceOrientationMask::AllButUpsideDown;
}

std::int64_t UIViewController::preferredInterfaceOrientationForPresentation() const {
    return UIInterfaceOrientation::Portrait;
}

void UIViewController::setNeedsStatusBarAppearanceUpdate() {
    UIApplication::sharedApplication()->setNeedsStatusBarAppearanceUpdate();
}

Ref<UIResponder> UIViewController::nextResponder() const {
    return view_ ? Ref<UIResponder>(view_->superview()) : nullptr;
}

}  // namespace zn
