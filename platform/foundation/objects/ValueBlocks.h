#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/foundation/objects/ValuePool.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

enum class Mutability : bool { Immutable, Mutable };

/// What array and dictionary blocks share: a list of values, first in the room that follows the
/// block, then in memory of its own.
struct Container : detail::Counted {
    enum class Type : std::uint8_t { Array, Dictionary };

    Container(Type kind, Mutability form, Value* room, std::size_t roomCount)
        : values(room), capacity(roomCount), mutability(form), type(kind) {}
    ~Container() { freeValues(); }
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    std::span<Value> all() const noexcept { return {values, count}; }
    void append(Value value);
    void appendCopies(std::span<const Value> originals);
    void appendMoved(std::span<Value> originals) noexcept;
    void reserve(std::size_t wanted);
    /// Empties the list; the values die with the result, when the list is whole again.
    std::vector<Value> takeAll();
    void truncate(std::size_t newCount) noexcept;

    Container* nextDead = nullptr;
    Value* values;
    std::size_t count = 0;
    std::size_t capacity;
    const Mutability mutability;
    const Type type;

private:
    void freeValues() noexcept;
    bool ownsValues_ = false;
};

/// Gives back one reference. Chains of containers of any depth are destroyed in bounded stack.
void releaseContainer(Container* container) noexcept;

/// Throws `NSInternalInconsistencyException` for an immutable container.
void requireMutable(const Container& container);

/// Throws `NSInvalidArgumentException` for an absent value.
void requirePresent(const Value& value);

struct Array::Storage final : Container {
    Storage(Mutability form, std::size_t room)
        : Container(Type::Array, form, reinterpret_cast<Value*>(this + 1), room) {}
    static Storage* create(Mutability form, std::size_t capacity = 0, ValuePool* pool = nullptr);
    static Storage* copyOf(const Storage& original, Mutability form);
};

/// The values stand in the order of the keys; a key whose value is absent (a hole) is not in the
/// dictionary.
struct Dictionary::Storage final : Container {
    Storage(Mutability form, std::size_t room)
        : Container(Type::Dictionary, form, reinterpret_cast<Value*>(this + 1), room) {}
    static Storage* create(Mutability form, std::size_t capacity = 0, ValuePool* pool = nullptr);
    static Storage* copyOf(const Storage& original, Mutability form);

    void add(std::string_view key, Value value);
    void removeHoles();

    KeyTable keys;
    std::size_t present = 0;
};

/// What the library itself may do with blocks.
struct ValueBlocks {
    static Value text(std::string_view text, ValuePool& pool);
    /// The items are moved from.
    static Value array(std::span<Value> items, Mutability form, ValuePool& pool);
    /// The values are moved from; they are as many as the keys, and all present.
    static Value dictionary(const KeyTable& keys, std::span<Value> values, Mutability form,
                            ValuePool& pool);
    /// The same, mutable; absent values leave their keys out.
    static Value row(const KeyTable& keys, std::span<Value> values, ValuePool& pool);
    static void destroy(Container* container) noexcept;
};

}  // namespace zn
