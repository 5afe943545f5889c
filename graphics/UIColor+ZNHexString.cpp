#include <algorithm>
#include <array>

#include "platform/foundation/text/Utf8.h"
#include "zarnic/UIColor+ZNCategory.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {

namespace {

enum : std::uint8_t { Blank = 16, Other = 17 };

/// What each ASCII character is in a number: the value of a digit, a blank, or anything else.
constexpr std::array<std::uint8_t, 256> characterKinds = [] {
    std::array<std::uint8_t, 256> kinds{};
    kinds.fill(Other);
    for (std::uint8_t digit = 0; digit < 10; ++digit)
        kinds[static_cast<std::uint8_t>('0' + digit)] = digit;
    for (std::uint8_t digit = 10; digit < 16; ++digit)
        for (const int letter : {'A', 'a'})
            kinds[static_cast<std::uint8_t>(letter + digit - 10)] = digit;
    for (const char blank : {' ', '\t', '\n', '\v', '\f', '\r'})
        kinds[static_cast<std::uint8_t>(blank)] = Blank;
    return kinds;
}();

/// n / 255 in single precision.
constexpr std::array<double, 256> componentOfByte = [] {
    std::array<double, 256> components{};
    for (std::size_t i = 0; i < components.size(); ++i)
        components[i] = static_cast<float>(i) / 255.0F;
    return components;
}();

/// Two characters as a scanner for hexadecimal numbers reads them: it skips a blank before the
/// digits and ends at the first character that is none. No digit at all is 0.
double component(const char* pair) {
    const std::uint8_t first = characterKinds[static_cast<std::uint8_t>(pair[0])];
    const std::uint8_t second = characterKinds[static_cast<std::uint8_t>(pair[1])];
    if (first < Blank)
        return componentOfByte[second < Blank ? first * 16U + second : first];
    return componentOfByte[first == Blank && second < Blank ? second : 0];
}

/// One character for each UTF-16 unit of the upper-case text: what no digit can come of is a blank
/// or a question mark.
std::string asciiUnits(std::string_view text) {
    const std::string upper = uppercaseString(text);
    std::string units;
    for (std::size_t position = 0; position < upper.size();) {
        const char32_t character = nextCharacter(upper, position);
        if (character < 0x80)
            units += static_cast<char>(character);
        else if (isWhitespaceOrNewline(character))
            units += ' ';
        else
            units.append(character > 0xFFFF && character != invalidCharacter ? 2 : 1, '?');
    }
    return units;
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text,
                               [](char unit) { return static_cast<unsigned char>(unit) < 0x80; });
}

/// Without blanks at both ends.
std::string_view trimmed(std::string_view text) {
    const auto blank = [](char unit) {
        return characterKinds[static_cast<std::uint8_t>(unit)] == Blank;
    };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    return text;
}

Ref<UIColor> colorOfUnits(std::string_view text, double alpha) {
    constexpr std::size_t longestWithoutMeaning = 5;
    // On purpose before the prefix is dropped, so that #FFF and 0XFFF are clear.
    if (text.size() <= longestWithoutMeaning)
        return UIColor::clearColor();
    if (text[0] == '0' && (text[1] == 'X' || text[1] == 'x'))
        text.remove_prefix(2);
    if (text[0] == '#')
        text.remove_prefix(1);
    if (text.size() != 6 && text.size() != 8)
        return UIColor::clearColor();
    const char* colors = text.data() + text.size() - 6;
    const double ownAlpha = text.size() == 8 ? component(text.data()) : 1.0;
    return UIColor::colorWithRed(component(colors), component(colors + 2), component(colors + 4),
                                 alpha > 0.0 ? alpha : ownAlpha);
}

}  // namespace

Ref<UIColor> ZN_ColorWithHexString(std::string_view text) {
    return ZN_ColorwithHexString(text, -1.0);
}

Ref<UIColor> ZN_ColorwithHexString(std::string_view text, double alpha) {
    if (isAscii(text))
        return colorOfUnits(trimmed(text), alpha);
    return colorOfUnits(asciiUnits(stringByTrimmingWhitespaceAndNewlines(text)), alpha);
}

}  // namespace zn
