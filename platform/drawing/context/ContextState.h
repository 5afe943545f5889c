#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/drawing/context/CairoAccess.h"
#include "platform/drawing/pixels/PixelFormat.h"

namespace zn {

struct ContextShadow {
    Size offset;
    double blur;
    CGColor color;
};

/// What `saveGState` keeps beside Cairo's own state (transform, clip, line settings).
struct GraphicsState {
    CGColor fillColor{0, 0, 0, 1};
    CGColor strokeColor{0, 0, 0, 1};
    double alpha = 1;
    CGBlendMode blendMode = CGBlendMode::Normal;
    CGInterpolationQuality interpolation = CGInterpolationQuality::Default;
    std::optional<ContextShadow> shadow;
    /// False once the transform has flattened everything: Cairo would refuse it for good.
    bool drawable = true;
};

struct SavedState {
    GraphicsState graphics;
    bool beginsLayer = false;
    double layerAlpha = 1;
};

/// The caller's memory that a bitmap context fills.
struct BitmapBuffer {
    std::byte* bytes;
    std::size_t bytesPerRow;
    PixelFormat format;
};

struct CGContext::State {
    State(CairoSurface surface, const cairo_matrix_t& base, double scale, bool opaque);

    /// Those that the surface draws on, where it has none of its own.
    std::unique_ptr<std::uint32_t[]> pixels;
    CairoSurface surface;
    CairoHandle cairo;
    cairo_matrix_t base;
    double scale;
    bool opaque;
    GraphicsState graphics;
    std::vector<SavedState> saved;
    std::optional<BitmapBuffer> bitmap;

    /// Pixels grow downward with user space.
    bool flipped() const { return base.yy > 0; }
};

}  // namespace zn
