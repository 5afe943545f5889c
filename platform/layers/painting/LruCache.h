#pragma once

#include <cstddef>
#include <list>
#include <map>
#include <utility>

namespace zn {

/// Values by key within a budget of bytes; those least lately asked for go first. The newest one
/// stays even when it alone is over the budget.
template <class Key, class Value>
class LruCache {
public:
    explicit LruCache(std::size_t budget) : budget_(budget) {}

    /// Null when it is not there. Valid until the next `put`.
    Value* find(const Key& key) {
        auto place = places_.find(key);
        if (place == places_.end())
            return nullptr;
        items_.splice(items_.begin(), items_, place->second);
        return &place->second->value;
    }

    Value& put(const Key& key, Value value, std::size_t bytes) {
        remove(key);
        items_.push_front({key, std::move(value), bytes});
        places_[key] = items_.begin();
        bytes_ += bytes;
        while (bytes_ > budget_ && items_.size() > 1)
            remove(Key(items_.back().key));
        return items_.front().value;
    }

    void remove(const Key& key) {
        auto place = places_.find(key);
        if (place == places_.end())
            return;
        bytes_ -= place->second->bytes;
        items_.erase(place->second);
        places_.erase(place);
    }

    std::size_t byteCount() const { return bytes_; }
    std::size_t count() const { return items_.size(); }

private:
    struct Item {
        Key key;
        Value value;
        std::size_t bytes;
    };
    std::list<Item> items_;
    std::map<Key, typename std::list<Item>::iterator> places_;
    std::size_t budget_;
    std::size_t bytes_ = 0;
};

}  // namespace zn
