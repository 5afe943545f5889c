#include <bit>
#include <functional>

#include "zarnic/platform/foundation/Value.h"

namespace zn {
namespace {

/// Below this, comparing in order beats computing a hash.
constexpr std::size_t maximumLinearCount = 12;
/// So many bytes a value surely holds itself.
constexpr std::size_t shortLength = 14;
constexpr std::size_t leastCapacity = 4;

/// The whole of a value. Short texts lie inside it, with zeros behind them, so that two of them are
/// equal when these are.
struct Words {
    explicit Words(const Value& value) noexcept { std::memcpy(words, &value, sizeof words); }
    bool operator==(const Words& other) const noexcept {
        return ((words[0] ^ other.words[0]) | (words[1] ^ other.words[1])) == 0;
    }

    std::uint64_t words[2];
};
static_assert(sizeof(Words) == sizeof(Value));

std::size_t findShort(const std::vector<Value>& keys, std::string_view key) noexcept {
    const Value wanted(key);
    const Words words(wanted);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (Words(keys[i]) == words)
            return i;
    }
    return KeyTable::notFound;
}

std::uint32_t hashOf(std::string_view key) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>{}(key));
}

}  // namespace

/// Keys in their order and, when there are many, an open-addressing index with linear probing that
/// is at most half full.
struct KeyTable::Storage final : detail::Counted {
    struct Slot {
        std::uint32_t place = 0;  ///< Index of the key plus one; 0 is an empty slot.
        std::uint32_t hash = 0;
    };

    Storage() = default;
    Storage(const Storage& other) : Counted(), keys(other.keys), slots(other.slots) {}
    Storage& operator=(const Storage&) = delete;

    std::size_t find(std::string_view key) const noexcept;
    void append(std::string_view key);
    void index(std::uint32_t place, std::uint32_t hash);
    void rebuildIndex();

    std::vector<Value> keys;
    std::vector<Slot> slots;
};

std::size_t KeyTable::Storage::find(std::string_view key) const noexcept {
    if (slots.empty()) {
        if (key.size() <= shortLength)
            return findShort(keys, key);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            if (keys[i].string() == key)
                return i;
        }
        return notFound;
    }
    const std::uint32_t hash = hashOf(key);
    const std::size_t mask = slots.size() - 1;
    for (std::size_t i = hash & mask; slots[i].place != 0; i = (i + 1) & mask) {
        if (slots[i].hash == hash && keys[slots[i].place - 1].string() == key)
            return slots[i].place - 1;
    }
    return notFound;
}

void KeyTable::Storage::append(std::string_view key) {
    if (keys.empty())
        keys.reserve(leastCapacity);
    keys.emplace_back(key);
    if (keys.size() <= maximumLinearCount)
        return;
    if (keys.size() * 2 > slots.size())
        rebuildIndex();
    else
        index(static_cast<std::uint32_t>(keys.size()), hashOf(key));
}

void KeyTable::Storage::index(std::uint32_t place, std::uint32_t hash) {
    const std::size_t mask = slots.size() - 1;
    std::size_t i = hash & mask;
    while (slots[i].place != 0)
        i = (i + 1) & mask;
    slots[i] = {place, hash};
}

void KeyTable::Storage::rebuildIndex() {
    slots.assign(std::bit_ceil(keys.size() * 4), Slot{});
    for (std::size_t i = 0; i < keys.size(); ++i)
        index(static_cast<std::uint32_t>(i + 1), hashOf(keys[i].string()));
}

KeyTable::KeyTable(std::initializer_list<std::string_view> keys) {
    for (const auto key : keys)
        add(key);
}

KeyTable::KeyTable(const KeyTable& other) noexcept : storage_(other.storage_) {
    if (storage_ != nullptr)
        storage_->retain();
}

KeyTable& KeyTable::operator=(KeyTable other) noexcept {
    std::swap(storage_, other.storage_);
    return *this;
}

KeyTable::~KeyTable() {
    if (storage_ != nullptr && storage_->release())
        delete storage_;
}

std::size_t KeyTable::count() const noexcept {
    return storage_ == nullptr ? 0 : storage_->keys.size();
}

std::size_t KeyTable::find(std::string_view key) const noexcept {
    return storage_ == nullptr ? notFound : storage_->find(key);
}

std::size_t KeyTable::add(std::string_view key) {
    const std::size_t found = find(key);
    if (found != notFound)
        return found;
    own().append(key);
    return count() - 1;
}

std::string_view KeyTable::operator[](std::size_t index) const noexcept {
    return storage_->keys[index].string();
}

KeyTable::Storage& KeyTable::own() {
    if (storage_ == nullptr)
        storage_ = new Storage;
    else if (!storage_->unique())
        *this = [this] {
            KeyTable copy;
            copy.storage_ = new Storage(*storage_);
            return copy;
        }();
    return *storage_;
}

}  // namespace zn
