#pragma once

#include <span>
#include <utility>

#include "platform/foundation/objects/ValueBlocks.h"

namespace zn {

/// The insides of containers, for those who make immutable ones piece by piece (others may already
/// refer to them) or read many.
class ContainerFiller {
public:
    static Array array(Mutability form);
    /// With room for so many entries.
    static Dictionary dictionary(Mutability form, std::size_t capacity = 0);
    /// With a block of memory of its own and shared keys; the values are moved from and must be
    /// present.
    static Dictionary immutableDictionary(const KeyTable& keys, std::span<Value> values);

    static void add(const Array& array, Value item);
    static void set(const Dictionary& dictionary, std::string_view key, Value value);
    /// Empties the container, so that circles through it end.
    static void clear(const Value& container);

    /// Calls `visit(position, key, value)` for the entries in their order.
    template <class Visit>
    static void forEach(const Dictionary& dictionary, const Visit& visit) {
        const auto& storage = *dictionary.storage_;
        const std::size_t slots = storage.count;
        for (std::size_t slot = 0; slot < slots; ++slot)
            if (!storage.values[slot].absent())
                visit(slot, storage.keys[slot], std::as_const(storage.values[slot]));
    }

    /// The same for all that share the container.
    static const void* identity(const Value& container);
};

}  // namespace zn
