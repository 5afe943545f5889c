#include "platform/foundation/runloop/TimerState.h"

#include <algorithm>
#include <utility>

namespace zn {
namespace {

Clock::Ticks intervalOf(double seconds, bool repeats) {
    const double least = repeats ? 0.0001 : 0;
    return ticksFromSeconds(seconds > least ? seconds : least);
}

template <class Function>
class AtScopeEnd {
public:
    explicit AtScopeEnd(Function function) : function_(std::move(function)) {}
    ~AtScopeEnd() { function_(); }
    AtScopeEnd(const AtScopeEnd&) = delete;
    AtScopeEnd& operator=(const AtScopeEnd&) = delete;

private:
    Function function_;
};

}  // namespace

NSTimer::State::State(NSTimer& timer, double seconds, bool repeating)
    : owner(timer),
      repeats(repeating),
      interval(intervalOf(seconds, repeating)),
      anchor_{Clock::shared().ticks() + interval,
              Clock::shared().now() + secondsFromTicks(interval)},
      due_(anchor_.moment) {}

void NSTimer::State::join(const std::shared_ptr<NSRunLoop::State>& to, NSRunLoopMode in) {
    std::lock_guard guard(mutex);
    if (!valid)
        return;
    const auto present = loop_.lock();
    if (present && present != to)
        return;
    dequeue();
    mode_ = !present || in == mode_ ? in : NSRunLoopMode::Common;
    loop_ = to;
    if (!firing_)
        enqueue();
}

void NSTimer::State::fireScheduled(Clock::Ticks scheduled) {
    {
        std::lock_guard guard(mutex);
        // Another thread may have moved or invalidated it since the loop took it out.
        if (!valid || firing_ || due_ != scheduled)
            return;
        key_.reset();
        firing_ = true;
    }
    const AtScopeEnd finish([&] { finishFiring(scheduled); });
    call();
}

void NSTimer::State::call() {
    std::unique_lock lock(mutex);
    // Copies, which live on when the call-back invalidates the timer.
    const auto itsBlock = block;
    const Action itsAction = action;
    const Ref<NSObject> itsTarget = target;
    lock.unlock();
    const auto timer = ref(&owner);
    if (itsBlock)
        (*itsBlock)(timer);
    else
        itsAction.send(timer);
}

void NSTimer::State::finishFiring(Clock::Ticks fired) {
    std::unique_lock lock(mutex);
    firing_ = false;
    const auto moved = std::exchange(setWhileFiring_, std::nullopt);
    if (!valid)
        return;
    if (!repeats) {
        lock.unlock();
        invalidate();
        return;
    }
    if (moved && moved->moment > fired) {
        anchor_ = *moved;
        due_ = moved->moment;
    } else {
        const auto late = std::max(Clock::shared().ticks() - fired, Clock::Ticks(0));
        due_ = fired + (late / interval + 1) * interval;
    }
    enqueue();
}

void NSTimer::State::setFireDate(double date) {
    std::lock_guard guard(mutex);
    if (!valid)
        return;
    const Anchor anchor = anchorAt(date);
    if (firing_) {
        setWhileFiring_ = anchor;
        return;
    }
    dequeue();
    anchor_ = anchor;
    due_ = anchor.moment;
    enqueue();
}

double NSTimer::State::fireDate() {
    std::lock_guard guard(mutex);
    if (setWhileFiring_)
        return setWhileFiring_->date;
    return anchor_.date + secondsFromTicks(due_ - anchor_.moment);
}

void NSTimer::State::invalidate() {
    // What the timer owned dies after its lock is released.
    Ref<NSObject> lastTarget;
    std::shared_ptr<const Block> lastBlock;
    Value lastUserInfo;
    std::lock_guard guard(mutex);
    valid = false;
    dequeue();
    lastTarget.swap(target);
    lastBlock.swap(block);
    std::swap(lastUserInfo, userInfo);
}

NSTimer::State::Anchor NSTimer::State::anchorAt(double date) {
    const Clock& clock = Clock::shared();
    const double now = clock.now();
    const auto ahead = ticksUntilDate(clock, date);
    const bool clamped = date - now > secondsFromTicks(ahead) + 1;
    if (ahead <= Clock::Ticks(0))
        return {clock.ticks(), now};
    return {clock.ticks() + ahead, clamped ? now + secondsFromTicks(ahead) : date};
}

void NSTimer::State::enqueue() {
    const auto loop = loop_.lock();
    if (!loop)
        return;
    key_ = loop->schedule.add(mode_, due_, {ref(&owner), nullptr});
    loop->wakeIfAsleep();
}

void NSTimer::State::dequeue() {
    const auto loop = loop_.lock();
    if (loop && key_)
        loop->schedule.remove(mode_, *key_);
    key_.reset();
}

}  // namespace zn
