#pragma once

#include <string_view>

namespace zn {

/// Whether a parser that recurses and whose texts end at their first zero can safely read the XML
/// property list: containers nest at most 512 deep and no zero is in it. Text that is broken in
/// other ways may pass.
bool xmlPropertyListIsBounded(std::string_view text);

}  // namespace zn
