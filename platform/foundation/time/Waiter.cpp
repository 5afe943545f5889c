#include "platform/foundation/time/Waiter.h"

namespace zn {

bool ThreadWaiter::block(Clock::Ticks until) {
    std::unique_lock lock(mutex_);
    const auto unblocked = [this] { return state_ == State::Unblocked; };
    if (until == Clock::never)
        changed_.wait(lock, unblocked);
    else
        changed_.wait_until(lock, std::chrono::steady_clock::time_point(until), unblocked);
    const bool woken = unblocked();
    state_ = woken ? State::Blocked : State::Expired;
    return woken;
}

bool ThreadWaiter::unblock() {
    std::lock_guard guard(mutex_);
    if (state_ == State::Expired)
        return false;
    state_ = State::Unblocked;
    changed_.notify_one();
    return true;
}

}  // namespace zn
