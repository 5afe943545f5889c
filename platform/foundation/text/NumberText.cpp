#include "platform/foundation/text/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace zn {

std::string realText(double number, int digits) {
    if (std::isnan(number))
        return "nan";
    char buffer[64];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general, digits);
    return {buffer, end.ptr};
}

template <class Integer>
Integer saturated(double number) {
    using Limits = std::numeric_limits<Integer>;
    // The first real above the range is a power of two, hence exact; the largest integer may not
    // be.
    const double above = std::ldexp(1.0, Limits::digits);
    if (std::isnan(number))
        return 0;
    if (number >= above)
        return Limits::max();
    if (number < static_cast<double>(Limits::min()))
        return Limits::min();
    return static_cast<Integer>(number);
}

template std::int32_t saturated<std::int32_t>(double);
template std::int64_t saturated<std::int64_t>(double);
template std::uint64_t saturated<std::uint64_t>(double);

}  // namespace zn
