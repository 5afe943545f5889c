#pragma once

#include <cstddef>
#include <string_view>

#include "zarnic/platform/foundation/Export.h"

/// Where a UTF-8 text may be cut (Unicode Standard Annex 29). Positions are bytes; one beyond the
/// end means the end, one inside a character belongs to it. Each call looks only as far as the next
/// boundary, however long the text is. Malformed sequences count as one character each.
namespace zn {

/// The ends of what a reader sees as one character: a letter with its marks, an emoji family, a
/// flag, CR LF. The text's end after the last one, 0 before the first.
ZN_EXPORT std::size_t nextGrapheme(std::string_view text, std::size_t position);
ZN_EXPORT std::size_t previousGrapheme(std::string_view text, std::size_t position);
/// The position, or the beginning of the grapheme that it lies in.
ZN_EXPORT std::size_t graphemeStart(std::string_view text, std::size_t position);

/// The end of the word at or after the position, the beginning of the one at or before it.
ZN_EXPORT std::size_t nextWordEnd(std::string_view text, std::size_t position);
ZN_EXPORT std::size_t previousWordStart(std::string_view text, std::size_t position);

struct TextPiece {
    std::size_t start;
    std::size_t end;
};
/// What a double click selects: the word at the position or ending there, else the run of blanks
/// or the sign that stands there. Line ends are never joined to others.
ZN_EXPORT TextPiece wordAt(std::string_view text, std::size_t position);

}  // namespace zn
