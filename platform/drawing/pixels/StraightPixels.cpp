#include "platform/drawing/pixels/StraightPixels.h"

#include <bit>

namespace zn {

namespace {

constexpr std::uint32_t opaqueAlpha = 0xFF000000;
/// Every second byte, so that two channels are worked on at once.
constexpr std::uint32_t everySecond = 0x00FF00FF;

constexpr std::uint32_t wordOfRGBA(std::uint32_t bytes) {
    if constexpr (std::endian::native == std::endian::little)
        return (bytes & ~everySecond) | std::rotl(bytes & everySecond, 16);
    else
        return std::rotr(bytes, 8);
}

/// channel * alpha / 255 of two channels; a quotient by 255 is never half way between two numbers.
constexpr std::uint32_t scaled(std::uint32_t channels, std::uint32_t alpha) {
    const std::uint32_t product = channels * alpha + 0x00800080;
    return (product + (product >> 8 & everySecond)) >> 8 & everySecond;
}

constexpr std::uint32_t premultipliedWord(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    return alpha << 24 | scaled(pixel & everySecond, alpha) | scaled(pixel >> 8 & 0xFF, alpha) << 8;
}

bool allOpaque(std::span<const std::uint32_t> pixels, std::uint32_t alphaBits) {
    std::uint32_t common = alphaBits;
    for (const std::uint32_t pixel : pixels)
        common &= pixel;
    return common == alphaBits;
}

}  // namespace

bool premultiplyWords(std::span<std::uint32_t> pixels) {
    if (allOpaque(pixels, opaqueAlpha))
        return true;
    for (std::uint32_t& pixel : pixels)
        pixel = premultipliedWord(pixel);
    return false;
}

bool premultiplyRGBA(std::span<std::uint32_t> pixels) {
    constexpr std::uint32_t last =
        std::endian::native == std::endian::little ? opaqueAlpha : ~opaqueAlpha & 0xFF;
    const bool opaque = allOpaque(pixels, last);
    if (opaque)
        for (std::uint32_t& pixel : pixels)
            pixel = wordOfRGBA(pixel);
    else
        for (std::uint32_t& pixel : pixels)
            pixel = premultipliedWord(wordOfRGBA(pixel));
    return opaque;
}

}  // namespace zn
