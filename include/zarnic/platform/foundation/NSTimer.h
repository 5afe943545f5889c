#pragma once

#include "zarnic/platform/foundation/Action.h"
#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSObject.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

class NSDate;

/// Fires an action on a grid of dates while a run loop holds it. The loop owns the timer, the
/// timer owns its target until it is invalidated. Late fires are skipped, never made up in a
/// burst; a fire date set inside the call-back counts when it is later than the one that fired.
/// Intervals and dates lie at most 504,911,232 s ahead; a repeating interval is at least 0.0001 s,
/// a single one at least 0. Dates are of the wall clock when they are set and then kept on the
/// monotonic one. Use it on the thread of its loop; `setFireDate`, `invalidate` and the getters are
/// safe from others, though a call-back may then be under way.
class ZN_EXPORT NSTimer final : public NSObject {
    ZN_OBJECT(NSTimer, NSObject)
public:
    /// A timer that no loop holds yet; first due `interval` seconds from now.
    static Ref<NSTimer> timerWithTimeInterval(double interval, const Action& action,
                                              const Value& userInfo, bool repeats);
    static Ref<NSTimer> timerWithTimeInterval(double interval, bool repeats,
                                              std::function<void(const Ref<NSTimer>&)> block);
    /// The same, added to the current loop in the default mode.
    static Ref<NSTimer> scheduledTimerWithTimeInterval(double interval, const Action& action,
                                                       const Value& userInfo, bool repeats);

    /// Use the factories.
    NSTimer(double interval, bool repeats);
    ~NSTimer() override;

    Ref<NSDate> fireDate() const;
    /// Moves the grid to begin at `date`; a past date means now; ignored when invalid.
    void setFireDate(const Ref<NSDate>& date);
    /// Seconds; 0 for a timer that does not repeat.
    double timeInterval() const;
    bool valid() const;
    /// Absent once invalid.
    Value userInfo() const;
    /// Calls the action now, without touching the schedule of a repeating timer; a single one is
    /// invalid afterwards. Does nothing when invalid.
    void fire();
    void invalidate();

private:
    friend class NSRunLoop;
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace zn
