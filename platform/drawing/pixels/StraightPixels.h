#pragma once

#include <cstdint>
#include <span>

namespace zn {

/// Straight pixels, as files hold them, to premultiplied native words, in place and rounded halves
/// up. True when all were opaque.
bool premultiplyWords(std::span<std::uint32_t> pixels);
/// The same of bytes that lie red, green, blue, alpha in memory.
bool premultiplyRGBA(std::span<std::uint32_t> pixels);

}  // namespace zn
