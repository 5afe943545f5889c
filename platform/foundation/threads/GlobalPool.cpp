#include "platform/foundation/threads/GlobalPool.h"

#include <string>
#include <system_error>

#include "platform/foundation/threads/ThreadEntry.h"
#include "platform/foundation/time/Waiter.h"

namespace zn {

GlobalPool::GlobalPool(std::size_t threadLimit, double idleSeconds)
    : threadLimit_(threadLimit), idleTicks_(ticksFromSeconds(idleSeconds)) {}

GlobalPool& GlobalPool::shared() {
    static auto& pool = *new GlobalPool(64, 15);
    return pool;
}

void GlobalPool::submit(Block block) {
    std::unique_lock lock(mutex_);
    queue_.push_back(std::move(block));
    if (wakeIdleThread() || threads_ == threadLimit_)
        return;
    try {
        startThread("global queue " + std::to_string(++started_), [this] { work(); });
        ++threads_;
    } catch (const std::system_error&) {
        // Out of threads: the others will come to it. With no other it would never run.
        if (threads_ == 0)
            throw;
    }
}

std::size_t GlobalPool::threadCount() const {
    std::lock_guard guard(mutex_);
    return threads_;
}

bool GlobalPool::wakeIdleThread() {
    while (!idle_.empty()) {
        ThreadWaiter& waiter = *idle_.back();
        idle_.pop_back();
        // One whose idle time is just over cannot be woken, but looks at the queue once more.
        if (Clock::shared().wake(waiter))
            return true;
    }
    return false;
}

void GlobalPool::work() {
    std::unique_lock lock(mutex_);
    do
        runQueue(lock);
    while (waitIdle(lock) || !queue_.empty());
    --threads_;
}

void GlobalPool::runQueue(std::unique_lock<std::mutex>& lock) {
    while (!queue_.empty()) {
        Block block = std::move(queue_.front());
        queue_.pop_front();
        lock.unlock();
        block();
        block = nullptr;
        lock.lock();
    }
}

/// Whether it was woken before its idle time was over.
bool GlobalPool::waitIdle(std::unique_lock<std::mutex>& lock) {
    Clock& clock = Clock::shared();
    ThreadWaiter waiter(Waiter::Purpose::Idling);
    idle_.push_back(&waiter);
    lock.unlock();
    const bool woken = clock.wait(waiter, clock.ticks() + idleTicks_);
    lock.lock();
    std::erase(idle_, &waiter);
    return woken;
}

}  // namespace zn
