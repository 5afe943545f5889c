#include "platform/foundation/json/JSONText.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include "platform/foundation/text/Utf8.h"

namespace zn {
namespace {

using namespace std::string_view_literals;

constexpr const char* notUnicode = "Text that is not Unicode";

struct Mark {
    std::string_view bytes;
    std::size_t unitLength;
    bool bigEndian;
};

/// The longer ones first: one begins like another.
constexpr Mark marks[] = {
    {"\x00\x00\xFE\xFF"sv, 4, true}, {"\xFF\xFE\x00\x00"sv, 4, false}, {"\xFE\xFF"sv, 2, true},
    {"\xFF\xFE"sv, 2, false},        {"\xEF\xBB\xBF"sv, 1, false},
};

std::uint32_t unitAt(std::string_view bytes, std::size_t offset, const JSONEncoding& encoding) {
    std::uint32_t unit = 0;
    for (std::size_t i = 0; i < encoding.unitLength; ++i) {
        const std::size_t place = encoding.bigEndian ? i : encoding.unitLength - 1 - i;
        unit = unit << 8 | static_cast<unsigned char>(bytes[offset + place]);
    }
    return unit;
}

void appendUTF8(std::string& text, std::uint32_t character) {
    char bytes[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, character);
    text.append(bytes, length);
}

}  // namespace

JSONEncoding JSONEncoding::of(std::string_view bytes) noexcept {
    for (const auto& mark : marks) {
        if (bytes.starts_with(mark.bytes))
            return {mark.bytes.size(), mark.unitLength, mark.bigEndian};
    }
    const auto zeroAt = [bytes](std::size_t place) {
        return place < bytes.size() && bytes[place] == '\0';
    };
    if (zeroAt(0))
        return {0, zeroAt(1) ? 4U : 2U, true};
    if (zeroAt(1))
        return {0, zeroAt(2) && zeroAt(3) ? 4U : 2U, false};
    return {};
}

void appendUnits(std::string& text, std::string_view bytes, const JSONEncoding& encoding) {
    const std::size_t step = encoding.unitLength;
    text.reserve(text.size() + bytes.size() / step);
    while (bytes.size() >= step) {
        std::uint32_t character = unitAt(bytes, 0, encoding);
        bytes.remove_prefix(step);
        if (step == 2 && U16_IS_LEAD(character) && bytes.size() >= step) {
            const std::uint32_t trail = unitAt(bytes, 0, encoding);
            if (U16_IS_TRAIL(trail)) {
                character = static_cast<std::uint32_t>(U16_GET_SUPPLEMENTARY(character, trail));
                bytes.remove_prefix(step);
            }
        }
        if (U_IS_SURROGATE(character) || character > 0x10FFFF)
            throw JSONFault(text.size(), notUnicode);
        appendUTF8(text, character);
    }
    if (!bytes.empty())
        throw JSONFault(text.size(), notUnicode);
}

std::size_t encodedLength(std::string_view utf8, const JSONEncoding& encoding) noexcept {
    if (encoding.unitLength == 1)
        return utf8.size();
    std::size_t length = 0;
    for (std::size_t position = 0; position < utf8.size();) {
        const char32_t character = nextCharacter(utf8, position);
        length += encoding.unitLength == 2 && character > 0xFFFF ? 4 : encoding.unitLength;
    }
    return length;
}

}  // namespace zn
