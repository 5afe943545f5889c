#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

/// The text with percent escapes for the characters that may not stand in a URL: `%` and two
/// upper-case hexadecimal digits for each byte of their UTF-8. Legal are the ASCII letters and
/// digits and ``!$&'()*+,-./:;=?@_~`` (RFC 2396, without its delimiters `#` and `%`). Texts are
/// UTF-8; both lists name characters, in any order.
/// @param charactersToLeaveUnescaped is kept though not legal; with a `%` in it nothing is escaped
/// twice.
/// @param legalCharactersToBeEscaped is escaped though legal.
/// @return nothing for a text that is not UTF-8. Any thread.
ZN_EXPORT std::optional<std::string> CFURLCreateStringByAddingPercentEscapes(
    std::string_view text, std::string_view charactersToLeaveUnescaped,
    std::string_view legalCharactersToBeEscaped);

}  // namespace zn
