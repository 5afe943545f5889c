#pragma once

#include <memory>

#include "zarnic/platform/foundation/Clock.h"

namespace zn {

/// A clock that goes on only when the main thread says so: with `advance`, or while it runs the
/// main loop, sleeps or waits in a condition. Time then jumps from one deadline to the next, and
/// before each every participant (see `ClockParticipant`) has come to rest, so that a run is the
/// same each time and takes no longer than its work. Of those that sleep to the same moment one
/// wakes after the other, in the order in which the threads were begun, and comes to rest again;
/// then come the main loop's timers of that moment. A thread that waits for something other than
/// the clock (a mutex that a sleeper holds, input) does not rest. Threads that nobody registered
/// may sleep here, but are not waited for. With nothing due at all the main thread really waits.
class ZN_EXPORT ManualClock final : public Clock {
public:
    /// Seconds since 1970; 2018-01-01 00:00 UTC unless told.
    explicit ManualClock(double now = 1514764800.0);
    ~ManualClock() override;

    double now() const override;
    Ticks ticks() const override;

    /// Sets the wall clock alone; waits and timers that are set keep their moments.
    void setNow(double since1970);

    /// Lets that much time pass: runs the main loop and every thread until all that is due has
    /// happened, in order, and everyone rests. Main thread, and the shared clock, only. Throws
    /// `NSInternalInconsistencyException`, naming who is busy, when one of them does not come to
    /// rest within the patience.
    void advance(double seconds);
    /// Lets no time pass: everything that can happen now has happened afterwards.
    void settle();
    /// Real seconds to wait for the participants before giving up; 30 unless told.
    void setPatience(double seconds);

    bool wait(Waiter& waiter, Ticks until) override;
    bool wake(Waiter& waiter) override;

protected:
    void enter(ClockParticipant& participant) override;
    void leave(ClockParticipant& participant) override;

private:
    bool drive(Waiter& waiter, Ticks until);
    bool park(Waiter& waiter, Ticks until);

    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace zn
