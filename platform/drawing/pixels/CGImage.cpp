#include "zarnic/platform/drawing/CGImage.h"

#include <algorithm>

#include "platform/drawing/pixels/PixelFormat.h"

namespace zn {

CGImage::CGImage(std::size_t width, std::size_t height, std::unique_ptr<std::uint32_t[]> pixels,
                 Opacity opacity)
    : width_(width), height_(height), pixels_(std::move(pixels)), opacity_(opacity) {}

CGImage::~CGImage() = default;

Ref<CGImage> CGImage::imageWithBytes(std::span<const std::byte> bytes, std::size_t width,
                                     std::size_t height, std::size_t bytesPerRow,
                                     CGColorSpace space, std::uint32_t bitmapInfo) {
    const auto format = PixelFormat::of(space, bitmapInfo);
    if (!format || width == 0 || height == 0 || bytesPerRow / format->bytesPerPixel() < width ||
        bytes.size() < (width * format->bytesPerPixel()) ||
        (bytes.size() - width * format->bytesPerPixel()) / bytesPerRow < height - 1)
        return nullptr;
    auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(width * height);
    for (std::size_t row = 0; row < height; ++row)
        format->read(bytes.data() + row * bytesPerRow, {pixels.get() + row * width, width});
    return make<CGImage>(width, height, std::move(pixels));
}

bool CGImage::opaque() const {
    Opacity known = opacity_.load(std::memory_order_relaxed);
    if (known == Opacity::Unknown) {
        const bool full =
            std::ranges::all_of(pixels(), [](std::uint32_t pixel) { return pixel >> 24 == 0xFF; });
        known = full ? Opacity::Opaque : Opacity::Translucent;
        opacity_.store(known, std::memory_order_relaxed);
    }
    return known == Opacity::Opaque;
}

Ref<CGImage> CGImage::imageInRect(const Rect& rect) const {
    const Rect whole{0, 0, static_cast<double>(width_), static_cast<double>(height_)};
    const Rect part = rect.integral().intersection(whole);
    if (part.isEmpty())
        return nullptr;
    const auto left = static_cast<std::size_t>(part.minX());
    const auto top = static_cast<std::size_t>(part.minY());
    const auto width = static_cast<std::size_t>(part.width());
    const auto height = static_cast<std::size_t>(part.height());
    auto copy = std::make_unique_for_overwrite<std::uint32_t[]>(width * height);
    for (std::size_t row = 0; row < height; ++row)
        std::copy_n(pixels_.get() + (top + row) * width_ + left, width, copy.get() + row * width);
    return make<CGImage>(width, height, std::move(copy));
}

}  // namespace zn
