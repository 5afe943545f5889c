#include <algorithm>

#include "platform/uikit/controllers/NavigationTransition.h"
#include "zarnic/platform/uikit/UIPanGestureRecognizer.h"

namespace zn {
namespace {

/// Seconds ahead of the finger: where it would be then decides.
constexpr double foresight = 0.25;
/// The part of a whole transition's time that even a short rest of the way takes.
constexpr double leastShare = 0.3;

double progressOf(const UIPanGestureRecognizer& gesture, const Ref<UIView>& view) {
    const double width = std::max(1.0, view->bounds().width());
    return std::clamp(gesture.translationInView(view).x / width, 0.0, 1.0);
}

/// Whether the finger has come, or is about to come, past the middle.
bool goesBack(const UIPanGestureRecognizer& gesture, const Ref<UIView>& view) {
    const double reach =
        gesture.translationInView(view).x + gesture.velocityInView(view).x * foresight;
    return gesture.state() == UIGestureRecognizerState::Ended && reach > view->bounds().width() / 2;
}

}  // namespace

void UINavigationController::swiped(const Ref<UIPanGestureRecognizer>& gesture) {
    if (gesture->state() == UIGestureRecognizerState::Began)
        beginSwipe();
    // Nothing is left to follow when the application has moved on to another screen.
    const TransitionRef swipe = swipe_.lock();
    if (!swipe || swipe != transition_)
        return;
    if (gesture->state() == UIGestureRecognizerState::Began ||
        gesture->state() == UIGestureRecognizerState::Changed)
        UIView::performWithoutAnimation([&] { moveTo(*swipe, progressOf(*gesture, view())); });
    else
        endSwipe(gesture);
}

void UINavigationController::beginSwipe() {
    swipe_.reset();
    if (transition_ || stack_.size() < 2)
        return;
    swiping_ = true;
    popViewControllerAnimated(true);
    swiping_ = false;
    if (transition_ && transition_->begun && transition_->motion == Transition::Motion::Interactive)
        swipe_ = transition_;
}

void UINavigationController::endSwipe(const Ref<UIPanGestureRecognizer>& gesture) {
    const TransitionRef swipe = std::exchange(swipe_, {}).lock();
    const double progress = progressOf(*gesture, view());
    const bool back = goesBack(*gesture, view());
    if (!back)
        cancelTransition(swipe);
    // The delegate may have moved on to another screen.
    if (swipe != transition_)
        return;
    const double rest = back ? 1 - progress : progress;
    animate(swipe, TransitionDuration * std::max(leastShare, rest));
}

/// The stack is at once what it was; the screens are on their way back.
void UINavigationController::cancelTransition(const TransitionRef& transition) {
    const Ref<UIViewController> self = ref(this);
    transition->cancelled = true;
    stack_.insert(stack_.end(), transition->leaving.begin(), transition->leaving.end());
    for (const auto& each : transition->leaving)
        each->willMoveToParentViewController(self);
    shown_ = transition->from;
    barHidden_ = transition->barWasHidden;
    if (const auto delegate = delegate_.lock())
        delegate->navigationControllerWillShowViewController(as<UINavigationController>(self),
                                                             transition->from, true);
    if (transition != transition_)
        return;
    transition->to->beginAppearanceTransition(false, true);
    transition->from->beginAppearanceTransition(true, true);
}

}  // namespace zn
