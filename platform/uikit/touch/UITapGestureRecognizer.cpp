#include "zarnic/platform/uikit/UITapGestureRecognizer.h"

#include <algorithm>

#include "platform/uikit/view/ScreenSpace.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/uikit/UIControl.h"

namespace zn {
namespace {

/// Seconds and points.
constexpr double longestTap = 0.75;
constexpr double longestPause = 0.35;
constexpr double allowedMovement = 45;

bool lifted(const Ref<UITouch>& touch) {
    return touch->phase() == UITouchPhase::Ended || touch->phase() == UITouchPhase::Cancelled;
}

}  // namespace

UITapGestureRecognizer::UITapGestureRecognizer() = default;

UITapGestureRecognizer::UITapGestureRecognizer(const Action& action)
    : UIGestureRecognizer(action) {}

UITapGestureRecognizer::~UITapGestureRecognizer() = default;

void UITapGestureRecognizer::failAfter(double seconds) {
    const WeakRef<UITapGestureRecognizer> weak = ref(this);
    timeout_ = NSRunLoop::mainRunLoop()->addDeadline(Clock::shared().monotonic() + seconds, [weak] {
        if (const auto self = weak.lock())
            self->setState(UIGestureRecognizerState::Failed);
    });
}

bool UITapGestureRecognizer::belongsToControl(const Ref<UITouch>& touch) const {
    if (tapsRequired_ != 1 || touchesRequired_ != 1)
        return false;
    for (Ref<UIView> each = touch->view(); each && each != view(); each = each->superview()) {
        const auto control = as<UIControl>(each);
        if (control && control->enabled())
            return true;
    }
    return false;
}

bool UITapGestureRecognizer::strayed(const Finger& finger) const {
    const Point place = finger.touch->locationInView(nullptr);
    return distance(finger.start, place) > allowedMovement;
}

void UITapGestureRecognizer::touchesBegan(const TouchSet& touches, const Ref<UIEvent>&) {
    for (const Ref<UITouch>& touch : touches) {
        const Point place = touch->locationInView(nullptr);
        if (fingers_.empty())
            failAfter(longestTap);
        fingers_.push_back({touch, place});
        const bool elsewhere =
            firstPlace_ && fingers_.size() == 1 && distance(*firstPlace_, place) > allowedMovement;
        if (!firstPlace_)
            firstPlace_ = place;
        if (elsewhere || fingers_.size() > touchesRequired_ || belongsToControl(touch))
            setState(UIGestureRecognizerState::Failed);
    }
}

void UITapGestureRecognizer::touchesMoved(const TouchSet&, const Ref<UIEvent>&) {
    if (std::any_of(fingers_.begin(), fingers_.end(),
                    [this](const Finger& finger) { return strayed(finger); }))
        setState(UIGestureRecognizerState::Failed);
}

void UITapGestureRecognizer::touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event) {
    touchesMoved(touches, event);
    const auto down = std::count_if(fingers_.begin(), fingers_.end(), [&](const Finger& finger) {
        return numberOfTouches() > 1 && !lifted(finger.touch);
    });
    if (down == 0)
        endTap();
}

void UITapGestureRecognizer::endTap() {
    if (fingers_.size() != touchesRequired_) {
        setState(UIGestureRecognizerState::Failed);
    } else if (++taps_ == tapsRequired_) {
        timeout_.reset();
        setState(UIGestureRecognizerState::Recognized);
    } else {
        fingers_.clear();
        failAfter(longestPause);
    }
}

void UITapGestureRecognizer::touchesCancelled(const TouchSet&, const Ref<UIEvent>&) {
    setState(UIGestureRecognizerState::Failed);
}

void UITapGestureRecognizer::reset() {
    taps_ = 0;
    fingers_.clear();
    firstPlace_.reset();
    timeout_.reset();
}

bool UITapGestureRecognizer::canBePreventedByGestureRecognizer(
    const Ref<UIGestureRecognizer>& other) const {
    const auto tap = as<UITapGestureRecognizer>(other);
    return !tap || tap->tapsRequired_ >= tapsRequired_;
}

}  // namespace zn
