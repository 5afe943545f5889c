#include "platform/uikit/touch/GestureArbiter.h"

#include <algorithm>

#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {
namespace {

using State = UIGestureRecognizerState;

bool runs(State state) {
    return state == State::Began || state == State::Changed;
}

bool finished(State state) {
    return state == State::Ended || state == State::Cancelled || state == State::Failed;
}

bool contains(const TouchSet& touches, const Ref<UITouch>& touch) {
    return std::find(touches.begin(), touches.end(), touch) != touches.end();
}

bool meet(const TouchSet& left, const TouchSet& right) {
    return std::any_of(left.begin(), left.end(),
                       [&](const Ref<UITouch>& touch) { return contains(right, touch); });
}

bool allows(const Ref<UIGestureRecognizer>& asked, const Ref<UIGestureRecognizer>& other) {
    const auto delegate = asked->delegate();
    return delegate &&
           delegate->gestureRecognizerShouldRecognizeSimultaneouslyWithGestureRecognizer(asked,
                                                                                         other);
}

/// Whether `recognizer` may be recognised only once `other` has failed.
bool mustOutlast(const UIGestureRecognizer& recognizer, const Ref<UIGestureRecognizer>& other,
                 const std::vector<WeakRef<UIGestureRecognizer>>& required) {
    return std::any_of(required.begin(), required.end(),
                       [&](const auto& weak) { return weak.lock() == other; }) ||
           recognizer.shouldRequireFailureOfGestureRecognizer(other);
}

/// Whether a recogniser must fail because `winner`, which shares a touch, was recognised.
bool yields(const Ref<UIGestureRecognizer>& recognizer, const Ref<UIGestureRecognizer>& winner) {
    return recognizer->canBePreventedByGestureRecognizer(winner) && !allows(winner, recognizer) &&
           !allows(recognizer, winner);
}

}  // namespace

GestureArbiter::GestureArbiter(TouchCanceller cancelInViews)
    : cancelInViews_(std::move(cancelInViews)) {}

bool GestureArbiter::isActive(const Ref<UIGestureRecognizer>& recognizer) const {
    return std::find(active_.begin(), active_.end(), recognizer) != active_.end();
}

void GestureArbiter::addTouch(const Ref<UIGestureRecognizer>& recognizer,
                              const Ref<UITouch>& touch) {
    if (!isActive(recognizer))
        active_.push_back(recognizer);
    recognizer->touches_.push_back(touch);
    recognizer->sequence_.push_back(touch);
}

void GestureArbiter::removeTouch(const Ref<UITouch>& touch) {
    for (const auto& recognizer : active_)
        std::erase(recognizer->touches_, touch);
}

bool GestureArbiter::listens(const UIGestureRecognizer& recognizer) {
    // One that has only to wait for others has seen all that it needs.
    return recognizer.enabled_ && !finished(recognizer.state_) &&
           recognizer.waitingFor_ != State::Ended;
}

bool GestureArbiter::hears(const UIGestureRecognizer& recognizer, const Ref<UITouch>& touch) {
    return listens(recognizer) && contains(recognizer.touches_, touch);
}

bool GestureArbiter::claims(const Ref<UITouch>& touch) const {
    return std::any_of(active_.begin(), active_.end(), [&](const auto& recognizer) {
        return runs(recognizer->state_) && recognizer->cancelsTouchesInView_ &&
               contains(recognizer->touches_, touch);
    });
}

bool GestureArbiter::anyPossible(const Ref<UITouch>& touch,
                                 bool UIGestureRecognizer::*delays) const {
    return std::any_of(active_.begin(), active_.end(), [&](const auto& recognizer) {
        return recognizer->state_ == State::Possible && (*recognizer).*delays &&
               contains(recognizer->sequence_, touch);
    });
}

bool GestureArbiter::delaysBegan(const Ref<UITouch>& touch) const {
    return anyPossible(touch, &UIGestureRecognizer::delaysTouchesBegan_);
}

bool GestureArbiter::delaysEnded(const Ref<UITouch>& touch) const {
    return anyPossible(touch, &UIGestureRecognizer::delaysTouchesEnded_);
}

void GestureArbiter::request(const Ref<UIGestureRecognizer>& recognizer, State wanted) {
    if (wanted == State::Possible || finished(recognizer->state_))
        return;
    if (!isActive(recognizer))
        active_.push_back(recognizer);
    if (runs(recognizer->state_)) {
        const State next = wanted == State::Began    ? State::Changed
                           : wanted == State::Failed ? State::Cancelled
                                                     : wanted;
        enter(recognizer, next);
    } else if (wanted == State::Failed || wanted == State::Cancelled) {
        fail(recognizer);
    } else {
        begin(recognizer, wanted == State::Changed ? State::Began : wanted);
    }
}

GestureArbiter::Verdict GestureArbiter::requirements(const UIGestureRecognizer& recognizer) const {
    Verdict verdict = Verdict::Go;
    for (const auto& other : active_) {
        if (other.get() == &recognizer ||
            !mustOutlast(recognizer, other, recognizer.requiredToFail_))
            continue;
        if (other->state_ == State::Possible)
            verdict = Verdict::Wait;
        else if (other->state_ != State::Failed)
            return Verdict::Fail;
    }
    return verdict;
}

bool GestureArbiter::excluded(const Ref<UIGestureRecognizer>& recognizer) const {
    const Recognizers others = active_;
    return std::any_of(others.begin(), others.end(), [&](const auto& other) {
        return other != recognizer && (runs(other->state_) || other->state_ == State::Ended) &&
               meet(other->sequence_, recognizer->sequence_) && yields(recognizer, other);
    });
}

void GestureArbiter::begin(const Ref<UIGestureRecognizer>& recognizer, State wanted) {
    recognizer->waitingFor_ = wanted;
    const Verdict verdict = requirements(*recognizer);
    if (verdict == Verdict::Wait)
        return;
    const auto delegate = recognizer->delegate();
    if (verdict == Verdict::Fail || excluded(recognizer) ||
        (delegate && !delegate->gestureRecognizerShouldBegin(recognizer)))
        fail(recognizer);
    // The delegate may have turned it off meanwhile.
    else if (recognizer->state_ == State::Possible && recognizer->enabled_)
        recognize(recognizer, wanted);
}

void GestureArbiter::recognize(const Ref<UIGestureRecognizer>& recognizer, State state) {
    recognizer->state_ = state;
    recognizer->waitingFor_.reset();
    const Recognizers others = active_;
    for (const auto& other : others) {
        if (other->state_ != State::Possible)
            continue;
        const bool waits = other->waitingFor_ && requirements(*other) == Verdict::Fail;
        if (waits || (meet(other->sequence_, recognizer->sequence_) && yields(other, recognizer)))
            fail(other);
    }
    if (recognizer->cancelsTouchesInView_)
        cancelInViews_(recognizer->sequence_);
    if (recognizer->state_ == state)
        enter(recognizer, state);
}

void GestureArbiter::enter(const Ref<UIGestureRecognizer>& recognizer, State state) {
    recognizer->state_ = state;
    const std::vector<Action> actions = recognizer->actions_;
    for (const Action& action : actions)
        action.send(recognizer);
}

void GestureArbiter::fail(const Ref<UIGestureRecognizer>& recognizer) {
    if (recognizer->state_ != State::Possible)
        return;
    recognizer->waitingFor_.reset();
    recognizer->state_ = State::Failed;
    retryWaiting();
}

void GestureArbiter::retryWaiting() {
    const Recognizers others = active_;
    for (const auto& other : others)
        if (other->state_ == State::Possible && other->waitingFor_)
            begin(other, *other->waitingFor_);
}

void GestureArbiter::stop(const Ref<UIGestureRecognizer>& recognizer) {
    if (!isActive(recognizer))
        return;
    recognizer->touches_.clear();
    if (runs(recognizer->state_))
        enter(recognizer, State::Cancelled);
    else
        fail(recognizer);
}

void GestureArbiter::stopDetached() {
    const Recognizers all = active_;
    for (const auto& recognizer : all) {
        const Ref<UIView> view = recognizer->view();
        const Ref<UIWindow> window = view ? view->window() : nullptr;
        if (!window || window->hidden())
            stop(recognizer);
    }
}

void GestureArbiter::resetFinished() {
    const Recognizers all = active_;
    for (const auto& recognizer : all) {
        if (!finished(recognizer->state_) || !recognizer->touches_.empty())
            continue;
        std::erase(active_, recognizer);
        recognizer->sequence_.clear();
        recognizer->waitingFor_.reset();
        recognizer->state_ = State::Possible;
        recognizer->reset();
    }
}

}  // namespace zn
