#pragma once

#include <string_view>

namespace zn {

/// Whether the whole text matches the ICU regular expression without flags; false for an empty
/// one. Throws `NSInvalidArgumentException` for one that is not valid or that takes too much time
/// or memory on this text.
bool matchesWholly(std::string_view text, std::string_view expression);

}  // namespace zn
