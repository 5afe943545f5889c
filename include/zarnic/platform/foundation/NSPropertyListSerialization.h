#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

enum class NSPropertyListFormat : std::uint32_t {
    XML = 100,
    Binary = 200,
};

/// Property lists: XML and binary bytes to values and back.
class ZN_EXPORT NSPropertyListSerialization {
public:
    /// An immutable value, or absent for bytes that are no property list, texts that are not UTF-8
    /// and nests deeper than 512. Dates are `NSDate`s; archive references are dictionaries of the
    /// one key `CF$UID`.
    static Value propertyListWithData(std::span<const std::byte> data);
    /// The same from a file; absent also when it cannot be read.
    static Value propertyListWithContentsOfFile(std::string_view path);
    /// The list as data. Absent when something in it is no text, data, number, date, array or
    /// dictionary, when a text is not UTF-8, and for nests deeper than 512 or without end; as XML
    /// also for texts with a zero in them, dates outside the years 0 to 9999 and more than 4 GiB.
    /// XML has the keys in ascending order of their bytes. The binary form has each container and
    /// each text once, and writes a dictionary of the one key `CF$UID` with a whole number as an
    /// archive reference. Reading the data gives an equal value.
    static Value dataWithPropertyList(const Value& plist, NSPropertyListFormat format);
};

}  // namespace zn
