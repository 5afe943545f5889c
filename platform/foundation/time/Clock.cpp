#include "zarnic/platform/foundation/Clock.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <mutex>

#include "platform/foundation/time/Waiter.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

struct SharedClock {
    std::mutex mutex;
    std::shared_ptr<Clock> clock;
    bool used = false;
};

/// Never destroyed: threads may still ask for the time while the program ends.
SharedClock& sharedClock() {
    static auto& shared = *new SharedClock;
    return shared;
}

Clock& takeSharedClock() {
    auto& shared = sharedClock();
    std::lock_guard guard(shared.mutex);
    shared.used = true;
    if (!shared.clock)
        shared.clock = std::make_shared<SystemClock>();
    return *shared.clock;
}

thread_local ClockParticipant* currentParticipant = nullptr;

}  // namespace

Clock::~Clock() = default;

double Clock::monotonic() const {
    return secondsFromTicks(ticks());
}

void Clock::sleep(double seconds) {
    if (!(seconds > 0))
        return;
    ThreadWaiter waiter;
    wait(waiter, ticks() + ticksFromSeconds(seconds));
}

Clock& Clock::shared() {
    static Clock& clock = takeSharedClock();
    return clock;
}

void Clock::setShared(std::shared_ptr<Clock> clock) {
    auto& shared = sharedClock();
    std::lock_guard guard(shared.mutex);
    if (shared.used)
        throw NSException(NSInternalInconsistencyException, "the shared clock is already in use");
    shared.clock = std::move(clock);
}

bool Clock::wait(Waiter& waiter, Ticks until) {
    return waiter.block(until);
}

bool Clock::wake(Waiter& waiter) {
    return waiter.unblock();
}

void Clock::enter(ClockParticipant&) {}

void Clock::leave(ClockParticipant&) {}

double SystemClock::now() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double>(sinceEpoch).count();
}

Clock::Ticks SystemClock::ticks() const {
    return std::chrono::steady_clock::now().time_since_epoch();
}

ClockParticipant::ClockParticipant(std::string name) : name_(std::move(name)) {
    Clock::shared().enter(*this);
}

ClockParticipant::~ClockParticipant() {
    if (currentParticipant == this)
        currentParticipant = nullptr;
    Clock::shared().leave(*this);
}

void ClockParticipant::attach() {
    currentParticipant = this;
}

ClockParticipant* ClockParticipant::current() {
    return currentParticipant;
}

Clock::Ticks ticksFromSeconds(double seconds) {
    constexpr double farthest = 504911232.0;
    if (std::isnan(seconds))
        return Clock::Ticks(0);
    return Clock::Ticks(std::llround(std::clamp(seconds, -farthest, farthest) * 1e9));
}

double secondsFromTicks(Clock::Ticks ticks) {
    if (ticks == Clock::never)
        return std::numeric_limits<double>::infinity();
    return static_cast<double>(ticks.count()) / 1e9;
}

Clock::Ticks ticksUntilDate(const Clock& clock, double since1970) {
    return std::chrono::round<std::chrono::microseconds>(ticksFromSeconds(since1970 - clock.now()));
}

}  // namespace zn
