#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

class ClockParticipant;
class Waiter;

/// The one source of time. All of it goes through here, so that a test can stop it.
/// Every function may be called from any thread.
class ZN_EXPORT Clock {
public:
    using Ticks = std::chrono::nanoseconds;
    /// A moment that never comes.
    static constexpr Ticks never = Ticks::max();

    virtual ~Clock();

    /// Seconds since 1970-01-01 00:00 UTC; may jump when the system's clock is set.
    virtual double now() const = 0;
    /// Time that never goes back, for timers and animation; the origin means nothing.
    virtual Ticks ticks() const = 0;
    /// The same in seconds.
    double monotonic() const;
    /// Blocks the calling thread; zero or less, or not a number, returns at once.
    void sleep(double seconds);

    /// The process's clock: the system's, unless `setShared` came before the first use.
    static Clock& shared();
    /// Replaces the process's clock, on the main thread. Throws `NSInternalInconsistencyException`
    /// once anything has used it: waits that are under way could not follow.
    static void setShared(std::shared_ptr<Clock> clock);

    /// Every wait of the library comes here. Blocks until `wake` (true) or until the monotonic
    /// moment (false).
    virtual bool wait(Waiter& waiter, Ticks until);
    /// Ends the waiter's wait, also one that is about to begin. False when the moment came first.
    virtual bool wake(Waiter& waiter);

protected:
    friend class ClockParticipant;
    /// A thread that must come to rest before time may go on begins, or has ended.
    virtual void enter(ClockParticipant& participant);
    virtual void leave(ClockParticipant& participant);
};

/// The machine's own clock.
class ZN_EXPORT SystemClock final : public Clock {
public:
    double now() const override;
    Ticks ticks() const override;
};

/// A thread that a manual clock waits for: time goes on only while the thread sleeps in the clock
/// or waits in a condition, a run loop or the pool. Whoever starts the thread makes the participant
/// first, so that not a moment passes uncounted; the thread attaches itself, and destroys it when
/// it ends. The library's own threads do so by themselves. Costs nothing under the system's clock.
class ZN_EXPORT ClockParticipant {
public:
    /// The name tells people which thread never came to rest.
    explicit ClockParticipant(std::string name);
    ~ClockParticipant();
    ClockParticipant(const ClockParticipant&) = delete;
    ClockParticipant& operator=(const ClockParticipant&) = delete;

    /// From here on the calling thread's waits are this participant's rest.
    void attach();
    /// The calling thread's participant, or null.
    static ClockParticipant* current();

    const std::string& name() const { return name_; }

private:
    friend class ManualClock;
    std::string name_;
    std::uint64_t number_ = 0;
    bool resting_ = false;
};

/// A span in seconds as ticks, to the nearest; at most 504,911,232 s either way, not a number is 0.
ZN_EXPORT Clock::Ticks ticksFromSeconds(double seconds);
/// Ticks in seconds; infinity for never.
ZN_EXPORT double secondsFromTicks(Clock::Ticks ticks);
/// From now to a moment in seconds since 1970, to the microsecond: a date of our time, held in a
/// double, carries no more.
ZN_EXPORT Clock::Ticks ticksUntilDate(const Clock& clock, double since1970);

}  // namespace zn
