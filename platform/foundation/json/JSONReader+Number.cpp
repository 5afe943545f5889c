#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/foundation/json/JSONReader.h"

namespace zn {
namespace {

bool isDigit(char character) noexcept {
    return static_cast<unsigned char>(character - '0') < 10;
}

/// The parts of a number as it was written.
struct Decimal {
    /// All the digits in a row; meaningless when they are more than 19.
    std::uint64_t digits = 0;
    std::ptrdiff_t wholeCount = 0;
    std::ptrdiff_t fractionCount = 0;
    std::int64_t exponent = 0;
    bool negative = false;
    bool whole = true;

    std::ptrdiff_t digitCount() const { return wholeCount + fractionCount; }
    /// The power of ten that the row of digits is multiplied by.
    std::int64_t scale() const { return exponent - fractionCount; }
};

constexpr std::ptrdiff_t exactDigitCount = 19;
constexpr std::int64_t hugeExponent = 1'000'000'000'000;

/// Follows the grammar of RFC 8259, section 6; `end` is left where it no longer holds.
class NumberScan {
public:
    NumberScan(const char* cursor, const char* end) : cursor_(cursor), end_(end) {}

    const char* problem = nullptr;
    Decimal decimal;

    const char* scan() {
        decimal.negative = take('-');
        const char* whole = cursor_;
        takeDigits();
        if (cursor_ == whole)
            return problem = decimal.negative ? "Minus without digits" : "Expected a value",
                   cursor_;
        if (*whole == '0' && cursor_ - whole > 1)
            return problem = "Number with a leading zero", whole;
        decimal.wholeCount = cursor_ - whole;
        if (take('.'))
            takeFraction();
        if (problem == nullptr && (take('e') || take('E')))
            takeExponent();
        return cursor_;
    }

private:
    bool take(char character) {
        if (cursor_ == end_ || *cursor_ != character)
            return false;
        ++cursor_;
        return true;
    }

    void takeDigits() {
        for (; cursor_ != end_ && isDigit(*cursor_); ++cursor_)
            decimal.digits = decimal.digits * 10 + static_cast<std::uint64_t>(*cursor_ - '0');
    }

    void takeFraction() {
        const char* start = cursor_;
        takeDigits();
        if (cursor_ == start)
            problem = "Expected a digit after the decimal point";
        decimal.whole = false;
        decimal.fractionCount = cursor_ - start;
    }

    void takeExponent() {
        const bool negative = take('-');
        if (!negative)
            take('+');
        const char* start = cursor_;
        std::int64_t exponent = 0;
        for (; cursor_ != end_ && isDigit(*cursor_); ++cursor_)
            exponent = std::min(exponent * 10 + (*cursor_ - '0'), hugeExponent);
        if (cursor_ == start)
            problem = "Expected a digit in the exponent";
        decimal.whole = false;
        decimal.exponent = negative ? -exponent : exponent;
    }

    const char* cursor_;
    const char* end_;
};

/// Exact when digits and power of ten both are: one rounding only. Clinger, "How to read floating
/// point numbers accurately", 1990.
bool isExact(const Decimal& decimal) {
    return decimal.digitCount() <= exactDigitCount && decimal.digits <= (std::uint64_t{1} << 53) &&
           std::abs(decimal.scale()) <= 22;
}

double exactReal(const Decimal& decimal) {
    static constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const auto digits = static_cast<double>(decimal.digits);
    const double power = powers[std::abs(decimal.scale())];
    const double magnitude = decimal.scale() < 0 ? digits / power : digits * power;
    return decimal.negative ? -magnitude : magnitude;
}

/// Whether a number that no double holds is too small rather than too large.
bool isTiny(std::string_view number, const Decimal& decimal) {
    const std::size_t first = number.find_first_of("123456789");
    const std::size_t whole =
        (decimal.negative ? 1U : 0U) + static_cast<std::size_t>(decimal.wholeCount);
    return static_cast<std::int64_t>(whole) - static_cast<std::int64_t>(first) + decimal.exponent <
           0;
}

bool fitsInteger(const Decimal& decimal) {
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    return decimal.whole && decimal.digitCount() <= exactDigitCount &&
           decimal.digits <= largest + (decimal.negative ? 1 : 0);
}

}  // namespace

void JSONReader::readNumber() {
    const char* start = cursor_;
    NumberScan number(start, end_);
    cursor_ = number.scan();
    if (number.problem != nullptr)
        fail(number.problem);
    const Decimal& decimal = number.decimal;
    if (fitsInteger(decimal)) {
        const auto magnitude = decimal.digits;
        values_.emplace_back(
            static_cast<std::int64_t>(decimal.negative ? 0 - magnitude : magnitude));
        return;
    }
    if (!decimal.whole && isExact(decimal)) {
        values_.emplace_back(exactReal(decimal));
        return;
    }
    std::uint64_t large = 0;
    if (decimal.whole && std::from_chars(start, cursor_, large).ec == std::errc()) {
        values_.emplace_back(large);
        return;
    }
    double real = decimal.negative ? -0.0 : 0.0;
    const bool outOfRange =
        std::from_chars(start, cursor_, real).ec == std::errc::result_out_of_range;
    if (outOfRange && !isTiny({start, cursor_}, decimal))
        fail(start, "Number too large");
    values_.emplace_back(real);
}

}  // namespace zn
