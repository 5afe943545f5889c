#pragma once

#include <span>

#include "platform/foundation/ValueBlocks.h"

namespace zn {

/// Makes containers that are filled after others already refer to them, immutable ones included.
class ContainerFiller {
public:
    static Array array(Mutability form);
    static Dictionary dictionary(Mutability form);
    /// With a block of memory of its own and shared keys; the values are moved from and must be
    /// present.
    static Dictionary immutableDictionary(const KeyTable& keys, std::span<Value> values);

    static void add(const Array& array, Value item);
    static void set(const Dictionary& dictionary, std::string_view key, Value value);
    /// Empties the container, so that circles through it end.
    static void clear(const Value& container);

    /// The same for all that share the container.
    static const void* identity(const Value& container);
};

}  // namespace zn
