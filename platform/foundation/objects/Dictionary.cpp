#include <algorithm>

#include "platform/foundation/objects/ValueBlocks.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {

Dictionary::Storage* Dictionary::Storage::create(Mutability form, std::size_t capacity,
                                                 ValuePool* pool) {
    return ValuePool::create<Storage>(pool, capacity * sizeof(Value), form, capacity);
}

Dictionary::Storage* Dictionary::Storage::copyOf(const Storage& original, Mutability form) {
    auto* copy = create(form, original.count);
    copy->appendCopies(original.all());
    copy->keys = original.keys;
    copy->present = original.present;
    return copy;
}

void Dictionary::Storage::add(std::string_view key, Value value) {
    if (count == capacity)
        reserve(std::max<std::size_t>(4, capacity * 2));
    keys.add(key);
    append(std::move(value));
    ++present;
}

void Dictionary::Storage::removeHoles() {
    if (present == count)
        return;
    KeyTable kept;
    for (std::size_t slot = 0; slot < count; ++slot) {
        if (values[slot].absent())
            continue;
        const std::size_t place = kept.add(keys[slot]);
        if (place != slot)
            values[place] = std::move(values[slot]);
    }
    truncate(kept.count());
    keys = std::move(kept);
}

Dictionary::Dictionary() : storage_(Storage::create(Mutability::Mutable)) {}

Dictionary::Dictionary(std::initializer_list<std::pair<std::string_view, Value>> entries)
    : Dictionary(Storage::create(Mutability::Mutable, entries.size())) {
    for (const auto& [key, value] : entries)
        set(key, value);
}

Dictionary::Dictionary(const KeyTable& keys, std::span<Value> values)
    : Dictionary(Storage::create(Mutability::Mutable, values.size())) {
    if (keys.count() != values.size())
        throw NSException(NSInvalidArgumentException, "as many values as keys are needed");
    for (auto& value : values)
        storage_->present += value.absent() ? 0 : 1;
    storage_->appendMoved(values);
    storage_->keys = keys;
}

Dictionary::Dictionary(Storage* storage) noexcept : storage_(storage) {}

Dictionary::Dictionary(const Dictionary& other) noexcept : storage_(other.storage_) {
    storage_->retain();
}

Dictionary& Dictionary::operator=(const Dictionary& other) noexcept {
    Dictionary copy(other);
    std::swap(storage_, copy.storage_);
    return *this;
}

Dictionary::~Dictionary() {
    releaseContainer(storage_);
}

std::size_t Dictionary::count() const noexcept {
    return storage_->present;
}

const Value& Dictionary::operator[](std::string_view key) const noexcept {
    static const Value nothing;
    const std::size_t slot = storage_->keys.find(key);
    return slot == KeyTable::notFound ? nothing : storage_->values[slot];
}

Dictionary::Entry Dictionary::entry(std::size_t index) const {
    if (index >= count())
        throw NSException(NSRangeException, "index " + std::to_string(index) +
                                                " is beyond a dictionary of " +
                                                std::to_string(count()));
    if (count() == storage_->count)
        return {storage_->keys[index], storage_->values[index]};
    auto found = begin();
    std::advance(found, static_cast<std::ptrdiff_t>(index));
    return *found;
}

Dictionary::Iterator Dictionary::begin() const noexcept {
    return {storage_, 0};
}

Dictionary::Iterator Dictionary::end() const noexcept {
    return {storage_, storage_->count};
}

std::vector<std::string> Dictionary::allKeys() const {
    std::vector<std::string> keys;
    keys.reserve(count());
    for (const auto& [key, value] : *this)
        keys.emplace_back(key);
    return keys;
}

void Dictionary::set(std::string_view key, Value value) {
    requirePresent(value);
    auto& storage = mutableStorage();
    const std::size_t slot = storage.keys.find(key);
    if (slot == KeyTable::notFound) {
        storage.add(key, std::move(value));
    } else if (!storage.values[slot].absent()) {
        // The old value dies with the argument, when the dictionary is whole again.
        std::swap(storage.values[slot], value);
    } else {
        // The key may be a view into the table that goes.
        const std::string newKey(key);
        storage.removeHoles();
        storage.add(newKey, std::move(value));
    }
}

void Dictionary::remove(std::string_view key) {
    auto& storage = mutableStorage();
    const std::size_t slot = storage.keys.find(key);
    if (slot == KeyTable::notFound || storage.values[slot].absent())
        return;
    const Value removed = std::move(storage.values[slot]);
    --storage.present;
    // Seldom enough that removing all the keys one by one stays linear.
    if (storage.present * 2 <= storage.count)
        storage.removeHoles();
}

void Dictionary::removeAll() {
    auto& storage = mutableStorage();
    const auto removed = storage.takeAll();
    storage.keys = {};
    storage.present = 0;
}

bool Dictionary::isMutable() const noexcept {
    return storage_->mutability == Mutability::Mutable;
}

bool Dictionary::identical(const Dictionary& other) const noexcept {
    return storage_ == other.storage_;
}

Dictionary Dictionary::copy() const {
    return isMutable() ? Dictionary(Storage::copyOf(*storage_, Mutability::Immutable)) : *this;
}

Dictionary Dictionary::mutableCopy() const {
    return Dictionary(Storage::copyOf(*storage_, Mutability::Mutable));
}

Dictionary::Storage& Dictionary::mutableStorage() const {
    requireMutable(*storage_);
    return *storage_;
}

Dictionary::Iterator::Iterator(const Storage* storage, std::size_t slot) noexcept
    : storage_(storage), slot_(slot) {
    skipHoles();
}

Dictionary::Entry Dictionary::Iterator::operator*() const noexcept {
    return {storage_->keys[slot_], storage_->values[slot_]};
}

Dictionary::Iterator& Dictionary::Iterator::operator++() noexcept {
    ++slot_;
    skipHoles();
    return *this;
}

void Dictionary::Iterator::skipHoles() noexcept {
    while (slot_ < storage_->count && storage_->values[slot_].absent())
        ++slot_;
}

}  // namespace zn
