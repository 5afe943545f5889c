#pragma once

namespace zn {

/// Keys of text attributes, whose values are the `UIFont` and the `UIColor` to draw with.
inline constexpr const char* NSFontAttributeName = "NSFont";
inline constexpr const char* NSForegroundColorAttributeName = "NSColor";

}  // namespace zn
