#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {

/// What one run loop has to do at moments of the monotonic clock, by mode. Any thread.
class Schedule {
public:
    /// Sorts by moment, then first come, first served.
    struct Key {
        Clock::Ticks due = {};
        std::uint64_t order = 0;
        auto operator<=>(const Key&) const = default;
    };
    /// Owned until it is taken or removed: a timer, or else a handler.
    struct Item {
        Ref<NSTimer> timer;
        std::function<void()> handler;
    };

    Key add(NSRunLoopMode mode, Clock::Ticks due, Item item);
    void remove(NSRunLoopMode mode, const Key& key);

    /// The keys due at `now` while `running` is the mode, in order.
    std::vector<Key> due(NSRunLoopMode running, Clock::Ticks now) const;
    /// Takes an item out, unless it has gone meanwhile.
    std::optional<Item> take(NSRunLoopMode running, const Key& key);
    /// The first moment while `running` is the mode, or never.
    Clock::Ticks next(NSRunLoopMode running) const;

private:
    using Queue = std::map<Key, Item>;

    Queue& queue(NSRunLoopMode mode) { return queues_[static_cast<std::size_t>(mode)]; }
    const Queue& queue(NSRunLoopMode mode) const { return queues_[static_cast<std::size_t>(mode)]; }
    const Queue& common() const { return queue(NSRunLoopMode::Common); }

    mutable std::mutex mutex_;
    std::array<Queue, 3> queues_;
    std::uint64_t lastOrder_ = 0;
};

}  // namespace zn
