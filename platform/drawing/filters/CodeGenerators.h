#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "zarnic/platform/drawing/CGImage.h"

namespace zn {

/// Codes as pictures, black on white. Null for an empty message and one that cannot be held.

/// A pixel a module, no margin; `level` is `L`, `M`, `Q` or `H`, anything else is `M`.
Ref<CGImage> qrCode(std::span<const std::byte> message, std::string_view level);

/// A pixel a module, `quietSpace` white pixels on every side, bars `height` pixels high.
Ref<CGImage> code128(std::span<const std::byte> message, int quietSpace, int height);
inline constexpr std::size_t longestCode128 = 80;

}  // namespace zn
