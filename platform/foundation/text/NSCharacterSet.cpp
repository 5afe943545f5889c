#include "zarnic/platform/foundation/NSCharacterSet.h"

#include <algorithm>

#include "platform/foundation/text/Utf8.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {

NSCharacterSet NSCharacterSet::charactersInString(std::string_view characters) {
    NSCharacterSet set;
    for (std::size_t position = 0; position < characters.size();) {
        const char32_t character = nextCharacter(characters, position);
        if (character < set.ascii_.size())
            set.ascii_.set(character);
        else if (character != invalidCharacter)
            set.others_.push_back(character);
    }
    std::sort(set.others_.begin(), set.others_.end());
    return set;
}

NSCharacterSet NSCharacterSet::whitespaceAndNewlines() {
    constexpr char32_t lastOne = 0x3000;
    NSCharacterSet set;
    for (char32_t character = 0; character <= lastOne; ++character) {
        if (!isWhitespaceOrNewline(character))
            continue;
        if (character < set.ascii_.size())
            set.ascii_.set(character);
        else
            set.others_.push_back(character);
    }
    return set;
}

bool NSCharacterSet::contains(char32_t character) const noexcept {
    if (character < ascii_.size())
        return ascii_[character];
    return std::binary_search(others_.begin(), others_.end(), character);
}

}  // namespace zn
