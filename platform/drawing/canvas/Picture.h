#pragma once

#include <cstddef>
#include <cstdint>

#include "zarnic/platform/drawing/CGImage.h"

using cairo_surface_t = struct _cairo_surface;

namespace zn {

/// A whole-pixel part of a picture.
struct PixelPart {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// Pixels that change: premultiplied colours as in `CGImage`, or bare coverage, a byte a pixel.
/// Begins empty. One that there is no memory for keeps its size, and drawing on it does nothing.
class Picture {
public:
    enum class Format { Color, Coverage };

    Picture(int width, int height, Format format);
    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    int width() const { return width_; }
    int height() const { return height_; }
    Format format() const { return format_; }
    std::size_t byteCount() const;
    /// The first row; rows are `stride` bytes apart. Null without memory.
    std::uint8_t* bytes() const;
    std::size_t stride() const;

    /// Blurs coverage with a Gaussian; `sigma` in pixels, at most `LargestSigma`.
    void blur(double sigma);
    /// How far a blur spreads, in whole pixels.
    static int blurReach(double sigma);
    static constexpr double LargestSigma = 512;
    Ref<CGImage> makeImage() const;
    /// Copies pixels of colour, those of a part that lies inside, to another place inside.
    void copyPart(const PixelPart& part, int x, int y);

    cairo_surface_t* surface() const { return surface_; }

private:
    int width_;
    int height_;
    Format format_;
    cairo_surface_t* surface_;
};

}  // namespace zn
