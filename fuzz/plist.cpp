// Reads hostile property lists. What reads must also describe, compare and copy itself.

#include <cstdint>
#include <cstdlib>

#include "zarnic/platform/NSPropertyListSerialization.h"
#include "zarnic/platform/Value.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const zn::Value value =
        zn::NSPropertyListSerialization::propertyListWithData(std::as_bytes(std::span(data, size)));
    // Not a number is unequal to itself, and so is what holds one.
    const std::string text = value.description();
    if (value.mutableCopy().description() != text)
        std::abort();
    return 0;
}
