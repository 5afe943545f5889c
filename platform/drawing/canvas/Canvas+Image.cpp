#include <cairo.h>

#include <cmath>

#include "platform/drawing/canvas/Canvas.h"
#include "platform/drawing/context/CairoAccess.h"

namespace zn {
namespace {

/// A part of foreign pixels as a surface of its own, without a copy: what lies beside the part
/// does not bleed into it when it is stretched.
CairoSurface partSurface(const std::uint8_t* bytes, std::size_t stride, cairo_format_t format,
                         const PixelPart& part) {
    std::size_t pixelBytes = format == CAIRO_FORMAT_ARGB32 ? 4 : 1;
    const std::uint8_t* first = bytes + static_cast<std::size_t>(part.y) * stride +
                                static_cast<std::size_t>(part.x) * pixelBytes;
    // Cairo takes no const pixels, but a source is only read.
    return CairoSurface(cairo_image_surface_create_for_data(const_cast<std::uint8_t*>(first),
                                                            format, part.width, part.height,
                                                            static_cast<int>(stride)));
}

bool whole(double value) {
    return std::abs(value - std::round(value)) < 1e-6;
}

cairo_filter_t filterFor(cairo_t* cairo, const PixelPart& part, const Rect& destination) {
    cairo_matrix_t space;
    cairo_get_matrix(cairo, &space);
    double across = std::hypot(space.xx, space.yx) * destination.width() / part.width;
    double down = std::hypot(space.xy, space.yy) * destination.height() / part.height;
    if (across < 0.99 || down < 0.99)
        return CAIRO_FILTER_GOOD;
    double x = destination.minX(), y = destination.minY();
    cairo_user_to_device(cairo, &x, &y);
    bool turned = space.xy != 0 || space.yx != 0;
    bool exact = std::abs(across - 1) < 1e-6 && std::abs(down - 1) < 1e-6;
    return exact && !turned && whole(x) && whole(y) ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_BILINEAR;
}

CairoPattern stretched(cairo_t* cairo, cairo_surface_t* surface, const PixelPart& part,
                       const Rect& destination) {
    CairoPattern pattern(cairo_pattern_create_for_surface(surface));
    cairo_matrix_t toSource;
    cairo_matrix_init_scale(&toSource, part.width / destination.width(),
                            part.height / destination.height());
    cairo_matrix_translate(&toSource, -destination.minX(), -destination.minY());
    cairo_pattern_set_matrix(pattern.get(), &toSource);
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    cairo_pattern_set_filter(pattern.get(), filterFor(cairo, part, destination));
    return pattern;
}

bool drawable(const PixelPart& part, const Rect& destination) {
    return part.width > 0 && part.height > 0 && destination.width() > 0 && destination.height() > 0;
}

}  // namespace

void Canvas::drawImage(const CGImage& image, const PixelPart& part, const Rect& destination,
                       double alpha) {
    if (!drawable(part, destination))
        return;
    CairoSurface surface =
        partSurface(reinterpret_cast<const std::uint8_t*>(image.pixels().data()),
                    image.width() * sizeof(std::uint32_t), CAIRO_FORMAT_ARGB32, part);
    CairoPattern pattern = stretched(cairo_, surface.get(), part, destination);
    cairo_set_source(cairo_, pattern.get());
    fillSource(destination, alpha);
}

void Canvas::drawPicture(const Picture& picture, const Rect& destination, double alpha) {
    PixelPart whole{0, 0, picture.width(), picture.height()};
    if (!drawable(whole, destination))
        return;
    CairoPattern pattern = stretched(cairo_, picture.surface(), whole, destination);
    cairo_set_source(cairo_, pattern.get());
    fillSource(destination, alpha);
}

void Canvas::fillSource(const Rect& destination, double alpha) {
    addRect(cairo_, destination);
    if (alpha >= 1) {
        cairo_fill(cairo_);
    } else {
        cairo_save(cairo_);
        cairo_clip(cairo_);
        cairo_paint_with_alpha(cairo_, alpha);
        cairo_restore(cairo_);
    }
    // The pattern must not outlive the pixels it borrows.
    cairo_set_source_rgba(cairo_, 0, 0, 0, 0);
}

void Canvas::fillThrough(const Picture& coverage, const PixelPart& part, const Rect& destination,
                         const CGColor& color) {
    if (!drawable(part, destination) || !coverage.bytes())
        return;
    CairoSurface surface = partSurface(coverage.bytes(), coverage.stride(), CAIRO_FORMAT_A8, part);
    CairoPattern pattern = stretched(cairo_, surface.get(), part, destination);
    cairo_save(cairo_);
    clipRect(destination);
    setSource(cairo_, color);
    cairo_mask(cairo_, pattern.get());
    cairo_restore(cairo_);
}

void Canvas::fillGradient(const Rect& rect, double radius, const CGGradient& gradient, Point start,
                          Point end, double alpha) {
    CairoPattern pattern(cairo_pattern_create_linear(start.x, start.y, end.x, end.y));
    std::size_t count = gradient.colors.size();
    for (std::size_t i = 0; i < count; ++i) {
        const CGColor& color = gradient.colors[i];
        double even = count > 1 ? static_cast<double>(i) / static_cast<double>(count - 1) : 0;
        double place = gradient.locations.size() == count ? gradient.locations[i] : even;
        cairo_pattern_add_color_stop_rgba(pattern.get(), place, color.red, color.green, color.blue,
                                          color.alpha * alpha);
    }
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    addRoundedRect(rect, radius);
    cairo_set_source(cairo_, pattern.get());
    cairo_fill(cairo_);
}

}  // namespace zn
