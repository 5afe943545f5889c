#include <algorithm>
#include <cmath>

#include "platform/drawing/context/Compositing.h"

namespace zn {

namespace {

/// An image surface's pixels, reached by device place.
template <class Pixel>
class SurfacePixels {
public:
    explicit SurfacePixels(cairo_surface_t* surface)
        : data_(cairo_image_surface_get_data(surface)),
          stride_(cairo_image_surface_get_stride(surface)) {
        double x = 0;
        double y = 0;
        cairo_surface_get_device_offset(surface, &x, &y);
        // Groups begin at the clip's corner, a whole number of pixels in.
        left = -static_cast<int>(std::lround(x));
        top = -static_cast<int>(std::lround(y));
        right = left + cairo_image_surface_get_width(surface);
        bottom = top + cairo_image_surface_get_height(surface);
    }

    Pixel& at(int x, int y) const {
        return reinterpret_cast<Pixel*>(data_ + std::ptrdiff_t{y - top} * stride_)[x - left];
    }

    int left, top, right, bottom;

private:
    unsigned char* data_;
    int stride_;
};

CairoPattern drawGroup(cairo_t* cairo, cairo_content_t content, Coverage coverage, double alpha) {
    cairo_push_group_with_content(cairo, content);
    cairo_set_operator(cairo, CAIRO_OPERATOR_OVER);
    if (content == CAIRO_CONTENT_ALPHA)
        cairo_set_source_rgba(cairo, 0, 0, 0, 1);
    applyCoverage(cairo, coverage, alpha);
    return CairoPattern(cairo_pop_group(cairo));
}

cairo_surface_t* surfaceOf(const CairoPattern& pattern) {
    cairo_surface_t* surface = nullptr;
    cairo_pattern_get_surface(pattern.get(), &surface);
    if (surface == nullptr || cairo_surface_get_type(surface) != CAIRO_SURFACE_TYPE_IMAGE)
        return nullptr;
    cairo_surface_flush(surface);
    return surface;
}

int channel(std::uint32_t pixel, int shift) {
    return static_cast<int>(pixel >> shift & 0xFF);
}

int divide255(int product) {
    return (product * 2 + 255) / 510;
}

/// Sums the darkness of both: 1 - ((1 - destination) + (1 - source)), in premultiplied form.
std::uint32_t plusDarker(std::uint32_t destination, std::uint32_t source) {
    const int sourceAlpha = channel(source, 24), destinationAlpha = channel(destination, 24);
    const int alpha = std::min(255, sourceAlpha + destinationAlpha);
    auto result = static_cast<std::uint32_t>(alpha) << 24;
    for (const int shift : {16, 8, 0}) {
        const int darkness =
            destinationAlpha - channel(destination, shift) + sourceAlpha - channel(source, shift);
        result |= static_cast<std::uint32_t>(std::max(0, alpha - darkness)) << shift;
    }
    return result;
}

/// A Porter-Duff mode that looks at the destination, kept inside the shape: outside it (what the
/// coverage leaves) the destination stays. The source is already cut by the coverage.
std::uint32_t porterDuff(CGBlendMode mode, std::uint32_t destination, std::uint32_t source,
                         int coverage) {
    const bool keepsDestination =
        mode == CGBlendMode::DestinationIn || mode == CGBlendMode::DestinationAtop;
    const int kept = 255 - coverage + (keepsDestination ? channel(source, 24) : 0);
    const int inside = channel(destination, 24);
    const int added = mode == CGBlendMode::SourceIn        ? inside
                      : mode == CGBlendMode::DestinationIn ? 0
                                                           : 255 - inside;
    std::uint32_t result = 0;
    for (const int shift : {24, 16, 8, 0}) {
        const int value = divide255(channel(destination, shift) * kept) +
                          divide255(channel(source, shift) * added);
        result |= static_cast<std::uint32_t>(std::min(255, value)) << shift;
    }
    return result;
}

}  // namespace

void composePixels(CGContext::State& state, Coverage coverage, double alpha) {
    cairo_t* cairo = state.cairo.get();
    const CairoPattern source = drawGroup(cairo, CAIRO_CONTENT_COLOR_ALPHA, coverage, alpha);
    const CairoPattern shape = drawGroup(cairo, CAIRO_CONTENT_ALPHA, coverage, 1);
    cairo_surface_t* target = cairo_get_group_target(cairo);
    if (!surfaceOf(source) || !surfaceOf(shape))
        return;
    cairo_surface_flush(target);
    const SurfacePixels<std::uint32_t> from(surfaceOf(source));
    const SurfacePixels<std::uint8_t> cover(surfaceOf(shape));
    const SurfacePixels<std::uint32_t> to(target);
    const std::uint32_t filled =
        cairo_surface_get_content(target) == CAIRO_CONTENT_COLOR ? 0xFF000000 : 0;
    const CGBlendMode mode = state.graphics.blendMode;
    for (int y = std::max(from.top, to.top); y < std::min(from.bottom, to.bottom); ++y) {
        for (int x = std::max(from.left, to.left); x < std::min(from.right, to.right); ++x) {
            std::uint32_t& pixel = to.at(x, y);
            pixel |= filled;
            pixel = mode == CGBlendMode::PlusDarker
                        ? plusDarker(pixel, from.at(x, y))
                        : porterDuff(mode, pixel, from.at(x, y), cover.at(x, y));
        }
    }
    cairo_surface_mark_dirty(target);
}

}  // namespace zn
