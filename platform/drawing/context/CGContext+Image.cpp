#include <algorithm>

#include "platform/drawing/context/Compositing.h"
#include "platform/drawing/context/NearestNeighbor.h"

namespace zn {

namespace {

/// Where the image's rows and columns lie: pixel places (y downward) to user space.
AffineTransform imageToUser(const Rect& rect, const CGImage& image, bool upright) {
    const double sx = rect.width() / static_cast<double>(image.width());
    const double sy = rect.height() / static_cast<double>(image.height());
    if (upright)
        return {sx, 0, 0, sy, rect.minX(), rect.minY()};
    return {sx, 0, 0, -sy, rect.minX(), rect.maxY()};
}

cairo_filter_t filterFor(CGInterpolationQuality quality) {
    switch (quality) {
        case CGInterpolationQuality::None:
            return CAIRO_FILTER_NEAREST;
        case CGInterpolationQuality::Low:
            return CAIRO_FILTER_BILINEAR;
        default:
            // Bilinear until an image shrinks below three quarters, then an average of what falls
            // into each pixel.
            return CAIRO_FILTER_GOOD;
    }
}

/// Nearest-neighbour sampling at pixel centres, exactly: Cairo's own keeps the scale as a 16.16
/// number and breaks ties the other way, which shifts the edges of bar codes. The result has one
/// pixel for each device pixel inside `box`.
CairoSurface sampled(const CGImage& image, const cairo_matrix_t& toDevice, const Rect& box) {
    const int left = static_cast<int>(box.minX()), top = static_cast<int>(box.minY());
    const int right = static_cast<int>(box.maxX()), bottom = static_cast<int>(box.maxY());
    CairoSurface surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, right - left, bottom - top));
    unsigned char* data = cairo_image_surface_get_data(surface.get());
    if (data == nullptr)
        return nullptr;
    const auto columns = nearestSamples(left, right, toDevice.x0, toDevice.xx, image.width());
    const auto rows = nearestSamples(top, bottom, toDevice.y0, toDevice.yy, image.height());
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface.get());
    for (std::size_t y = 0; y < rows.size(); ++y) {
        auto* to = reinterpret_cast<std::uint32_t*>(data + static_cast<std::ptrdiff_t>(y) * stride);
        const std::uint32_t* from = image.pixels().data() + rows[y] * image.width();
        for (std::size_t x = 0; x < columns.size(); ++x)
            to[x] = from[columns[x]];
    }
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

/// The visible part of a device-space box, in whole pixels.
Rect visibleBox(cairo_t* cairo, const Rect& box) {
    const CairoSave save(cairo);
    cairo_identity_matrix(cairo);
    double left = 0, top = 0, right = 0, bottom = 0;
    cairo_clip_extents(cairo, &left, &top, &right, &bottom);
    return box.intersection({left, top, right - left, bottom - top}).integral();
}

/// Makes the image the source, with the matrix mapping its pixels to user space.
bool setImageSource(CGContext::State& state, const Ref<CGImage>& image) {
    cairo_t* cairo = state.cairo.get();
    const CairoSurface surface = surfaceOfImage(image);
    if (!surface)
        return false;
    cairo_set_source_surface(cairo, surface.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cairo), filterFor(state.graphics.interpolation));
    // Without it the image's border would fade into nothing.
    cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_PAD);
    return true;
}

bool setSampledSource(CGContext::State& state, const Ref<CGImage>& image) {
    cairo_t* cairo = state.cairo.get();
    cairo_matrix_t toDevice;
    cairo_get_matrix(cairo, &toDevice);
    const Rect whole{0, 0, static_cast<double>(image->width()),
                     static_cast<double>(image->height())};
    const Rect box = visibleBox(cairo, fromCairo(toDevice).apply(whole));
    if (box.isEmpty())
        return false;
    const CairoSurface surface = sampled(*image, toDevice, box);
    if (!surface)
        return false;
    cairo_identity_matrix(cairo);
    cairo_set_source_surface(cairo, surface.get(), box.minX(), box.minY());
    cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_NEAREST);
    cairo_set_matrix(cairo, &toDevice);
    return true;
}

void drawImageWith(CGContext& context, const Rect& rect, const Ref<CGImage>& image, bool upright) {
    CGContext::State& state = context.state();
    context.beginPath();
    if (!state.graphics.drawable || !image || rect.isEmpty())
        return;
    cairo_t* cairo = state.cairo.get();
    const CairoSave save(cairo);
    const cairo_matrix_t placement = toCairo(imageToUser(rect, *image, upright));
    cairo_transform(cairo, &placement);
    cairo_matrix_t toDevice;
    cairo_get_matrix(cairo, &toDevice);
    // Sides beyond what Cairo takes can still be sampled.
    const bool oversized = std::max(image->width(), image->height()) > longestSurfaceSide;
    const bool sampledExactly =
        (oversized || state.graphics.interpolation == CGInterpolationQuality::None) &&
        toDevice.xy == 0 && toDevice.yx == 0;
    if (!(sampledExactly ? setSampledSource(state, image) : setImageSource(state, image)))
        return;
    cairo_rectangle(cairo, 0, 0, static_cast<double>(image->width()),
                    static_cast<double>(image->height()));
    compose(state, Coverage::Fill, state.graphics.alpha);
    cairo_new_path(cairo);
}

}  // namespace

void CGContext::drawImage(const Rect& rect, const Ref<CGImage>& image) {
    drawImageWith(*this, rect, image, false);
}

void CGContext::drawImageUpright(const Rect& rect, const Ref<CGImage>& image) {
    drawImageWith(*this, rect, image, true);
}

}  // namespace zn
