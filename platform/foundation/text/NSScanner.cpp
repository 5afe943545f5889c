#include "zarnic/platform/foundation/NSScanner.h"

#include <limits>

#include "platform/foundation/text/Utf8.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

/// The value of a hexadecimal digit, or -1.
int hexDigit(char character) {
    if (character >= '0' && character <= '9')
        return character - '0';
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool hasPrefix(std::string_view text) {
    return text.size() > 2 && text[0] == '0' && (text[1] | 0x20) == 'x' && hexDigit(text[2]) >= 0;
}

}  // namespace

void NSScanner::setScanLocation(std::size_t location) {
    if (location > text_.size())
        throw NSException(NSRangeException, "a scanner's location beyond the end of its text");
    location_ = location;
}

const NSCharacterSet& NSScanner::charactersToBeSkipped() const {
    static const NSCharacterSet standard = NSCharacterSet::whitespaceAndNewlines();
    return skipped_ ? *skipped_ : standard;
}

bool NSScanner::isAtEnd() const {
    return end(location_, charactersToBeSkipped(), Wanted::Inside) == text_.size();
}

/// Where the run of wanted characters ends.
std::size_t NSScanner::end(std::size_t from, const NSCharacterSet& set, Wanted wanted) const {
    for (std::size_t position = from; position < text_.size(); from = position) {
        if (set.contains(nextCharacter(text_, position)) != (wanted == Wanted::Inside))
            break;
    }
    return from;
}

std::optional<std::string_view> NSScanner::scan(const NSCharacterSet& set, Wanted wanted) {
    const std::size_t start = end(location_, charactersToBeSkipped(), Wanted::Inside);
    const std::size_t stop = end(start, set, wanted);
    if (stop == start)
        return std::nullopt;
    location_ = stop;
    return text_.substr(start, stop - start);
}

std::optional<std::string_view> NSScanner::scanUpToCharactersFromSet(
    const NSCharacterSet& characters) {
    return scan(characters, Wanted::Outside);
}

std::optional<std::string_view> NSScanner::scanCharactersFromSet(const NSCharacterSet& characters) {
    return scan(characters, Wanted::Inside);
}

std::optional<std::uint32_t> NSScanner::scanHexInt() {
    constexpr std::uint64_t largest = std::numeric_limits<std::uint32_t>::max();
    std::size_t position = end(location_, charactersToBeSkipped(), Wanted::Inside);
    if (hasPrefix(text_.substr(position)))
        position += 2;
    const std::size_t first = position;
    std::uint64_t number = 0;
    for (; position < text_.size() && hexDigit(text_[position]) >= 0; ++position)
        number = std::min(largest, number * 16 + static_cast<unsigned>(hexDigit(text_[position])));
    if (position == first)
        return std::nullopt;
    location_ = position;
    return static_cast<std::uint32_t>(number);
}

}  // namespace zn
