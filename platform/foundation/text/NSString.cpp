#include "zarnic/platform/foundation/NSString.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/utf8.h>

#include "platform/foundation/text/Utf8.h"

namespace zn {
namespace {

using CaseMapping = void (*)(const char*, std::uint32_t, icu::StringPiece, icu::ByteSink&,
                             icu::Edits*, UErrorCode&);

std::string mapped(std::string_view text, CaseMapping mapping) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result, static_cast<std::int32_t>(text.size()));
    UErrorCode status = U_ZERO_ERROR;
    constexpr const char* rootLocale = "";
    mapping(rootLocale, 0, icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())),
            sink, nullptr, status);
    return result;
}

}  // namespace

bool isValidUTF8(std::string_view text) noexcept {
    return validLength(text) == text.size();
}

std::size_t utf16Length(std::string_view text) noexcept {
    std::size_t length = 0;
    for (std::size_t position = 0; position < text.size(); ++length) {
        const char32_t character = nextCharacter(text, position);
        if (character != invalidCharacter && character > 0xFFFF)
            ++length;
    }
    return length;
}

std::string lowercaseString(std::string_view text) {
    return mapped(text, icu::CaseMap::utf8ToLower);
}

std::string uppercaseString(std::string_view text) {
    return mapped(text, icu::CaseMap::utf8ToUpper);
}

bool isWhitespaceOrNewline(char32_t character) noexcept {
    if (character < 0x80)
        return character == ' ' || (character >= 0x09 && character <= 0x0D);
    return character == 0x85 || character == 0xA0 || character == 0x1680 ||
           (character >= 0x2000 && character <= 0x200B) || character == 0x2028 ||
           character == 0x2029 || character == 0x202F || character == 0x205F || character == 0x3000;
}

std::string_view stringByTrimmingWhitespaceAndNewlines(std::string_view text) noexcept {
    text = withoutLeadingWhitespace(text);
    std::size_t end = 0;
    for (std::size_t position = 0; position < text.size();) {
        if (!isWhitespaceOrNewline(nextCharacter(text, position)))
            end = position;
    }
    return text.substr(0, end);
}

std::vector<std::string> componentsSeparatedByString(std::string_view text,
                                                     std::string_view separator) {
    std::vector<std::string> pieces;
    std::size_t end = separator.empty() ? text.npos : text.find(separator);
    while (end != text.npos) {
        pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(end + separator.size());
        end = text.find(separator);
    }
    pieces.emplace_back(text);
    return pieces;
}

std::string stringByAppendingPathComponent(std::string_view path, std::string_view component) {
    std::string joined(path);
    if (!path.empty() && !component.empty())
        joined += '/';
    joined += component;
    std::string result;
    for (const char character : joined) {
        if (character != '/' || !result.ends_with('/'))
            result += character;
    }
    if (result.size() > 1 && result.ends_with('/'))
        result.pop_back();
    return result;
}

}  // namespace zn
