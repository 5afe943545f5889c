#include "zarnic/platform/foundation/NSPointerArray.h"

#include <string>

#include "zarnic/platform/foundation/NSException.h"

namespace zn {

NSPointerArray::NSPointerArray() = default;
NSPointerArray::~NSPointerArray() = default;

Ref<NSPointerArray> NSPointerArray::weakObjectsPointerArray() {
    return make<NSPointerArray>();
}

Value NSPointerArray::pointerAtIndex(std::size_t index) const {
    require(index);
    const Entry& entry = entries_[index];
    return entry.null ? Value::null() : Value(entry.object.lock());
}

void NSPointerArray::addPointer(const Value& pointer) {
    if (!pointer.absent() && !pointer.isNull() && !pointer.isObject())
        throw NSException(NSInvalidArgumentException,
                          "only objects can be held weakly, not " + pointer.description());
    entries_.push_back({pointer.object(), pointer.isNull()});
}

void NSPointerArray::removePointerAtIndex(std::size_t index) {
    require(index);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
}

void NSPointerArray::require(std::size_t index) const {
    if (index >= entries_.size())
        throw NSException(NSInvalidArgumentException, "index " + std::to_string(index) +
                                                          " beyond the count " +
                                                          std::to_string(entries_.size()));
}

}  // namespace zn
