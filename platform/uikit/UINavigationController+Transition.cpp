#include "platform/uikit/NavigationTransition.h"
#include "zarnic/platform/UIScreen.h"
#include "zarnic/platform/UIWindow.h"

namespace zn {
namespace {

/// The screen below moves by this part of the width while the upper one moves by all of it.
constexpr double parallax = 0.3;
constexpr double dimmingAlpha = 0.1;

}  // namespace

/// Brings the top of the stack on the screen. A transition under way is finished first.
void UINavigationController::show(Direction direction, bool animated) {
    finishTransition();
    const bool moves = animated && shown_ && view()->window();
    updateBarItems(direction == Direction::Forward ? UINavigationBar::Change::Push
                                                   : UINavigationBar::Change::Pop,
                   moves);
    // Before the first appearance nothing is shown; then the top of that moment is.
    if (!shown_)
        return;
    const auto transition = std::make_shared<Transition>();
    transition->from = shown_;
    transition->to = topViewController();
    transition->direction = direction;
    transition->animated = moves;
    begin(transition);
    if (transition_ == transition && !moves)
        finishTransition();
}

void UINavigationController::begin(const std::shared_ptr<Transition>& transition) {
    const Ref<UIViewController> self = ref(this);
    transition_ = transition;
    shown_ = transition->to;
    if (!shown_)
        return;
    if (const auto delegate = delegate_.lock())
        delegate->navigationControllerWillShowViewController(as<UINavigationController>(self),
                                                             transition->to, transition->animated);
    // The delegate may have moved on to another screen.
    if (transition_ != transition)
        return;
    transition->begun = true;
    if (transition->from)
        transition->from->beginAppearanceTransition(false, transition->animated);
    if (appearing_)
        transition->to->beginAppearanceTransition(true, transition->animated);
    installViews(*transition);
    if (transition->animated)
        animate(transition);
}

void UINavigationController::installViews(const Transition& transition) {
    UIView::performWithoutAnimation([&] {
        const Ref<UIView>& view = transition.to->view();
        layoutBars();
        view->setFrame(contentFrame());
        if (transition.from && transition.direction == Direction::Backward)
            content_->insertSubviewBelow(view, transition.from->view());
        else
            content_->addSubview(view);
        view->layoutIfNeeded();
    });
}

void UINavigationController::animate(const std::shared_ptr<Transition>& transition) {
    const double width = content_->bounds().width();
    const bool forward = transition->direction == Direction::Forward;
    const Ref<UIView> upper = (forward ? transition->to : transition->from)->view();
    const Ref<UIView> lower = (forward ? transition->from : transition->to)->view();
    const Rect upperPlace = upper->frame();
    const Rect lowerPlace = lower->frame();
    const Rect beside = upperPlace.offsetBy(width, 0);
    const Rect behind = lowerPlace.offsetBy(-width * parallax, 0);
    const auto dimming = make<UIView>(content_->bounds());
    dimming->setBackgroundColor(UIColor::blackColor());
    dimming->setUserInteractionEnabled(false);
    transition->dimming = dimming;
    UIView::performWithoutAnimation([&] {
        content_->insertSubviewBelow(dimming, upper);
        dimming->setAlpha(forward ? 0 : dimmingAlpha);
        upper->setFrame(forward ? beside : upperPlace);
        lower->setFrame(forward ? lowerPlace : behind);
    });
    const WeakRef<UINavigationController> weak = ref(this);
    UIView::animateWithDuration(
        TransitionDuration, 0, UIViewAnimationOptions::CurveEaseOut,
        [&] {
            dimming->setAlpha(forward ? dimmingAlpha : 0);
            upper->setFrame(forward ? upperPlace : beside);
            lower->setFrame(forward ? behind : lowerPlace);
        },
        [weak, transition](bool) {
            const auto self = weak.lock();
            if (self && self->transition_ == transition)
                self->finishTransition();
        });
}

void UINavigationController::finishTransition() {
    const auto transition = std::exchange(transition_, nullptr);
    if (!transition || !transition->to)
        return;
    const Ref<UIViewController> self = ref(this);
    if (!transition->begun) {
        // Overtaken inside its own will-show: nothing of it was ever seen.
        shown_ = transition->from;
        return;
    }
    if (transition->dimming)
        transition->dimming->removeFromSuperview();
    UIView::performWithoutAnimation([this] { placeShownView(); });
    if (transition->from) {
        transition->from->view()->removeFromSuperview();
        transition->from->endAppearanceTransition();
    }
    if (appeared_)
        transition->to->endAppearanceTransition();
    setNeedsStatusBarAppearanceUpdate();
    if (const auto delegate = delegate_.lock())
        delegate->navigationControllerDidShowViewController(as<UINavigationController>(self),
                                                            transition->to, transition->animated);
}

}  // namespace zn
