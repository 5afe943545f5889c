#include "zarnic/platform/foundation/CFURL.h"

#include "platform/foundation/text/Utf8.h"

namespace zn {
namespace {

bool isLegal(std::string_view character) {
    constexpr std::string_view legal =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
        "0123456789!$&'()*+,-./:;=?@_~";
    return legal.find(character) != legal.npos;
}

bool contains(std::string_view list, std::string_view character) {
    return list.find(character) != list.npos;
}

void appendEscaped(std::string& result, std::string_view character) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    for (const char each : character) {
        const auto byte = static_cast<unsigned char>(each);
        result += {'%', digits[byte >> 4], digits[byte & 0xF]};
    }
}

}  // namespace

std::optional<std::string> CFURLCreateStringByAddingPercentEscapes(
    std::string_view text, std::string_view charactersToLeaveUnescaped,
    std::string_view legalCharactersToBeEscaped) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        if (nextCharacter(text, position) == invalidCharacter)
            return std::nullopt;
        const auto character = text.substr(start, position - start);
        const bool kept = isLegal(character) ? !contains(legalCharactersToBeEscaped, character)
                                             : contains(charactersToLeaveUnescaped, character);
        if (kept)
            result += character;
        else
            appendEscaped(result, character);
    }
    return result;
}

}  // namespace zn
