#pragma once

#include <atomic>
#include <concepts>
#include <deque>
#include <utility>

#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

/// A list of objects that is an object itself and so has a lock. Hold that (`ObjectLock`) where
/// several threads use the list; only the count may be asked for without it.
template <std::derived_from<NSObject> T>
class ZN_EXPORT ObjectList final : public NSObject {
public:
    std::size_t count() const noexcept { return count_.load(std::memory_order_acquire); }
    bool empty() const noexcept { return count() == 0; }

    /// Throws `NSRangeException` for an index that is not there.
    const Ref<T>& objectAtIndex(std::size_t index) const {
        if (index >= objects_.size())
            throw NSException(NSRangeException, "the list has no object at this index");
        return objects_[index];
    }
    auto begin() const { return objects_.begin(); }
    auto end() const { return objects_.end(); }

    /// Throws `NSInvalidArgumentException` for null.
    void addObject(Ref<T> object) {
        if (!object)
            throw NSException(NSInvalidArgumentException, "a list holds no null object");
        objects_.push_back(std::move(object));
        publishCount();
    }
    /// Removes the first object and gives it; null when there is none.
    Ref<T> takeFirst() {
        if (objects_.empty())
            return nullptr;
        Ref<T> first = std::move(objects_.front());
        objects_.pop_front();
        publishCount();
        return first;
    }
    void removeAllObjects() {
        // What dies may come back here.
        const auto former = std::exchange(objects_, {});
        publishCount();
    }

private:
    void publishCount() { count_.store(objects_.size(), std::memory_order_release); }

    std::deque<Ref<T>> objects_;
    std::atomic<std::size_t> count_ = 0;
};

}  // namespace zn
