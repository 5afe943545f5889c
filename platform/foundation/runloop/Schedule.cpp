#include "platform/foundation/runloop/Schedule.h"

#include <algorithm>

namespace zn {

Schedule::Key Schedule::add(NSRunLoopMode mode, Clock::Ticks due, Item item) {
    std::lock_guard guard(mutex_);
    const Key key{due, ++lastOrder_};
    queue(mode).emplace(key, std::move(item));
    return key;
}

void Schedule::remove(NSRunLoopMode mode, const Key& key) {
    // The item dies after the lock is released: its destructor may come back here.
    Queue::node_type removed;
    std::lock_guard guard(mutex_);
    removed = queue(mode).extract(key);
}

std::vector<Schedule::Key> Schedule::due(NSRunLoopMode running, Clock::Ticks now) const {
    std::vector<Key> keys;
    const auto collect = [&](const Queue& from) {
        for (auto at = from.begin(); at != from.end() && at->first.due <= now; ++at)
            keys.push_back(at->first);
    };
    std::lock_guard guard(mutex_);
    collect(queue(running));
    if (running != NSRunLoopMode::Common)
        collect(common());
    std::ranges::sort(keys);
    return keys;
}

std::optional<Schedule::Item> Schedule::take(NSRunLoopMode running, const Key& key) {
    std::lock_guard guard(mutex_);
    for (Queue* from : {&queue(running), &queue(NSRunLoopMode::Common)}) {
        const auto found = from->find(key);
        if (found != from->end()) {
            std::optional<Item> item(std::move(found->second));
            from->erase(found);
            return item;
        }
    }
    return std::nullopt;
}

Clock::Ticks Schedule::next(NSRunLoopMode running) const {
    std::lock_guard guard(mutex_);
    Clock::Ticks first = Clock::never;
    for (const Queue* from : {&queue(running), &common()})
        if (!from->empty())
            first = std::min(first, from->begin()->first.due);
    return first;
}

}  // namespace zn
