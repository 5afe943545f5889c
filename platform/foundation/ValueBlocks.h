#pragma once

#include <cstdint>
#include <vector>

#include "zarnic/platform/Value.h"

namespace zn {

enum class Mutability : bool { Immutable, Mutable };

/// The head of array and dictionary blocks.
struct Container : detail::Counted {
    explicit Container(Mutability form) : mutability(form) {}
    virtual ~Container() = default;

    const Mutability mutability;
    Container* nextDead = nullptr;
};

/// Gives back one reference. Chains of containers of any depth are destroyed in bounded stack.
void releaseContainer(Container* container) noexcept;

/// Throws `NSInternalInconsistencyException` for an immutable container.
void requireMutable(const Container& container);

/// Throws `NSInvalidArgumentException` for an absent value.
void requirePresent(const Value& value);

struct Array::Storage final : Container {
    using Container::Container;

    std::vector<Value> items;
};

/// The values stand in the order of the keys; a key whose value is absent (a hole) is not in the
/// dictionary. Room for the first values follows the block itself.
struct Dictionary::Storage final : Container {
    static Storage* create(Mutability form, std::size_t capacity);
    static Storage* copyOf(const Storage& original, Mutability form);
    ~Storage() override;
    static void operator delete(void* block) { ::operator delete(block); }

    void append(std::string_view key, Value value);
    void removeHoles();
    std::size_t slots() const noexcept { return keys.count(); }
    Value* room() noexcept { return reinterpret_cast<Value*>(this + 1); }

    KeyTable keys;
    Value* values;
    std::size_t capacity;
    std::size_t present = 0;

private:
    Storage(Mutability form, std::size_t room)
        : Container(form), values(this->room()), capacity(room) {}
    void grow();
    void freeValues() noexcept;
};

}  // namespace zn
