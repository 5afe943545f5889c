#include "platform/foundation/Utf8.h"

#include <unicode/utf8.h>

#include "zarnic/platform/NSString.h"

namespace zn {

char32_t nextCharacter(std::string_view text, std::size_t& position) noexcept {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    UChar32 character = 0;
    U8_NEXT(bytes, position, text.size(), character);
    return static_cast<char32_t>(character);
}

std::string_view withoutLeadingWhitespace(std::string_view text) noexcept {
    std::size_t start = 0;
    for (std::size_t position = 0; position < text.size(); start = position) {
        if (!isWhitespaceOrNewline(nextCharacter(text, position)))
            break;
    }
    return text.substr(start);
}

}  // namespace zn
