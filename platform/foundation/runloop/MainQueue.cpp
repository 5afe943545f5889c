#include "platform/foundation/runloop/MainQueue.h"

#include <iterator>

namespace zn {

MainQueue& MainQueue::shared() {
    static auto& queue = *new MainQueue;
    return queue;
}

void MainQueue::add(Block block) {
    std::lock_guard guard(mutex_);
    incoming_.push_back(std::move(block));
}

bool MainQueue::run() {
    takeIncoming();
    const std::uint64_t end = takenEver_;
    const bool any = runEver_ < end;
    while (runEver_ < end) {
        const Block block = std::move(taken_[next_]);
        ++next_;
        ++runEver_;
        block();
    }
    return any;
}

/// One swap under the lock in the usual case; the two vectors keep their memory.
void MainQueue::takeIncoming() {
    if (next_ == taken_.size()) {
        taken_.clear();
        next_ = 0;
    }
    std::lock_guard guard(mutex_);
    takenEver_ += incoming_.size();
    if (taken_.empty()) {
        taken_.swap(incoming_);
        return;
    }
    taken_.insert(taken_.end(), std::make_move_iterator(incoming_.begin()),
                  std::make_move_iterator(incoming_.end()));
    incoming_.clear();
}

}  // namespace zn
