#include "zarnic/platform/foundation/ManualClock.h"

#include <algorithm>
#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <utility>

#include "platform/foundation/runloop/RunLoopState.h"
#include "platform/foundation/threads/ThreadEntry.h"
#include "platform/foundation/time/Waiter.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {

using Lock = std::unique_lock<std::mutex>;
using Patience = std::chrono::duration<double>;

/// One lock guards everything: whoever wakes a thread marks it busy under the same lock, so that
/// there is no moment in which work is on its way and nobody counts as busy.
struct ManualClock::State {
    using Outcome = Waiter::Outcome;

    bool finish(Waiter& waiter, Outcome outcome);
    void addDeadline(Waiter& waiter, Ticks until);
    void setResting(ClockParticipant* participant, bool resting);
    void awaitRest(Lock& lock, const Waiter& waiter);
    bool blockUntilCalled(Lock& lock, Waiter& waiter);
    Ticks nextDeadline() const;
    bool hasWorkAhead() const;
    void moveToNextDeadline();
    std::string busyNames() const;

    mutable std::mutex mutex;
    /// Everyone has come to rest, or the main thread has been woken.
    std::condition_variable settled;
    Ticks time{0};
    double wallAtZero = 0;
    std::map<Waiter::Deadline, Waiter*> deadlines;
    std::uint64_t lastOrder = 0;
    std::set<ClockParticipant*> participants;
    std::uint64_t lastNumber = 0;
    std::size_t busy = 0;
    /// The main thread's, while it really waits because nothing is due.
    Waiter* stranded = nullptr;
    bool strandedCalled = false;
    Patience patience{30};
};

ManualClock::ManualClock(double now) : state_(std::make_unique<State>()) {
    state_->wallAtZero = now;
}

ManualClock::~ManualClock() = default;

double ManualClock::now() const {
    std::lock_guard guard(state_->mutex);
    return state_->wallAtZero + secondsFromTicks(state_->time);
}

Clock::Ticks ManualClock::ticks() const {
    std::lock_guard guard(state_->mutex);
    return state_->time;
}

void ManualClock::setNow(double since1970) {
    std::lock_guard guard(state_->mutex);
    state_->wallAtZero = since1970 - secondsFromTicks(state_->time);
}

void ManualClock::setPatience(double seconds) {
    std::lock_guard guard(state_->mutex);
    state_->patience = Patience(seconds);
}

void ManualClock::advance(double seconds) {
    if (!isMainThread() || this != &Clock::shared())
        throw NSException(NSInternalInconsistencyException,
                          "only the main thread advances time, and only the shared clock's");
    auto& loop = *NSRunLoop::mainRunLoop()->state_;
    const Ticks end = ticks() + std::max(ticksFromSeconds(seconds), Ticks(0));
    Ticks moment = ticks();
    auto sinceMoment = std::chrono::steady_clock::now();
    do {
        while (loop.pass()) {
            const auto real = std::chrono::steady_clock::now();
            if (std::exchange(moment, ticks()) != moment)
                sinceMoment = real;
            if (real - sinceMoment > state_->patience)
                throw NSException(NSInternalInconsistencyException,
                                  "the main loop always has something to do and time stands still");
        }
    } while (loop.sleepUntil(end) || ticks() < end);
}

void ManualClock::settle() {
    advance(0);
}

bool ManualClock::wait(Waiter& waiter, Ticks until) {
    return isMainThread() ? drive(waiter, until) : park(waiter, until);
}

bool ManualClock::wake(Waiter& waiter) {
    std::lock_guard guard(state_->mutex);
    return state_->finish(waiter, State::Outcome::Woken);
}

void ManualClock::enter(ClockParticipant& participant) {
    std::lock_guard guard(state_->mutex);
    participant.number_ = ++state_->lastNumber;
    state_->participants.insert(&participant);
    ++state_->busy;
}

void ManualClock::leave(ClockParticipant& participant) {
    std::lock_guard guard(state_->mutex);
    state_->setResting(&participant, true);
    state_->participants.erase(&participant);
}

/// The main thread's wait: lets everyone come to rest, then moves time to the next deadline, until
/// its own.
bool ManualClock::drive(Waiter& waiter, Ticks until) {
    Lock lock(state_->mutex);
    for (;;) {
        state_->awaitRest(lock, waiter);
        if (waiter.outcome_ == State::Outcome::Woken)
            return true;
        const Ticks next = state_->nextDeadline();
        const bool hasReason = until != never || state_->hasWorkAhead();
        if (next != never && next <= until && hasReason) {
            state_->moveToNextDeadline();
        } else if (until != never) {
            state_->time = std::max(state_->time, until);
            return !state_->finish(waiter, State::Outcome::TimedOut);
        } else if (state_->blockUntilCalled(lock, waiter)) {
            return true;
        }
    }
}

/// Any other thread's wait: rests until it is woken or time comes to its deadline.
bool ManualClock::park(Waiter& waiter, Ticks until) {
    Lock lock(state_->mutex);
    if (until <= state_->time)
        state_->finish(waiter, State::Outcome::TimedOut);
    if (waiter.outcome_ == State::Outcome::Pending) {
        waiter.parked_ = true;
        waiter.participant_ = ClockParticipant::current();
        state_->addDeadline(waiter, until);
        state_->setResting(waiter.participant_, true);
        lock.unlock();
        waiter.block(never);
        lock.lock();
        // Nobody woke it when a descriptor did.
        state_->finish(waiter, State::Outcome::Woken);
    }
    return waiter.outcome_ == State::Outcome::Woken;
}

/// Decides a wait, once. A parked thread is busy again from here on, not from when it runs.
bool ManualClock::State::finish(Waiter& waiter, Outcome outcome) {
    if (waiter.outcome_ != Outcome::Pending)
        return false;
    waiter.outcome_ = outcome;
    if (waiter.parked_) {
        waiter.parked_ = false;
        deadlines.erase(std::exchange(waiter.deadline_, {}));
        setResting(waiter.participant_, false);
        waiter.unblock();
    }
    settled.notify_all();
    return true;
}

void ManualClock::State::addDeadline(Waiter& waiter, Ticks until) {
    if (until == never)
        return;
    const auto* participant = waiter.participant_;
    const auto number = participant != nullptr ? participant->number_ : ~std::uint64_t(0);
    waiter.deadline_ = {until, number, ++lastOrder};
    deadlines.emplace(waiter.deadline_, &waiter);
    if (stranded != nullptr) {
        strandedCalled = true;
        stranded->unblock();
    }
}

void ManualClock::State::setResting(ClockParticipant* participant, bool resting) {
    if (participant == nullptr || participant->resting_ == resting)
        return;
    participant->resting_ = resting;
    busy += resting ? std::size_t(0) - 1 : 1;
    if (busy == 0)
        settled.notify_all();
}

void ManualClock::State::awaitRest(Lock& lock, const Waiter& waiter) {
    const auto ready = [&] { return busy == 0 || waiter.outcome_ == Outcome::Woken; };
    if (!settled.wait_for(lock, patience, ready))
        throw NSException(NSInternalInconsistencyException,
                          "time cannot go on, these threads do not come to rest: " + busyNames());
}

/// The main thread's wait when no deadline is left; whether it is over.
bool ManualClock::State::blockUntilCalled(Lock& lock, Waiter& waiter) {
    stranded = &waiter;
    strandedCalled = false;
    waiter.parked_ = true;
    waiter.participant_ = nullptr;
    lock.unlock();
    waiter.block(never);
    lock.lock();
    stranded = nullptr;
    // Woken, or a new deadline came up, or else a descriptor is ready.
    const bool over = waiter.outcome_ == Outcome::Woken || !strandedCalled;
    waiter.parked_ = false;
    if (over)
        waiter.outcome_ = Outcome::Woken;
    return over;
}

Clock::Ticks ManualClock::State::nextDeadline() const {
    return deadlines.empty() ? never : deadlines.begin()->first.moment;
}

bool ManualClock::State::hasWorkAhead() const {
    return std::ranges::any_of(deadlines, [](const auto& entry) {
        return entry.second->purpose_ == Waiter::Purpose::Work;
    });
}

/// Ends the first wait alone: the next of the same moment has its turn when this one rests again.
void ManualClock::State::moveToNextDeadline() {
    const auto [deadline, waiter] = *deadlines.begin();
    time = std::max(time, deadline.moment);
    finish(*waiter, Outcome::TimedOut);
}

std::string ManualClock::State::busyNames() const {
    std::string names;
    for (const auto* participant : participants)
        if (!participant->resting_)
            names += (names.empty() ? "" : ", ") + participant->name();
    return names;
}

}  // namespace zn
