#include "platform/drawing/filters/FalseColor.h"

#include <algorithm>
#include <array>
#include <bitset>

#include "platform/drawing/pixels/PixelFormat.h"

namespace zn {

namespace {

/// Alpha, red, green and blue between 0 and 1, premultiplied.
std::array<double, 4> premultipliedParts(const CGColor& color) {
    const auto unit = [](double value) { return value > 0 ? std::min(value, 1.0) : 0.0; };
    const double alpha = unit(color.alpha);
    return {alpha, unit(color.red) * alpha, unit(color.green) * alpha, unit(color.blue) * alpha};
}

/// What each brightness becomes; worked out when it is first met, for most pictures have few.
class Mixtures {
public:
    Mixtures(const CGColor& dark, const CGColor& light)
        : dark_(premultipliedParts(dark)), light_(premultipliedParts(light)) {}

    std::uint32_t operator[](std::uint32_t brightness) {
        if (!known_[brightness]) {
            known_[brightness] = true;
            mixtures_[brightness] = mixture(brightness / 255.0);
        }
        return mixtures_[brightness];
    }

private:
    std::uint32_t mixture(double part) const {
        std::uint32_t result = 0;
        for (std::size_t i = 0; i < dark_.size(); ++i) {
            const double value = dark_[i] * (1 - part) + light_[i] * part;
            result = result << 8 | static_cast<std::uint32_t>(value * 255 + 0.5);
        }
        return result;
    }

    std::array<double, 4> dark_;
    std::array<double, 4> light_;
    std::bitset<256> known_;
    std::array<std::uint32_t, 256> mixtures_{};
};

std::uint32_t mixtureFor(std::uint32_t pixel, Mixtures& mixtures) {
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
    Mixtures mixtures(dark, light);
    auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(image.pixels().size());
    std::ranges::transform(image.pixels(), pixels.get(),
                           [&](std::uint32_t pixel) { return mixtureFor(pixel, mixtures); });
    return make<CGImage>(image.width(), image.height(), std::move(pixels));
}

}  // namespace zn
