#include <algorithm>

#include "platform/foundation/ValueBlocks.h"
#include "zarnic/platform/NSException.h"

namespace zn {
namespace {

[[noreturn]] void throwRange(std::size_t index, std::size_t count) {
    throw NSException(NSRangeException, "index " + std::to_string(index) +
                                            " is beyond an array of " + std::to_string(count));
}

}  // namespace

Array::Array() : storage_(new Storage(Mutability::Mutable)) {}

Array::Array(std::initializer_list<Value> items) : Array() {
    std::ranges::for_each(items, requirePresent);
    storage_->items.assign(items);
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
    return storage_->items.size();
}

const Value& Array::operator[](std::size_t index) const {
    const auto& items = storage_->items;
    if (index >= items.size())
        throwRange(index, items.size());
    return items[index];
}

const Value* Array::begin() const noexcept {
    return storage_->items.data();
}

const Value* Array::end() const noexcept {
    return storage_->items.data() + storage_->items.size();
}

void Array::add(Value item) {
    requirePresent(item);
    mutableStorage().items.push_back(std::move(item));
}

void Array::insert(std::size_t index, Value item) {
    requirePresent(item);
    auto& items = mutableStorage().items;
    if (index > items.size())
        throwRange(index, items.size());
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(index), std::move(item));
}

void Array::replace(std::size_t index, Value item) {
    requirePresent(item);
    auto& items = mutableStorage().items;
    if (index >= items.size())
        throwRange(index, items.size());
    // The old item dies with the argument, when the array is whole again.
    std::swap(items[index], item);
}

void Array::remove(std::size_t index) {
    auto& items = mutableStorage().items;
    if (index >= items.size())
        throwRange(index, items.size());
    const Value removed = std::move(items[index]);
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(index));
}

void Array::removeAll() {
    const auto removed = std::exchange(mutableStorage().items, {});
}

void Array::reserve(std::size_t count) {
    mutableStorage().items.reserve(count);
}

bool Array::isMutable() const noexcept {
    return storage_->mutability == Mutability::Mutable;
}

bool Array::identical(const Array& other) const noexcept {
    return storage_ == other.storage_;
}

Array Array::copy() const {
    if (!isMutable())
        return *this;
    Array result(new Storage(Mutability::Immutable));
    result.storage_->items = storage_->items;
    return result;
}

Array Array::mutableCopy() const {
    Array result;
    result.storage_->items = storage_->items;
    return result;
}

Array::Storage& Array::mutableStorage() const {
    requireMutable(*storage_);
    return *storage_;
}

}  // namespace zn
