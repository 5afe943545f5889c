#include "platform/uikit/controllers/NavigationTransition.h"
#include "zarnic/platform/uikit/UITabBarController.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

/// Brings the top of the stack on the screen; no transition is under way.
void UINavigationController::show(Direction direction, bool animated, Controllers leaving) {
    const bool fingers = std::exchange(swiping_, false);
    const bool moves = animated && shown_ && appeared_ && view()->window() && !stack_.empty();
    updateBarItems(!moves                            ? UINavigationBar::Change::None
                   : direction == Direction::Forward ? UINavigationBar::Change::Push
                                                     : UINavigationBar::Change::Pop);
    const auto transition = std::make_shared<Transition>();
    transition->from = shown_;
    transition->to = topViewController();
    transition->direction = direction;
    transition->leaving = std::move(leaving);
    transition->barWasHidden = barHidden_;
    if (moves)
        transition->motion =
            fingers ? Transition::Motion::Interactive : Transition::Motion::Animated;
    // Before the first appearance nothing is shown; then the top of that moment is.
    if (!shown_)
        return leaveFamily(*transition);
    begin(transition);
    if (transition_ == transition && !moves)
        finishTransition();
}

void UINavigationController::begin(const TransitionRef& transition) {
    const Ref<UIViewController> self = ref(this);
    transition_ = transition;
    shown_ = transition->to;
    const auto delegate = delegate_.lock();
    if (delegate && transition->to)
        delegate->navigationControllerWillShowViewController(as<UINavigationController>(self),
                                                             transition->to, transition->moves());
    // The delegate may have moved on to another screen.
    if (transition_ != transition)
        return;
    transition->begun = true;
    if (transition->from)
        transition->from->beginAppearanceTransition(false, transition->moves());
    if (appearing_ && transition->to)
        transition->to->beginAppearanceTransition(true, transition->moves());
    // So may the screens.
    if (transition_ != transition || !transition->to)
        return;
    UIView::performWithoutAnimation([&] {
        installViews(*transition);
        if (transition->moves())
            installSlide(*transition);
    });
    if (transition->motion == Transition::Motion::Animated)
        animate(transition, TransitionDuration);
}

void UINavigationController::installViews(Transition& transition) {
    const Ref<UIView>& view = transition.to->view();
    transition.installed = true;
    transition.barRides = transition.moves() && barHidden_ != transition.barWasHidden;
    placeViews(transition);
    if (transition.from && transition.direction == Direction::Backward)
        content_->insertSubviewBelow(view, transition.from->view());
    else
        content_->addSubview(view);
    view->layoutIfNeeded();
}

/// Puts the new screen at its place, and the tab bar, if it comes or goes, among the screens.
void UINavigationController::placeViews(Transition& transition) {
    const Ref<UITabBarController> tabs = tabBarController();
    const bool changes = tabs && tabs->tabBarHides() != tabs->isTabBarHidden();
    if (changes && !transition.moves())
        tabs->updateTabBar();
    layoutBars();
    if (!changes || !transition.moves())
        return transition.to->view()->setFrame(contentFrame());
    const Ref<UITabBar>& bar = tabs->tabBar();
    const Rect before = transition.from->view()->frame();
    const Rect barBefore = bar->frame();
    tabs->lendTabBar(content_);
    transition.tabs = tabs;
    // The content is now as high as without the bar. The screen that has it is not.
    layoutBars();
    transition.from->view()->setFrame(before);
    Rect place = contentFrame();
    if (!tabs->tabBarHides())
        place.size.height -= barBefore.height();
    transition.to->view()->setFrame(place);
    bar->setFrame(content_->convertRectFromView(barBefore, tabs->view()));
}

void UINavigationController::installSlide(Transition& transition) {
    const bool forward = transition.direction == Direction::Forward;
    const Ref<UIViewController>& upper = forward ? transition.to : transition.from;
    const Ref<UIViewController>& lower = forward ? transition.from : transition.to;
    if (transition.tabs) {
        const Ref<UIView> owner =
            (transition.tabs->tabBarHides() ? transition.from : transition.to)->view();
        content_->insertSubviewAbove(transition.tabs->tabBar(), owner);
    }
    content_->setUserInteractionEnabled(false);
    bar_->setUserInteractionEnabled(false);
    auto& slide = transition.slide.emplace(content_, upper->view(), lower->view());
    // What comes or goes belongs to the screen that has it.
    if (transition.tabs) {
        const bool upperHas = transition.tabs->tabBarHides() != forward;
        slide.addRider(transition.tabs->tabBar(),
                       upperHas ? ScreenSlide::Ride::WithUpper : ScreenSlide::Ride::WithLower);
    }
    if (transition.barRides) {
        const bool upperHas = barHidden_ != forward;
        bar_->setHidden(false);
        bar_->setFrame(barPlace(false));
        slide.addRider(bar_,
                       upperHas ? ScreenSlide::Ride::WithUpper : ScreenSlide::Ride::BesideUpper);
    }
    moveTo(transition, 0);
}

/// From 0, the old screen, to 1, the new one.
void UINavigationController::moveTo(const Transition& transition, double progress) {
    if (!transition.slide)
        return;
    transition.slide->place(transition.direction == Direction::Forward ? 1 - progress : progress);
    bar_->setChangeProgress(progress);
}

void UINavigationController::animate(const TransitionRef& transition, double duration) {
    const WeakRef<UINavigationController> weak = ref(this);
    UIView::animateWithDuration(
        duration, 0, UIViewAnimationOptions::CurveEaseOut,
        [&] { moveTo(*transition, transition->cancelled ? 0 : 1); },
        [weak, transition](bool) {
            const auto self = weak.lock();
            if (self && self->transition_ == transition)
                self->finishTransition();
        });
}

void UINavigationController::finishTransition() {
    const TransitionRef transition = std::exchange(transition_, nullptr);
    if (!transition)
        return;
    const Ref<UIViewController> self = ref(this);
    bar_->endChange();
    if (!transition->begun) {
        // Overtaken inside its own will-show: nothing of it was ever seen.
        shown_ = transition->from;
        return leaveFamily(*transition);
    }
    UIView::performWithoutAnimation([&] {
        // Overtaken when the new screen was told that it appears.
        transition->slide.reset();
        if (!transition->installed && transition->to) {
            transition->motion = Transition::Motion::None;
            installViews(*transition);
        }
        settleBars(*transition);
    });
    leaveFamily(*transition);
    settleViews(*transition);
    const auto delegate = delegate_.lock();
    const Ref<UIViewController>& shown = transition->cancelled ? transition->from : transition->to;
    if (delegate && shown)
        delegate->navigationControllerDidShowViewController(as<UINavigationController>(self), shown,
                                                            transition->moves());
}

void UINavigationController::leaveFamily(const Transition& transition) {
    const Ref<UIViewController> self = ref(this);
    for (const auto& each : transition.leaving) {
        if (transition.cancelled)
            each->didMoveToParentViewController(self);
        else
            each->removeFromParentViewController();
    }
}

void UINavigationController::settleBars(const Transition& transition) {
    if (transition.tabs)
        transition.tabs->updateTabBar();
    content_->setUserInteractionEnabled(true);
    bar_->setUserInteractionEnabled(true);
    if (transition.cancelled)
        updateBarItems(UINavigationBar::Change::None);
    layoutBars();
    bar_->setHidden(barHidden_);
    placeShownView();
}

void UINavigationController::settleViews(const Transition& transition) {
    const Ref<UIViewController>& gone = transition.cancelled ? transition.to : transition.from;
    const Ref<UIViewController>& shown = transition.cancelled ? transition.from : transition.to;
    if (gone) {
        gone->view()->removeFromSuperview();
        gone->endAppearanceTransition();
    }
    if (appeared_ && shown)
        shown->endAppearanceTransition();
    setNeedsStatusBarAppearanceUpdate();
}

}  // namespace zn
