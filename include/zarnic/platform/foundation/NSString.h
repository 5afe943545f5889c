#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/Export.h"

/// Text operations of the platform on UTF-8. Bytes that are not valid UTF-8 count as one character
/// each and are passed on unchanged, except where a comment says otherwise.
namespace zn {

ZN_EXPORT bool isValidUTF8(std::string_view text) noexcept;

/// Length in UTF-16 code units, the platform's length of a text.
ZN_EXPORT std::size_t utf16Length(std::string_view text) noexcept;

/// Numbers at the beginning of a text, as the platform reads them: white space, an optional sign
/// (white space may follow), ASCII digits up to the first other character. No digits give 0, what
/// is out of range the nearest number in it. Hexadecimal and locales are not known.
ZN_EXPORT std::int32_t intValue(std::string_view text) noexcept;
ZN_EXPORT std::int64_t longLongValue(std::string_view text) noexcept;
/// Negative numbers keep the bits of their `longLongValue`.
ZN_EXPORT std::uint64_t unsignedLongLongValue(std::string_view text) noexcept;
/// Also reads a fraction with a dot and an exponent. Out of range gives an infinity or 0.
ZN_EXPORT double doubleValue(std::string_view text);
/// The double, narrowed.
ZN_EXPORT float floatValue(std::string_view text);
/// True when the first character after white space, a sign and zeros is one of `YyTt1`...`9`.
ZN_EXPORT bool boolValue(std::string_view text) noexcept;

/// Full Unicode case mapping without a locale: lengths may change. Invalid bytes become U+FFFD.
ZN_EXPORT std::string lowercaseString(std::string_view text);
ZN_EXPORT std::string uppercaseString(std::string_view text);

/// Whether the character is in the platform's white space and newline set.
ZN_EXPORT bool isWhitespaceOrNewline(char32_t character) noexcept;
/// Without white space and newlines at both ends.
ZN_EXPORT std::string_view stringByTrimmingWhitespaceAndNewlines(std::string_view text) noexcept;

/// The pieces between the separators, empty ones included; at least one. An empty separator splits
/// nothing.
ZN_EXPORT std::vector<std::string> componentsSeparatedByString(std::string_view text,
                                                               std::string_view separator);

/// Joins path and component with one slash. Runs of slashes collapse, one at the end goes, `.` and
/// `..` stay.
ZN_EXPORT std::string stringByAppendingPathComponent(std::string_view path,
                                                     std::string_view component);

}  // namespace zn
