#pragma once

#include <iomanip>
#include <sstream>
#include <string>

#include "zarnic/platform/drawing/CGContext.h"

namespace zn {

/// Pixels of a picture as text ("ff8000ff" is alpha, red, green, blue), for readable failures.
inline std::string pixelText(std::uint32_t pixel) {
    std::ostringstream text;
    text << std::hex << std::setw(8) << std::setfill('0') << pixel;
    return text.str();
}

inline std::string pixelAt(const Ref<CGImage>& image, std::size_t x, std::size_t y) {
    return image && x < image->width() && y < image->height()
               ? pixelText(image->pixels()[y * image->width() + x])
               : "none";
}

inline std::string pixelAt(const Ref<CGContext>& context, std::size_t x, std::size_t y) {
    return pixelAt(context->makeImage(), x, y);
}

inline Ref<CGImage> imageOf(std::size_t width, std::size_t height,
                            std::initializer_list<std::uint32_t> pixels) {
    auto copy = std::make_unique<std::uint32_t[]>(width * height);
    std::copy(pixels.begin(), pixels.end(), copy.get());
    return make<CGImage>(width, height, std::move(copy));
}

inline constexpr CGColor red{1, 0, 0, 1}, green{0, 1, 0, 1}, blue{0, 0, 1, 1}, white{1, 1, 1, 1},
    black{0, 0, 0, 1};

}  // namespace zn
