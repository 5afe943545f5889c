#pragma once

#include <cstddef>
#include <string_view>

namespace zn {

/// Dates of property lists count from 2001-01-01 00:00 UTC.
inline constexpr double secondsFrom1970To2001 = 978307200;

/// The markers of binary property lists. An object begins with a byte: its kind in the upper half,
/// in the lower one a count, or the power of two that is the size, or, for a reference, the size
/// less one. Numbers are big-endian.
namespace binarylist {
inline constexpr std::string_view header = "bplist00";
/// The sizes of an offset and of a reference in the bytes 6 and 7, then in eight bytes each the
/// count of the objects, the root's index and the place of the table of offsets.
inline constexpr std::size_t trailerSize = 32;
inline constexpr unsigned falseMarker = 0x08;
inline constexpr unsigned trueMarker = 0x09;
inline constexpr unsigned floatMarker = 0x22;
inline constexpr unsigned doubleMarker = 0x23;
inline constexpr unsigned dateMarker = 0x33;
inline constexpr unsigned integerKind = 0x1;
inline constexpr unsigned dataKind = 0x4;
inline constexpr unsigned textKind = 0x5;
inline constexpr unsigned wideTextKind = 0x6;
inline constexpr unsigned referenceKind = 0x8;
inline constexpr unsigned arrayKind = 0xA;
inline constexpr unsigned dictionaryKind = 0xD;
/// Such a count stands in an integer object right behind the marker.
inline constexpr unsigned longCount = 0xF;
}  // namespace binarylist

}  // namespace zn
