#pragma once

#include <atomic>
#include <compare>
#include <condition_variable>
#include <cstdint>
#include <mutex>

#include "zarnic/platform/foundation/Clock.h"

namespace zn {

/// How one blocked thread waits and is woken. Used through `Clock::wait` and `Clock::wake` only;
/// one wait each, unless `reset` comes between two.
class Waiter {
public:
    /// Whether its moment is a reason for a manual clock to go on by itself.
    enum class Purpose { Work, Idling };

    explicit Waiter(Purpose purpose = Purpose::Work) : purpose_(purpose) {}
    virtual ~Waiter() = default;
    Waiter(const Waiter&) = delete;
    Waiter& operator=(const Waiter&) = delete;

    /// Blocks until `unblock` (true) or until the moment of the machine's own clock (false). May
    /// also return true by itself, for instance when a descriptor is ready.
    virtual bool block(Clock::Ticks until) = 0;
    /// Lets the present or the next `block` return. False when its moment came first.
    virtual bool unblock() = 0;

    void reset() { outcome_ = Outcome::Pending; }

private:
    friend class ManualClock;
    enum class Outcome { Pending, Woken, TimedOut };
    /// In the order in which a manual clock ends waits: those of one moment by the threads'
    /// numbers.
    struct Deadline {
        Clock::Ticks moment = Clock::never;
        std::uint64_t threadNumber = 0;
        std::uint64_t order = 0;
        auto operator<=>(const Deadline&) const = default;
    };

    const Purpose purpose_;
    // The manual clock's notes, under its lock (but for `reset`).
    std::atomic<Outcome> outcome_ = Outcome::Pending;
    bool parked_ = false;
    Deadline deadline_;
    ClockParticipant* participant_ = nullptr;
};

/// Waits on nothing but its wake-up.
class ThreadWaiter final : public Waiter {
public:
    using Waiter::Waiter;
    bool block(Clock::Ticks until) override;
    bool unblock() override;

private:
    enum class State { Blocked, Unblocked, Expired };
    std::mutex mutex_;
    std::condition_variable changed_;
    State state_ = State::Blocked;
};

}  // namespace zn
