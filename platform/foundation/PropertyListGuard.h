#pragma once

#include <string_view>

namespace zn {

/// Whether a parser that recurses, that makes a copy for each reference and whose keys end at their
/// first zero can safely read the bytes: containers nest at most 512 deep, a binary list does not
/// unfold to millions of nodes, and no key holds a zero. Bytes that are broken in other ways may
/// pass.
bool binaryPropertyListIsBounded(std::string_view bytes);
bool xmlPropertyListIsBounded(std::string_view text);

}  // namespace zn
