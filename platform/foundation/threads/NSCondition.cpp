#include "zarnic/platform/foundation/NSCondition.h"

#include <algorithm>
#include <deque>
#include <mutex>

#include "platform/foundation/time/Waiter.h"
#include "zarnic/platform/foundation/NSDate.h"

namespace zn {
namespace {

Clock::Ticks ticksOf(const Ref<NSDate>& limit) {
    const Clock& clock = Clock::shared();
    return limit ? clock.ticks() + ticksUntilDate(clock, limit->timeIntervalSince1970())
                 : Clock::never;
}

}  // namespace

struct NSCondition::State {
    /// Stands in the queue for a scope, with the lock released; has it again afterwards.
    class Place;

    bool wait(Clock::Ticks until, Waiter::Purpose purpose = Waiter::Purpose::Work);
    bool wakeFirst();

    std::mutex lock;
    /// Guards the queue; whoever leaves a wait takes it, so that no waiter dies while it is woken.
    std::mutex queueMutex;
    std::deque<Waiter*> queue;
};

class NSCondition::State::Place {
public:
    Place(State& state, Waiter& waiter) : state_(state), waiter_(waiter) {
        std::lock_guard guard(state_.queueMutex);
        state_.queue.push_back(&waiter_);
        state_.lock.unlock();
    }
    ~Place() {
        {
            std::lock_guard guard(state_.queueMutex);
            std::erase(state_.queue, &waiter_);
        }
        state_.lock.lock();
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

private:
    State& state_;
    Waiter& waiter_;
};

NSCondition::NSCondition() : state_(std::make_unique<State>()) {}

NSCondition::~NSCondition() = default;

void NSCondition::lock() {
    state_->lock.lock();
}

void NSCondition::unlock() {
    state_->lock.unlock();
}

void NSCondition::wait() {
    state_->wait(Clock::never);
}

bool NSCondition::waitUntilDate(const Ref<NSDate>& limit) {
    return state_->wait(ticksOf(limit));
}

bool NSCondition::idleUntilDate(const Ref<NSDate>& limit) {
    return state_->wait(ticksOf(limit), Waiter::Purpose::Idling);
}

void NSCondition::signal() {
    std::lock_guard guard(state_->queueMutex);
    // One whose time is just over has not been woken: the signal is the next one's.
    while (!state_->queue.empty() && !state_->wakeFirst()) {
    }
}

void NSCondition::broadcast() {
    std::lock_guard guard(state_->queueMutex);
    while (!state_->queue.empty())
        state_->wakeFirst();
}

bool NSCondition::State::wait(Clock::Ticks until, Waiter::Purpose purpose) {
    ThreadWaiter waiter(purpose);
    const Place place(*this, waiter);
    return Clock::shared().wait(waiter, until);
}

bool NSCondition::State::wakeFirst() {
    Waiter& waiter = *queue.front();
    queue.pop_front();
    return Clock::shared().wake(waiter);
}

}  // namespace zn
