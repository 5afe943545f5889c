#include <locale.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>

#include "platform/foundation/text/Utf8.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

struct SignedDigits {
    bool negative = false;
    std::uint64_t magnitude = 0;
};

/// Takes one sign from the front of the text; true for a minus.
bool takeSign(std::string_view& text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    return negative;
}

SignedDigits signedDigits(std::string_view text) {
    SignedDigits result;
    text = withoutLeadingWhitespace(text);
    result.negative = takeSign(text);
    text = withoutLeadingWhitespace(text);
    // Signs are not digits of an unsigned number: a second one ends the text.
    const auto end = text.data() + text.size();
    if (std::from_chars(text.data(), end, result.magnitude).ec == std::errc::result_out_of_range)
        result.magnitude = std::numeric_limits<std::uint64_t>::max();
    return result;
}

template <class Integer>
Integer clamped(SignedDigits digits) {
    constexpr auto maximum = static_cast<std::uint64_t>(std::numeric_limits<Integer>::max());
    if (!digits.negative)
        return static_cast<Integer>(std::min(digits.magnitude, maximum));
    if (digits.magnitude > maximum)
        return std::numeric_limits<Integer>::min();
    return static_cast<Integer>(-static_cast<Integer>(digits.magnitude));
}

/// Never freed: numbers are read until the program ends.
locale_t cLocale() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

}  // namespace

std::int32_t intValue(std::string_view text) noexcept {
    return clamped<std::int32_t>(signedDigits(text));
}

std::int64_t longLongValue(std::string_view text) noexcept {
    return clamped<std::int64_t>(signedDigits(text));
}

std::uint64_t unsignedLongLongValue(std::string_view text) noexcept {
    const auto digits = signedDigits(text);
    return digits.negative ? static_cast<std::uint64_t>(clamped<std::int64_t>(digits))
                           : digits.magnitude;
}

double doubleValue(std::string_view text) {
    text = withoutLeadingWhitespace(text);
    // Nothing but these reaches the C conversion, which would also read `nan`, `inf` and `0x1`.
    const std::string number(text.substr(0, text.find_first_not_of("0123456789+-.eE")));
    return strtod_l(number.c_str(), nullptr, cLocale());
}

float floatValue(std::string_view text) {
    return static_cast<float>(doubleValue(text));
}

bool boolValue(std::string_view text) noexcept {
    text = withoutLeadingWhitespace(text);
    takeSign(text);
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    return !text.empty() && std::string_view("YyTt123456789").find(text.front()) != text.npos;
}

}  // namespace zn
