#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <vector>

#include "zarnic/platform/foundation/Clock.h"

namespace zn {

class ThreadWaiter;

/// An elastic pool: a block gets an idle thread, else a new one while there are fewer than the
/// limit, else the first to become free. Threads that stay idle end. Never destroyed, since its
/// threads outlive the main function.
class GlobalPool {
public:
    using Block = std::function<void()>;

    explicit GlobalPool(std::size_t threadLimit, double idleSeconds);
    static GlobalPool& shared();

    void submit(Block block);
    std::size_t threadCount() const;

private:
    bool wakeIdleThread();
    void work();
    void runQueue(std::unique_lock<std::mutex>& lock);
    bool waitIdle(std::unique_lock<std::mutex>& lock);

    const std::size_t threadLimit_;
    const Clock::Ticks idleTicks_;
    mutable std::mutex mutex_;
    std::deque<Block> queue_;
    /// The one that became idle last is woken first, so that the others can end.
    std::vector<ThreadWaiter*> idle_;
    std::size_t threads_ = 0;
    std::size_t started_ = 0;
};

}  // namespace zn
