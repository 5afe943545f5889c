#include <algorithm>

#include "platform/foundation/objects/ValueBlocks.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

[[noreturn]] void throwRange(std::size_t index, std::size_t count) {
    throw NSException(NSRangeException, "index " + std::to_string(index) +
                                            " is beyond an array of " + std::to_string(count));
}

}  // namespace

Array::Storage* Array::Storage::create(Mutability form, std::size_t capacity, ValuePool* pool) {
    return ValuePool::create<Storage>(pool, capacity * sizeof(Value), form, capacity);
}

Array::Storage* Array::Storage::copyOf(const Storage& original, Mutability form) {
    auto* copy = create(form, original.count);
    copy->appendCopies(original.all());
    return copy;
}

Array::Array() : storage_(Storage::create(Mutability::Mutable)) {}

Array::Array(std::initializer_list<Value> items)
    : Array(Storage::create(Mutability::Mutable, items.size())) {
    std::ranges::for_each(items, requirePresent);
    storage_->appendCopies(items);
}

Array::Array(Storage* storage) noexcept : storage_(storage) {}

Array::Array(const Array& other) noexcept : storage_(other.storage_) {
    storage_->retain();
}

Array& Array::operator=(const Array& other) noexcept {
    Array copy(other);
    std::swap(storage_, copy.storage_);
    return *this;
}

Array::~Array() {
    releaseContainer(storage_);
}

std::size_t Array::count() const noexcept {
    return storage_->count;
}

const Value& Array::operator[](std::size_t index) const {
    const auto items = storage_->all();
    if (index >= items.size())
        throwRange(index, items.size());
    return items[index];
}

const Value* Array::begin() const noexcept {
    return storage_->values;
}

const Value* Array::end() const noexcept {
    return storage_->values + storage_->count;
}

void Array::add(Value item) {
    requirePresent(item);
    mutableStorage().append(std::move(item));
}

void Array::insert(std::size_t index, Value item) {
    requirePresent(item);
    auto& storage = mutableStorage();
    if (index > storage.count)
        throwRange(index, storage.count);
    storage.append(std::move(item));
    const auto rest = storage.all().subspan(index);
    std::rotate(rest.begin(), rest.end() - 1, rest.end());
}

void Array::replace(std::size_t index, Value item) {
    requirePresent(item);
    const auto items = mutableStorage().all();
    if (index >= items.size())
        throwRange(index, items.size());
    // The old item dies with the argument, when the array is whole again.
    std::swap(items[index], item);
}

void Array::remove(std::size_t index) {
    auto& storage = mutableStorage();
    if (index >= storage.count)
        throwRange(index, storage.count);
    const auto rest = storage.all().subspan(index);
    // The item dies at the end, when the array is whole again.
    const Value removed = std::move(rest.front());
    std::move(rest.begin() + 1, rest.end(), rest.begin());
    storage.truncate(storage.count - 1);
}

void Array::removeAll() {
    const auto removed = mutableStorage().takeAll();
}

void Array::reserve(std::size_t count) {
    mutableStorage().reserve(count);
}

bool Array::isMutable() const noexcept {
    return storage_->mutability == Mutability::Mutable;
}

bool Array::identical(const Array& other) const noexcept {
    return storage_ == other.storage_;
}

Array Array::copy() const {
    return isMutable() ? Array(Storage::copyOf(*storage_, Mutability::Immutable)) : *this;
}

Array Array::mutableCopy() const {
    return Array(Storage::copyOf(*storage_, Mutability::Mutable));
}

Array::Storage& Array::mutableStorage() const {
    requireMutable(*storage_);
    return *storage_;
}

}  // namespace zn
