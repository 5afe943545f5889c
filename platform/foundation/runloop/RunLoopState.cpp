#include "platform/foundation/runloop/RunLoopState.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/foundation/runloop/MainQueue.h"
#include "platform/foundation/runloop/TimerState.h"

namespace zn {

LoopWaiter::LoopWaiter() : event_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (event_ < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
    setDescriptors({});
}

LoopWaiter::~LoopWaiter() {
    close(event_);
}

void LoopWaiter::setDescriptors(std::vector<pollfd> descriptors) {
    descriptors_ = std::move(descriptors);
    descriptors_.push_back({event_, POLLIN, 0});
}

bool LoopWaiter::block(Clock::Ticks until) {
    const auto left = until - SystemClock().ticks();
    const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
    const timespec span{seconds.count(), (left - seconds).count()};
    const timespec none{0, 0};
    const timespec* limit = until == Clock::never ? nullptr : left.count() > 0 ? &span : &none;
    const int ready = ppoll(descriptors_.data(), descriptors_.size(), limit, nullptr);
    eventfd_t calls = 0;
    if (ready > 0 && descriptors_.back().revents != 0)
        eventfd_read(event_, &calls);
    return ready != 0;
}

bool LoopWaiter::unblock() {
    eventfd_write(event_, 1);
    return true;
}

bool NSRunLoop::State::pass() {
    // From here on a wake-up means another pass: what came before it is found by this one.
    phase_.exchange(Phase::Awake);
    bool any = fireDue();
    if (isMain)
        any = MainQueue::shared().run() || any;
    any = handleDescriptors() || any;
    callBeforeWaiting();
    return any;
}

bool NSRunLoop::State::sleepUntil(Clock::Ticks until) {
    Clock& clock = Clock::shared();
    waiter_.reset();
    auto awake = Phase::Awake;
    if (!phase_.compare_exchange_strong(awake, Phase::Asleep))
        return true;
    // Only now, so that whoever adds something either is seen here or sees the sleeper.
    waiter_.setDescriptors(wantedOf(descriptorEntries()));
    const bool woken = clock.wait(waiter_, std::min(until, schedule.next(mode)));
    phase_.exchange(Phase::Awake);
    return woken || schedule.next(mode) <= clock.ticks();
}

void NSRunLoop::State::runUntil(Clock::Ticks until) {
    const Clock& clock = Clock::shared();
    bool last = false;
    do {
        last = clock.ticks() >= until;
        if (!pass() && !stopped && !last)
            sleepUntil(until);
    } while (!stopped.exchange(false) && !last);
}

void NSRunLoop::State::wake() {
    if (phase_.load() != Phase::Called && phase_.exchange(Phase::Called) == Phase::Asleep)
        Clock::shared().wake(waiter_);
}

void NSRunLoop::State::wakeIfAsleep() {
    if (phase_.load() == Phase::Asleep)
        wake();
}

// What is removed dies after the lock is released: its destructor may come back here.

void NSRunLoop::State::removeDescriptor(std::uint64_t id) {
    decltype(descriptors)::node_type removed;
    std::lock_guard guard(mutex);
    removed = descriptors.extract(id);
}

void NSRunLoop::State::removeBeforeWaiting(const HandlerKey& key) {
    decltype(beforeWaiting)::node_type removed;
    std::lock_guard guard(mutex);
    removed = beforeWaiting.extract(key);
}

bool NSRunLoop::State::fireDue() {
    bool any = false;
    const NSRunLoopMode running = mode;
    for (const auto& key : schedule.due(running, Clock::shared().ticks())) {
        const auto item = schedule.take(running, key);
        if (!item)
            continue;
        any = true;
        if (item->timer)
            item->timer->state_->fireScheduled(key.due);
        else
            item->handler();
    }
    return any;
}

bool NSRunLoop::State::handleDescriptors() {
    const auto entries = descriptorEntries();
    if (entries.empty())
        return false;
    std::vector<pollfd> wanted = wantedOf(entries);
    if (poll(wanted.data(), wanted.size(), 0) <= 0)
        return false;
    bool any = false;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto& [id, descriptor] = entries[i];
        std::unique_lock lock(mutex);
        const bool registered = descriptors.contains(id);
        lock.unlock();
        if (wanted[i].revents != 0 && registered) {
            any = true;
            descriptor->handler(wanted[i].revents);
        }
    }
    return any;
}

void NSRunLoop::State::callBeforeWaiting() {
    std::unique_lock lock(mutex);
    auto at = beforeWaiting.begin();
    while (at != beforeWaiting.end()) {
        const HandlerKey key = at->first;
        const auto handler = at->second;
        lock.unlock();
        (*handler)();
        lock.lock();
        at = beforeWaiting.upper_bound(key);
    }
}

std::vector<pollfd> NSRunLoop::State::wantedOf(const std::vector<DescriptorEntry>& entries) {
    std::vector<pollfd> wanted;
    wanted.reserve(entries.size());
    for (const auto& [id, descriptor] : entries)
        wanted.push_back(descriptor->wanted);
    return wanted;
}

std::vector<NSRunLoop::State::DescriptorEntry> NSRunLoop::State::descriptorEntries() {
    std::lock_guard guard(mutex);
    return {descriptors.begin(), descriptors.end()};
}

}  // namespace zn
