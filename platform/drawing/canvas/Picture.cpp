#include "platform/drawing/canvas/Picture.h"

#include <cairo.h>

#include <algorithm>
#include <cstring>

namespace zn {

Picture::Picture(int width, int height, Format format)
    : width_(std::max(width, 1)),
      height_(std::max(height, 1)),
      format_(format),
      surface_(cairo_image_surface_create(
          format == Format::Color ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_A8, width_, height_)) {}

Picture::~Picture() {
    cairo_surface_destroy(surface_);
}

std::size_t Picture::stride() const {
    return static_cast<std::size_t>(cairo_image_surface_get_stride(surface_));
}

std::size_t Picture::byteCount() const {
    return stride() * static_cast<std::size_t>(height_);
}

std::uint8_t* Picture::bytes() const {
    cairo_surface_flush(surface_);
    return cairo_image_surface_get_data(surface_);
}

void Picture::copyPart(const PixelPart& part, int x, int y) {
    std::uint8_t* const pixels = bytes();
    if (!pixels)
        return;
    const auto at = [&](int column, int row) {
        return pixels + static_cast<std::size_t>(row) * stride() +
               static_cast<std::size_t>(column) * sizeof(std::uint32_t);
    };
    const auto length = static_cast<std::size_t>(part.width) * sizeof(std::uint32_t);
    // In the order in which no row is overwritten before it is read.
    for (int i = 0; i < part.height; ++i) {
        const int row = y > part.y ? part.height - 1 - i : i;
        std::memmove(at(x, y + row), at(part.x, part.y + row), length);
    }
    cairo_surface_mark_dirty_rectangle(surface_, x, y, part.width, part.height);
}

Ref<CGImage> Picture::makeImage() const {
    auto width = static_cast<std::size_t>(width_);
    auto height = static_cast<std::size_t>(height_);
    auto pixels = std::make_unique<std::uint32_t[]>(width * height);
    if (const std::uint8_t* source = bytes(); source && format_ == Format::Color)
        for (std::size_t row = 0; row < height; ++row)
            std::memcpy(&pixels[row * width], source + row * stride(), width * 4);
    return make<CGImage>(width, height, std::move(pixels));
}

}  // namespace zn
