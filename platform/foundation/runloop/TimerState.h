#pragma once

#include <mutex>

#include "platform/foundation/runloop/RunLoopState.h"
#include "platform/foundation/runloop/Schedule.h"
#include "zarnic/platform/foundation/NSTimer.h"

namespace zn {

struct NSTimer::State {
    using Block = std::function<void(const Ref<NSTimer>&)>;

    State(NSTimer& timer, double seconds, bool repeating);

    void join(const std::shared_ptr<NSRunLoop::State>& to, NSRunLoopMode in);
    /// The loop's call at the moment that was scheduled.
    void fireScheduled(Clock::Ticks scheduled);
    void call();
    void setFireDate(double date);
    double fireDate();
    void invalidate();

    NSTimer& owner;
    std::mutex mutex;
    const bool repeats;
    const Clock::Ticks interval;
    Action action;
    /// Strong, while the timer is valid; the action's own reference is weak.
    Ref<NSObject> target;
    std::shared_ptr<const Block> block;
    Value userInfo;
    bool valid = true;

private:
    /// The moment that a fire date was set to: where the grid begins.
    struct Anchor {
        Clock::Ticks moment;
        double date;
    };
    static Anchor anchorAt(double date);

    void enqueue();
    void dequeue();
    void finishFiring(Clock::Ticks fired);

    Anchor anchor_;
    Clock::Ticks due_;
    std::weak_ptr<NSRunLoop::State> loop_;
    NSRunLoopMode mode_ = NSRunLoopMode::Default;
    std::optional<Schedule::Key> key_;
    bool firing_ = false;
    std::optional<Anchor> setWhileFiring_;
};

}  // namespace zn
