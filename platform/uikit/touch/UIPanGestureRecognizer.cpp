#include "zarnic/platform/uikit/UIPanGestureRecognizer.h"

#include <algorithm>

#include "platform/uikit/view/ScreenSpace.h"
#include "zarnic/platform/foundation/Clock.h"

namespace zn {
namespace {

/// Points before it is a drag, and seconds over which its pace is measured.
constexpr double threshold = 10;
constexpr double paceSpan = 0.1;

bool lifted(const UITouch& touch) {
    return touch.phase() == UITouchPhase::Ended || touch.phase() == UITouchPhase::Cancelled;
}

}  // namespace

UIPanGestureRecognizer::UIPanGestureRecognizer() = default;

UIPanGestureRecognizer::UIPanGestureRecognizer(const Action& action)
    : UIGestureRecognizer(action) {}

UIPanGestureRecognizer::~UIPanGestureRecognizer() = default;

UIPanGestureRecognizer::Verdict UIPanGestureRecognizer::judge(Point movement) const {
    return distance({}, movement) >= threshold ? Verdict::Begins : Verdict::Undecided;
}

/// Of the fingers that stay down, on the screen.
Point UIPanGestureRecognizer::middle() const {
    Point sum;
    double count = 0;
    for (const Ref<UITouch>& touch : touches()) {
        if (lifted(*touch))
            continue;
        sum = sum + pointToScreen(touch->locationInView(nullptr), nullptr, touch->window());
        ++count;
    }
    return count == 0 ? last_ : Point{sum.x / count, sum.y / count};
}

void UIPanGestureRecognizer::touchesBegan(const TouchSet&, const Ref<UIEvent>&) {
    if (numberOfTouches() > maximumTouches_ && state() == UIGestureRecognizerState::Possible)
        setState(UIGestureRecognizerState::Failed);
    if (samples_.empty())
        samples_.push_back({Clock::shared().monotonic(), {}});
    last_ = middle();
}

void UIPanGestureRecognizer::touchesMoved(const TouchSet&, const Ref<UIEvent>&) {
    const Point now = middle();
    moved_ = moved_ + (now - last_);
    last_ = now;
    const double time = Clock::shared().monotonic();
    std::erase_if(samples_, [time](const Sample& each) { return each.time < time - paceSpan; });
    samples_.push_back({time, moved_});
    if (state() != UIGestureRecognizerState::Possible) {
        setState(UIGestureRecognizerState::Changed);
        return;
    }
    const Verdict verdict =
        numberOfTouches() < minimumTouches_ ? Verdict::Undecided : judge(moved_);
    if (verdict == Verdict::Begins)
        setState(UIGestureRecognizerState::Began);
    else if (verdict == Verdict::Fails)
        setState(UIGestureRecognizerState::Failed);
}

void UIPanGestureRecognizer::touchesEnded(const TouchSet&, const Ref<UIEvent>&) {
    touchLeft(UIGestureRecognizerState::Ended);
}

void UIPanGestureRecognizer::touchesCancelled(const TouchSet&, const Ref<UIEvent>&) {
    touchLeft(UIGestureRecognizerState::Cancelled);
}

void UIPanGestureRecognizer::touchLeft(UIGestureRecognizerState last) {
    if (numberOfTouches() > 1)
        last_ = middle();
    else if (state() == UIGestureRecognizerState::Possible)
        setState(UIGestureRecognizerState::Failed);
    else
        setState(last);
}

void UIPanGestureRecognizer::reset() {
    moved_ = zero_ = last_ = {};
    samples_.clear();
}

Point UIPanGestureRecognizer::directionInView(Point movement, const Ref<UIView>& view) const {
    const Ref<UIView> own = this->view();
    const Ref<UIWindow> window = own ? own->window() : nullptr;
    return pointFromScreen(movement, view, window) - pointFromScreen({}, view, window);
}

Point UIPanGestureRecognizer::translationInView(const Ref<UIView>& view) const {
    return directionInView(moved_ - zero_, view);
}

void UIPanGestureRecognizer::setTranslation(Point translation, const Ref<UIView>& view) {
    const Ref<UIView> own = this->view();
    const Ref<UIWindow> window = own ? own->window() : nullptr;
    zero_ = moved_ - (pointToScreen(translation, view, window) - pointToScreen({}, view, window));
}

Point UIPanGestureRecognizer::velocityInView(const Ref<UIView>& view) const {
    const double now = Clock::shared().monotonic();
    const auto first = std::find_if(samples_.begin(), samples_.end(), [now](const Sample& each) {
        return each.time >= now - paceSpan;
    });
    if (first == samples_.end() || samples_.back().time <= first->time)
        return {};
    const double seconds = samples_.back().time - first->time;
    const Point moved = directionInView(samples_.back().moved - first->moved, view);
    return {moved.x / seconds, moved.y / seconds};
}

}  // namespace zn
