#include "platform/foundation/text/Utf8.h"

#include <unicode/utf8.h>

#include "platform/foundation/base/EightBytes.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {

char32_t nextCharacter(std::string_view text, std::size_t& position) noexcept {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    UChar32 character = 0;
    U8_NEXT(bytes, position, text.size(), character);
    return static_cast<char32_t>(character);
}

namespace {

bool isTrail(unsigned char byte) noexcept {
    return (byte & 0xC0) == 0x80;
}

/// The bytes of the character at the beginning, which is not ASCII; 0 when they are not UTF-8.
std::size_t validCharacterLength(const unsigned char* bytes, std::size_t size) noexcept {
    // By far the most: characters of two and of three bytes that have no forbidden neighbours.
    const unsigned char lead = bytes[0];
    if (size >= 3 && (lead & 0xF0) == 0xE0 && lead != 0xE0 && lead != 0xED && isTrail(bytes[1]) &&
        isTrail(bytes[2]))
        return 3;
    if (size >= 2 && lead >= 0xC2 && lead < 0xE0 && isTrail(bytes[1]))
        return 2;
    std::size_t length = 0;
    UChar32 character = 0;
    U8_NEXT(bytes, length, size, character);
    return character < 0 ? 0 : length;
}

}  // namespace

std::size_t validLength(std::string_view text) noexcept {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    std::size_t position = 0;
    while (position < text.size()) {
        if (bytes[position] >= 0x80) {
            const std::size_t length =
                validCharacterLength(bytes + position, text.size() - position);
            if (length == 0)
                return position;
            position += length;
            continue;
        }
        if (text.size() - position < 8) {
            ++position;
            continue;
        }
        const std::uint64_t beyond = EightBytes::at(text.data() + position).beyondASCII();
        position += beyond == 0 ? 8 : static_cast<std::size_t>(EightBytes::first(beyond));
    }
    return position;
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
