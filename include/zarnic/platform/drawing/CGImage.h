#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/foundation/Class.h"

namespace zn {

enum class CGColorSpace { DeviceGray, DeviceRGB };

/// Immutable pixels: 32-bit words 0xAARRGGBB in native byte order, colours premultiplied, rows
/// from the top. Safe from any thread.
class ZN_EXPORT CGImage final : public NSObject {
    ZN_OBJECT(CGImage, NSObject)
public:
    /// Whether every pixel has full alpha.
    enum class Opacity : std::int8_t { Unknown, Opaque, Translucent };

    /// Takes the pixels over; `pixels` holds `width * height` words. An unknown opacity is found
    /// when it is asked for.
    CGImage(std::size_t width, std::size_t height, std::unique_ptr<std::uint32_t[]> pixels,
            Opacity opacity = Opacity::Unknown);
    ~CGImage() override;

    /// A copy of a bitmap's bytes: 8 bits a component; `bitmapInfo` as for `CGContext::bitmap`.
    /// Null for a format that cannot be, a side of 0, rows that overlap or too few bytes.
    static Ref<CGImage> imageWithBytes(std::span<const std::byte> bytes, std::size_t width,
                                       std::size_t height, std::size_t bytesPerRow,
                                       CGColorSpace space, std::uint32_t bitmapInfo);

    std::size_t width() const { return width_; }
    std::size_t height() const { return height_; }
    std::span<const std::uint32_t> pixels() const { return {pixels_.get(), width_ * height_}; }
    std::size_t byteCount() const { return width_ * height_ * sizeof(std::uint32_t); }
    /// Every pixel has full alpha.
    bool opaque() const;

    /// The part inside the rectangle (pixels, top-left origin, made integral, cut to the image);
    /// null when they do not meet.
    Ref<CGImage> imageInRect(const Rect& rect) const;

private:
    std::size_t width_;
    std::size_t height_;
    std::unique_ptr<std::uint32_t[]> pixels_;
    mutable std::atomic<Opacity> opacity_;
};

}  // namespace zn
