#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

/// Whether the whole text matches the ICU regular expression: case counts, a dot stands for no line
/// break, a line break at the end counts. False for an empty expression. Throws
/// `NSInvalidArgumentException` for an expression that is not valid, and for one that needs more
/// time (some tenths of a second) or memory (8 MB) on this text than is reasonable.
ZN_EXPORT bool zn_IsMatchRegEx(std::string_view text, std::string_view expression);

/// Digests as lower-case hexadecimal digits, of the UTF-8 text unless it says otherwise; nothing
/// for an empty text or empty data. From any thread.

/// Of the text up to its first zero; nothing for one that is not ASCII.
ZN_EXPORT std::optional<std::string> zn_EncryptSHA256(std::string_view text);
ZN_EXPORT std::optional<std::string> ZN_EncryptSHA256(std::span<const std::byte> data);
/// On purpose of only as many bytes as the text has UTF-16 units: outside ASCII the end is left
/// out.
ZN_EXPORT std::optional<std::string> zn_EncryptSHA1(std::string_view text);
ZN_EXPORT std::optional<std::string> ZN_EncryptSHA1(std::span<const std::byte> data);
/// Of the text up to its first zero.
ZN_EXPORT std::optional<std::string> zn_EncryptMD5(std::string_view text);

}  // namespace zn
