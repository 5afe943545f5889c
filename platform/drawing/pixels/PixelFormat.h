#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "zarnic/platform/drawing/CGImage.h"

namespace zn {

/// Rounded halves up: channel * alpha / 255.
constexpr std::uint32_t premultiplied(std::uint32_t channel, std::uint32_t alpha) {
    return (channel * alpha * 2 + 255) / 510;
}

/// The straight channel that premultiplies back to the given one.
constexpr std::uint32_t straight(std::uint32_t channel, std::uint32_t alpha) {
    return alpha == 0 ? 0 : (channel * 510 + alpha) / (alpha * 2);
}

/// Brightness by the weights of ITU-R BT.601, rounded halves up; premultiplied, as the colours are.
constexpr std::uint32_t luma(std::uint32_t pixel) {
    const std::uint32_t red = pixel >> 16 & 0xFF, green = pixel >> 8 & 0xFF, blue = pixel & 0xFF;
    return (299 * red + 587 * green + 114 * blue + 500) / 1000;
}

/// How a caller's bitmap lays out its pixels: 8 bits a component, 32 bits a pixel with colour, 8
/// bits a pixel in grey.
class PixelFormat {
public:
    /// Absent for combinations that no bitmap has.
    static std::optional<PixelFormat> of(CGColorSpace space, std::uint32_t bitmapInfo);

    std::size_t bytesPerPixel() const { return gray_ ? 1 : 4; }
    /// Without alpha every pixel counts as opaque.
    bool hasAlpha() const { return alpha_ != Alpha::None; }

    /// One row of the caller's bytes to and from premultiplied native words.
    void read(const std::byte* row, std::span<std::uint32_t> pixels) const;
    void write(std::span<const std::uint32_t> pixels, std::byte* row) const;

private:
    enum class Alpha { None, Straight, Premultiplied };

    std::uint32_t readPixel(const std::byte* bytes) const;
    void writePixel(std::uint32_t pixel, std::byte* bytes) const;

    bool gray_ = false;
    Alpha alpha_ = Alpha::None;
    /// Where red, green, blue and alpha (or the unused byte) lie in memory.
    std::uint8_t red_ = 0, green_ = 1, blue_ = 2, fourth_ = 3;
};

}  // namespace zn
