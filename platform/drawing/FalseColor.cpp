#include "platform/drawing/FalseColor.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/drawing/PixelFormat.h"

namespace zn {

namespace {

/// Alpha, red, green and blue between 0 and 1, premultiplied.
std::array<double, 4> premultipliedParts(const CGColor& color) {
    const auto unit = [](double value) { return value > 0 ? std::min(value, 1.0) : 0.0; };
    const double alpha = unit(color.alpha);
    return {alpha, unit(color.red) * alpha, unit(color.green) * alpha, unit(color.blue) * alpha};
}

/// What each brightness becomes.
using Mixtures = std::array<std::uint32_t, 256>;

Mixtures mixturesOf(const CGColor& dark, const CGColor& light) {
    const auto from = premultipliedParts(dark), to = premultipliedParts(light);
    Mixtures mixtures{};
    for (std::size_t brightness = 0; brightness < mixtures.size(); ++brightness) {
        const double part = static_cast<double>(brightness) / 255;
        for (std::size_t i = 0; i < from.size(); ++i) {
            const double value = from[i] * (1 - part) + to[i] * part;
            mixtures[brightness] =
                mixtures[brightness] << 8 | static_cast<std::uint32_t>(value * 255 + 0.5);
        }
    }
    return mixtures;
}

std::uint32_t mixtureFor(std::uint32_t pixel, const Mixtures& mixtures) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0xFF)
        return mixtures[luma(pixel)];
    const std::uint32_t mixture = mixtures[std::min(straight(luma(pixel), alpha), 255U)];
    std::uint32_t result = 0;
    for (const int shift : {24, 16, 8, 0})
        result |= premultiplied(mixture >> shift & 0xFF, alpha) << shift;
    return result;
}

}  // namespace

Ref<CGImage> falseColored(const CGImage& image, const CGColor& dark, const CGColor& light) {
    const Mixtures mixtures = mixturesOf(dark, light);
    auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(image.pixels().size());
    std::ranges::transform(image.pixels(), pixels.get(),
                           [&](std::uint32_t pixel) { return mixtureFor(pixel, mixtures); });
    return make<CGImage>(image.width(), image.height(), std::move(pixels));
}

}  // namespace zn
