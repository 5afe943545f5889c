#pragma once

#include <cstddef>
#include <span>

#include "zarnic/platform/Value.h"

namespace zn {

/// Property lists: XML and binary bytes to values and back.
class ZN_EXPORT NSPropertyListSerialization {
public:
    /// An immutable value, or absent for bytes that are no property list, texts that are not UTF-8
    /// and nests deeper than 512. Dates are `NSDate`s; archive references are dictionaries of the
    /// one key `CF$UID`.
    static Value propertyListWithData(std::span<const std::byte> data);
    /// The same from a file; absent also when it cannot be read.
    static Value propertyListWithContentsOfFile(std::string_view path);
};

}  // namespace zn
