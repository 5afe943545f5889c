#include "platform/foundation/text/RegularExpression.h"

#include <unicode/regex.h>

#include <limits>

#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

/// In ICU's units, each of which takes some tenths of a millisecond.
constexpr std::int32_t timeLimit = 1000;
/// Bytes of what a match puts aside to come back to.
constexpr std::int32_t stackLimit = 8'000'000;

[[noreturn]] void refuse(std::string_view expression, const std::string& why) {
    throw NSException(NSInvalidArgumentException, "cannot match the regular expression \"" +
                                                      std::string(expression) + "\": " + why);
}

void requireSuccess(UErrorCode status, std::string_view expression) {
    if (status == U_REGEX_TIME_OUT)
        refuse(expression, "it takes too long on this text");
    if (status == U_REGEX_STACK_OVERFLOW)
        refuse(expression, "it takes too much memory on this text");
    if (U_FAILURE(status))
        refuse(expression, u_errorName(status));
}

icu::UnicodeString wide(std::string_view text, std::string_view expression) {
    if (text.size() > std::numeric_limits<std::int32_t>::max())
        refuse(expression, "the text is longer than 2 GiB");
    return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

}  // namespace

bool matchesWholly(std::string_view text, std::string_view expression) {
    if (expression.empty())
        return false;
    UErrorCode status = U_ZERO_ERROR;
    icu::RegexMatcher matcher(wide(expression, expression), 0, status);
    requireSuccess(status, expression);
    const icu::UnicodeString input = wide(text, expression);
    matcher.setTimeLimit(timeLimit, status);
    matcher.setStackLimit(stackLimit, status);
    matcher.reset(input);
    const bool matches = matcher.matches(status) != 0;
    requireSuccess(status, expression);
    return matches;
}

}  // namespace zn
