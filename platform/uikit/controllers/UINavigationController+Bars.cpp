#include <algorithm>

#include "platform/uikit/controllers/NavigationTransition.h"
#include "zarnic/platform/uikit/UIScreen.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

void UINavigationController::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    appearing_ = true;
    if (shown_) {
        shown_->beginAppearanceTransition(true, animated);
    } else if (const auto top = topViewController()) {
        const auto transition = std::make_shared<Transition>();
        transition->to = top;
        begin(transition);
    }
}

void UINavigationController::viewDidAppear(bool animated) {
    UIViewController::viewDidAppear(animated);
    appeared_ = true;
    if (transition_ && !transition_->moves())
        finishTransition();
    else if (shown_ && !transition_)
        shown_->endAppearanceTransition();
}

void UINavigationController::viewWillDisappear(bool animated) {
    UIViewController::viewWillDisappear(animated);
    finishTransition();
    appearing_ = appeared_ = false;
    if (shown_)
        shown_->beginAppearanceTransition(false, animated);
}

void UINavigationController::viewDidDisappear(bool animated) {
    UIViewController::viewDidDisappear(animated);
    if (shown_)
        shown_->endAppearanceTransition();
}

void UINavigationController::viewDidLayoutSubviews() {
    UIViewController::viewDidLayoutSubviews();
    if (transition_ && transition_->slide && content_->bounds().size != view()->bounds().size)
        finishTransition();
    layoutBars();
    if (!transition_ || !transition_->slide)
        placeShownView();
}

void UINavigationController::setNavigationBarHidden(bool hidden, bool animated) {
    if (hidden == barHidden_)
        return;
    barHidden_ = hidden;
    if (!isViewLoaded())
        return;
    // It goes along with a transition that is about to move, and changes after one that moves.
    if (transition_ && transition_->moves() && (animated || transition_->slide))
        return;
    if (transition_)
        transition_->barWasHidden = hidden;
    if (!animated || !appeared_) {
        layoutBars();
        bar_->setHidden(hidden);
        if (!transition_)
            placeShownView();
        return;
    }
    bar_->setHidden(false);
    const WeakRef<UINavigationController> weak = ref(this);
    UIView::animateWithDuration(
        BarDuration,
        [this] {
            layoutBars();
            if (!transition_)
                placeShownView();
        },
        [weak](bool) {
            if (const auto self = weak.lock())
                self->bar_->setHidden(self->barHidden_);
        });
}

/// Where the bar begins in the controller's view: below the status bar where the view reaches up
/// to it. Asked of the screen it shows, not of the status bar itself: a toast that hides the
/// status bar for a moment must not move the screens below.
double UINavigationController::topOfBar() {
    const Ref<UIWindow> window = view()->window();
    const auto top = topViewController();
    if (!window || (top && top->prefersStatusBarHidden()))
        return 0;
    const Rect onScreen =
        window->convertRectToWindow(window->convertRectFromView(view()->bounds(), view()), nullptr);
    const double height = UIScreen::mainScreen()->profile().statusBarHeight;
    return std::max(0.0, height - std::max(0.0, onScreen.minY()));
}

Rect UINavigationController::contentFrame() {
    const Rect area = view()->bounds();
    if (barHidden_ || bar_->translucent())
        return area;
    return area.insetBy(EdgeInsets{topOfBar() + UINavigationBar::Height, 0, 0, 0});
}

void UINavigationController::layoutBars() {
    if (!content_)
        return;
    const Rect area = view()->bounds();
    content_->setFrame(area);
    bar_->setTopExtension(topOfBar());
    if (!transition_ || !transition_->barRides)
        bar_->setFrame(barPlace(barHidden_));
}

Rect UINavigationController::barPlace(bool hidden) {
    return {0, hidden ? -2 * UINavigationBar::Height : topOfBar(), view()->bounds().width(),
            UINavigationBar::Height};
}

void UINavigationController::placeShownView() {
    if (shown_ && content_)
        shown_->view()->setFrame(contentFrame());
}

void UINavigationController::updateBarItems(UINavigationBar::Change change) {
    std::vector<Ref<UINavigationItem>> items;
    items.reserve(stack_.size());
    for (const auto& each : stack_)
        items.push_back(each->navigationItem());
    bar_->setItems(std::move(items), change);
}

bool UINavigationController::hidesBottomBar() const {
    return std::any_of(stack_.begin(), stack_.end(),
                       [](const auto& each) { return each->hidesBottomBarWhenPushed(); });
}

}  // namespace zn
