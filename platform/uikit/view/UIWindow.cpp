#include "zarnic/platform/uikit/UIWindow.h"

#include "platform/uikit/application/ApplicationState.h"
#include "platform/uikit/screen/ScreenState.h"
#include "platform/uikit/touch/TouchDispatcher.h"
#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {

UIWindow::UIWindow() : UIWindow(UIScreen::mainScreen()->bounds()) {}

UIWindow::UIWindow(const Rect& frame) : UIView(frame) {}

UIWindow::~UIWindow() = default;

void UIWindow::init() {
    UIView::init();
    UIView::setHidden(true);
    UIScreen::mainScreen()->state_->windows.add(ref(this));
}

Ref<UIWindow> UIWindow::window() const {
    return ref(const_cast<UIWindow*>(this));
}

Ref<UIResponder> UIWindow::nextResponder() const {
    return UIApplication::sharedApplication();
}

void UIWindow::setWindowLevel(double level) {
    if (level == level_)
        return;
    level_ = level;
    UIScreen::State& screen = *UIScreen::mainScreen()->state_;
    screen.windows.moveToLevel(ref(this));
    screen.placeLayer(ref(this));
    UIApplication::sharedApplication()->setNeedsStatusBarAppearanceUpdate();
}

void UIWindow::setHidden(bool hidden) {
    if (hidden == this->hidden())
        return;
    if (hidden)
        hide();
    else
        show();
}

void UIWindow::bringToFront() {
    UIScreen::State& screen = *UIScreen::mainScreen()->state_;
    screen.windows.show(ref(this));
    screen.placeLayer(ref(this));
    UIApplication::sharedApplication()->setNeedsStatusBarAppearanceUpdate();
}

void UIWindow::show() {
    const Ref<UIWindow> self = ref(this);
    UIView::setHidden(false);
    bringToFront();
    if (const Ref<UIViewController> root = root_) {
        root->beginAppearanceTransition(true, false);
        layoutIfNeeded();
        root->endAppearanceTransition();
    }
    NSNotificationCenter::defaultCenter()->postNotificationName(
        UIWindowDidBecomeVisibleNotification, self);
}

void UIWindow::hide() {
    const Ref<UIWindow> self = ref(this);
    const auto application = UIApplication::sharedApplication();
    if (const Ref<UIViewController> root = root_)
        root->beginAppearanceTransition(false, false);
    UIView::setHidden(true);
    UIScreen::State& screen = *UIScreen::mainScreen()->state_;
    screen.windows.hide(self);
    screen.placeLayer(self);
    application->setNeedsStatusBarAppearanceUpdate();
    TouchDispatcher::shared().cancelDetached();
    if (const Ref<UIViewController> root = root_)
        root->endAppearanceTransition();
    application->state_->windowWasHidden(self);
    NSNotificationCenter::defaultCenter()->postNotificationName(UIWindowDidBecomeHiddenNotification,
                                                                self);
}

void UIWindow::makeKeyWindow() {
    UIApplication::sharedApplication()->state_->makeKey(ref(this));
}

void UIWindow::makeKeyAndVisible() {
    const Ref<UIWindow> self = ref(this);
    if (hidden())
        show();
    else
        bringToFront();
    makeKeyWindow();
}

bool UIWindow::isKeyWindow() const {
    return UIApplication::sharedApplication()->keyWindow().get() == this;
}

void UIWindow::setRootViewController(const Ref<UIViewController>& controller) {
    if (controller == root_)
        return;
    const Ref<UIWindow> self = ref(this);
    detachRoot();
    root_ = controller;
    attachRoot();
    UIApplication::sharedApplication()->setNeedsStatusBarAppearanceUpdate();
}

void UIWindow::detachRoot() {
    const Ref<UIViewController> old = root_;
    if (!old)
        return;
    if (!hidden())
        old->beginAppearanceTransition(false, false);
    old->view()->removeFromSuperview();
    if (!hidden())
        old->endAppearanceTransition();
}

void UIWindow::attachRoot() {
    const Ref<UIViewController> root = root_;
    if (!root)
        return;
    const Ref<UIView> view = root->view();
    view->setAutoresizingMask(UIViewAutoresizing::FlexibleWidth |
                              UIViewAutoresizing::FlexibleHeight);
    if (!hidden())
        root->beginAppearanceTransition(true, false);
    view->setFrame(bounds());
    insertSubviewAtIndex(view, 0);
    if (!hidden())
        root->endAppearanceTransition();
}

void UIWindow::fillWithRootView() {
    if (root_ && root_->isViewLoaded() && root_->view()->superview().get() == this)
        root_->view()->setFrame(bounds());
}

void UIWindow::setFrame(const Rect& frame) {
    UIView::setFrame(frame);
    fillWithRootView();
    if (!hidden())
        UIApplication::sharedApplication()->setNeedsStatusBarAppearanceUpdate();
}

void UIWindow::setBounds(const Rect& bounds) {
    UIView::setBounds(bounds);
    fillWithRootView();
}

void UIWindow::layoutSubviews() {
    UIView::layoutSubviews();
    fillWithRootView();
}

/// A null window stands for the screen.
AffineTransform UIWindow::transformBetween(const UIWindow* from, const UIWindow* to) {
    if (from == to)
        return {};
    const AffineTransform up = from ? from->transformToSuperview() : AffineTransform();
    if (!to)
        return up;
    // A window squeezed to nothing has no inside.
    const auto down = to->transformToSuperview().inverted();
    return down ? up.concat(*down) : up;
}

Point UIWindow::convertPointToWindow(Point point, const Ref<UIWindow>& window) const {
    return transformBetween(this, window.get()).apply(point);
}

Point UIWindow::convertPointFromWindow(Point point, const Ref<UIWindow>& window) const {
    return transformBetween(window.get(), this).apply(point);
}

Rect UIWindow::convertRectToWindow(const Rect& rect, const Ref<UIWindow>& window) const {
    return transformBetween(this, window.get()).apply(rect);
}

Rect UIWindow::convertRectFromWindow(const Rect& rect, const Ref<UIWindow>& window) const {
    return transformBetween(window.get(), this).apply(rect);
}

}  // namespace zn
