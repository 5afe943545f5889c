#include "zarnic/platform/foundation/NSTimer.h"

#include "platform/foundation/runloop/TimerState.h"
#include "zarnic/platform/foundation/NSDate.h"

namespace zn {

Ref<NSTimer> NSTimer::timerWithTimeInterval(double interval, const Action& action,
                                            const Value& userInfo, bool repeats) {
    auto timer = make<NSTimer>(interval, repeats);
    timer->state_->action = action;
    timer->state_->target = action.target();
    timer->state_->userInfo = userInfo;
    return timer;
}

Ref<NSTimer> NSTimer::timerWithTimeInterval(double interval, bool repeats,
                                            std::function<void(const Ref<NSTimer>&)> block) {
    auto timer = make<NSTimer>(interval, repeats);
    if (block)
        timer->state_->block = std::make_shared<const State::Block>(std::move(block));
    return timer;
}

Ref<NSTimer> NSTimer::scheduledTimerWithTimeInterval(double interval, const Action& action,
                                                     const Value& userInfo, bool repeats) {
    auto timer = timerWithTimeInterval(interval, action, userInfo, repeats);
    NSRunLoop::currentRunLoop()->addTimer(timer, NSRunLoopMode::Default);
    return timer;
}

NSTimer::NSTimer(double interval, bool repeats)
    : state_(std::make_unique<State>(*this, interval, repeats)) {}

NSTimer::~NSTimer() = default;

Ref<NSDate> NSTimer::fireDate() const {
    return NSDate::dateWithTimeIntervalSince1970(state_->fireDate());
}

void NSTimer::setFireDate(const Ref<NSDate>& date) {
    if (date)
        state_->setFireDate(date->timeIntervalSince1970());
}

double NSTimer::timeInterval() const {
    return state_->repeats ? secondsFromTicks(state_->interval) : 0;
}

bool NSTimer::valid() const {
    std::lock_guard guard(state_->mutex);
    return state_->valid;
}

Value NSTimer::userInfo() const {
    std::lock_guard guard(state_->mutex);
    return state_->userInfo;
}

void NSTimer::fire() {
    if (!valid())
        return;
    state_->call();
    if (!state_->repeats)
        invalidate();
}

void NSTimer::invalidate() {
    state_->invalidate();
}

}  // namespace zn
