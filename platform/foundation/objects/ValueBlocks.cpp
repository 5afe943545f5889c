#include "platform/foundation/objects/ValueBlocks.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "platform/foundation/base/FastThreadLocal.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

constexpr int maximumTeardownDepth = 64;
ZN_FAST_THREAD_LOCAL int teardownDepth = 0;
ZN_FAST_THREAD_LOCAL Container* deadContainers = nullptr;

}  // namespace

void Container::append(Value value) {
    if (count == capacity)
        reserve(std::max<std::size_t>(4, capacity * 2));
    ::new (values + count) Value(std::move(value));
    ++count;
}

void Container::appendCopies(std::span<const Value> originals) {
    reserve(count + originals.size());
    std::uninitialized_copy(originals.begin(), originals.end(), values + count);
    count += originals.size();
}

void Container::appendMoved(std::span<Value> originals) noexcept {
    if (originals.empty())
        return;
    // A value may move by its bytes; all zeros are an absent one.
    std::memcpy(static_cast<void*>(values + count), originals.data(), originals.size_bytes());
    std::memset(static_cast<void*>(originals.data()), 0, originals.size_bytes());
    count += originals.size();
}

void Container::reserve(std::size_t wanted) {
    if (wanted <= capacity)
        return;
    auto* larger = static_cast<Value*>(::operator new(wanted * sizeof(Value)));
    std::uninitialized_move_n(values, count, larger);
    freeValues();
    values = larger;
    capacity = wanted;
    ownsValues_ = true;
}

std::vector<Value> Container::takeAll() {
    std::vector<Value> taken(std::make_move_iterator(values),
                             std::make_move_iterator(values + count));
    truncate(0);
    return taken;
}

void Container::truncate(std::size_t newCount) noexcept {
    std::destroy(values + newCount, values + count);
    count = newCount;
}

void Container::freeValues() noexcept {
    std::destroy_n(values, count);
    if (ownsValues_)
        ::operator delete(values);
}

void releaseContainer(Container* container) noexcept {
    if (!container->release())
        return;
    if (teardownDepth == maximumTeardownDepth) {
        container->nextDead = deadContainers;
        deadContainers = container;
        return;
    }
    ValueBlocks::destroy(container);
    while (teardownDepth == 0 && deadContainers != nullptr) {
        Container* next = deadContainers;
        deadContainers = next->nextDead;
        ValueBlocks::destroy(next);
    }
}

void requireMutable(const Container& container) {
    if (container.mutability == Mutability::Immutable)
        throw NSException(NSInternalInconsistencyException, "an immutable container was changed");
}

void requirePresent(const Value& value) {
    if (value.absent())
        throw NSException(NSInvalidArgumentException, "a container cannot hold an absent value");
}

void ValueBlocks::destroy(Container* container) noexcept {
    ++teardownDepth;
    if (container->type == Container::Type::Array)
        static_cast<Array::Storage*>(container)->~Storage();
    else
        static_cast<Dictionary::Storage*>(container)->~Storage();
    ValuePool::free(container);
    --teardownDepth;
}

Value ValueBlocks::array(std::span<Value> items, Mutability form, ValuePool& pool) {
    auto* storage = Array::Storage::create(form, items.size(), &pool);
    storage->appendMoved(items);
    Value result;
    result.setBlock(Value::Kind::Array, storage);
    return result;
}

Value ValueBlocks::dictionary(const KeyTable& keys, std::span<Value> values, Mutability form,
                              ValuePool& pool) {
    auto* storage = Dictionary::Storage::create(form, values.size(), &pool);
    storage->appendMoved(values);
    storage->keys = keys;
    storage->present = values.size();
    Value result;
    result.setBlock(Value::Kind::Dictionary, storage);
    return result;
}

Value ValueBlocks::row(const KeyTable& keys, std::span<Value> values, ValuePool& pool) {
    const auto absent = std::ranges::count_if(values, &Value::absent);
    Value row = dictionary(keys, values, Mutability::Mutable, pool);
    auto* storage = static_cast<Dictionary::Storage*>(row.payload<detail::Counted*>());
    storage->present -= static_cast<std::size_t>(absent);
    return row;
}

}  // namespace zn
