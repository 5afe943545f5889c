#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include "platform/foundation/json/JSONReader.h"
#include "platform/foundation/json/JSONText.h"
#include "platform/foundation/text/Utf8.h"

namespace zn {
namespace {

constexpr const char* unfinished = "Unfinished text";

int digitOf(char character) noexcept {
    if (character >= '0' && character <= '9')
        return character - '0';
    const int letter = (character | 0x20) - 'a';
    return letter >= 0 && letter < 6 ? letter + 10 : -1;
}

}  // namespace

std::string_view JSONReader::textWithEscapes(const char* start) {
    unescaped_.assign(start, cursor_);
    while (true) {
        if (atEnd())
            fail(start - 1, unfinished);
        if (*cursor_ == '"')
            break;
        if (*cursor_ != '\\')
            fail("Control character within a text");
        appendEscape();
        unescaped_ += plainText();
    }
    ++cursor_;
    return unescaped_;
}

void JSONReader::appendEscape() {
    static constexpr std::string_view letters = "\"\\/bfnrt";
    static constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
    if (end_ - cursor_ < 2)
        fail(unfinished);
    if (cursor_[1] == 'u') {
        char bytes[U8_MAX_LENGTH];
        std::size_t length = 0;
        U8_APPEND_UNSAFE(bytes, length, escapedCharacter());
        unescaped_.append(bytes, length);
        return;
    }
    for (std::size_t i = 0; i < letters.size(); ++i) {
        if (cursor_[1] == letters[i]) {
            unescaped_ += meanings[i];
            cursor_ += 2;
            return;
        }
    }
    fail("Unknown escape");
}

char32_t JSONReader::escapedCharacter() {
    const char* start = cursor_;
    const char32_t unit = hexadecimalUnit();
    if (!U16_IS_SURROGATE(unit))
        return unit;
    if (U16_IS_SURROGATE_LEAD(unit) && end_ - cursor_ >= 2 && cursor_[0] == '\\' &&
        cursor_[1] == 'u') {
        const char32_t trail = hexadecimalUnit();
        if (U16_IS_TRAIL(trail))
            return static_cast<char32_t>(U16_GET_SUPPLEMENTARY(unit, trail));
    }
    fail(start, "Surrogate without its other half");
}

char32_t JSONReader::hexadecimalUnit() {
    if (end_ - cursor_ < 6)
        fail("Unfinished escape");
    char32_t unit = 0;
    for (int i = 2; i < 6; ++i) {
        const int digit = digitOf(cursor_[i]);
        if (digit < 0)
            fail("Escape without four hexadecimal digits");
        unit = unit << 4 | static_cast<char32_t>(digit);
    }
    cursor_ += 6;
    return unit;
}

void JSONReader::requireUTF8(const char* start, const char* end) const {
    const std::string_view bytes(start, end);
    const std::size_t valid = validLength(bytes);
    if (valid != bytes.size())
        fail(start + valid, "Text that is not UTF-8");
}

}  // namespace zn
