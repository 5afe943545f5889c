#pragma once

#include <bitset>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

/// A set of Unicode characters, immutable. Membership of an ASCII character is one look-up.
class ZN_EXPORT NSCharacterSet {
public:
    /// The empty set.
    NSCharacterSet() = default;
    /// Bytes that are not UTF-8 stand for nothing.
    static NSCharacterSet charactersInString(std::string_view characters);
    static NSCharacterSet whitespaceAndNewlines();

    bool contains(char32_t character) const noexcept;
    bool empty() const noexcept { return ascii_.none() && others_.empty(); }

private:
    std::bitset<128> ascii_;
    /// Sorted.
    std::u32string others_;
};

}  // namespace zn
