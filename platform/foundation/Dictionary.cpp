#include <algorithm>
#include <memory>
#include <new>

#include "platform/foundation/ValueBlocks.h"
#include "zarnic/platform/NSException.h"

namespace zn {

Dictionary::Storage* Dictionary::Storage::create(Mutability form, std::size_t capacity) {
    void* memory = ::operator new(sizeof(Storage) + capacity * sizeof(Value));
    return ::new (memory) Storage(form, capacity);
}

Dictionary::Storage* Dictionary::Storage::copyOf(const Storage& original, Mutability form) {
    auto* copy = create(form, original.slots());
    std::uninitialized_copy_n(original.values, original.slots(), copy->values);
    copy->keys = original.keys;
    copy->present = original.present;
    return copy;
}

Dictionary::Storage::~Storage() {
    freeValues();
}

void Dictionary::Storage::freeValues() noexcept {
    std::destroy_n(values, slots());
    if (values != room())
        ::operator delete(values);
}

void Dictionary::Storage::grow() {
    const std::size_t wanted = std::max<std::size_t>(4, capacity * 2);
    auto* larger = static_cast<Value*>(::operator new(wanted * sizeof(Value)));
    std::uninitialized_move_n(values, slots(), larger);
    freeValues();
    values = larger;
    capacity = wanted;
}

void Dictionary::Storage::append(std::string_view key, Value value) {
    const std::size_t slot = slots();
    if (slot == capacity)
        grow();
    keys.add(key);
    ::new (values + slot) Value(std::move(value));
    ++present;
}

void Dictionary::Storage::removeHoles() {
    if (present == slots())
        return;
    KeyTable kept;
    for (std::size_t slot = 0; slot < slots(); ++slot) {
        if (values[slot].absent())
            continue;
        const std::size_t place = kept.add(keys[slot]);
        if (place != slot)
            values[place] = std::move(values[slot]);
    }
    std::destroy_n(values + kept.count(), slots() - kept.count());
    keys = std::move(kept);
}

Dictionary::Dictionary() : storage_(Storage::create(Mutability::Mutable, 0)) {}

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
    std::uninitialized_move_n(values.begin(), values.size(), storage_->values);
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
    if (count() == storage_->slots())
        return {storage_->keys[index], storage_->values[index]};
    auto found = begin();
    std::advance(found, static_cast<std::ptrdiff_t>(index));
    return *found;
}

Dictionary::Iterator Dictionary::begin() const noexcept {
    return {storage_, 0};
}

Dictionary::Iterator Dictionary::end() const noexcept {
    return {storage_, storage_->slots()};
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
        storage.append(key, std::move(value));
    } else if (!storage.values[slot].absent()) {
        // The old value dies with the argument, when the dictionary is whole again.
        std::swap(storage.values[slot], value);
    } else {
        // The key may be a view into the table that goes.
        const std::string newKey(key);
        storage.removeHoles();
        storage.append(newKey, std::move(value));
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
    if (storage.present * 2 <= storage.slots())
        storage.removeHoles();
}

void Dictionary::removeAll() {
    auto& storage = mutableStorage();
    const std::vector<Value> removed(std::make_move_iterator(storage.values),
                                     std::make_move_iterator(storage.values + storage.slots()));
    std::destroy_n(storage.values, storage.slots());
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
    while (slot_ < storage_->slots() && storage_->values[slot_].absent())
        ++slot_;
}

}  // namespace zn
