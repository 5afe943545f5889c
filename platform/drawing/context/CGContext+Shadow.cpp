#include <cmath>

#include "platform/drawing/context/Compositing.h"
#include "platform/drawing/pixels/Blur.h"

namespace zn {

namespace {

Rect deviceClip(cairo_t* cairo) {
    const CairoSave save(cairo);
    cairo_identity_matrix(cairo);
    double left = 0, top = 0, right = 0, bottom = 0;
    cairo_clip_extents(cairo, &left, &top, &right, &bottom);
    return {left, top, right - left, bottom - top};
}

/// The shape's box in device pixels; for a paint without shape, the clip's.
Rect deviceBox(cairo_t* cairo, Coverage coverage) {
    if (coverage == Coverage::Paint)
        return deviceClip(cairo);
    double left = 0, top = 0, right = 0, bottom = 0;
    if (coverage == Coverage::Stroke)
        cairo_stroke_extents(cairo, &left, &top, &right, &bottom);
    else
        cairo_fill_extents(cairo, &left, &top, &right, &bottom);
    cairo_matrix_t matrix;
    cairo_get_matrix(cairo, &matrix);
    return fromCairo(matrix).apply(Rect{left, top, right - left, bottom - top});
}

void copyStroke(cairo_t* from, cairo_t* to) {
    cairo_set_line_width(to, cairo_get_line_width(from));
    cairo_set_line_cap(to, cairo_get_line_cap(from));
    cairo_set_line_join(to, cairo_get_line_join(from));
    cairo_set_miter_limit(to, cairo_get_miter_limit(from));
    std::vector<double> lengths(static_cast<std::size_t>(cairo_get_dash_count(from)));
    double phase = 0;
    cairo_get_dash(from, lengths.data(), &phase);
    cairo_set_dash(to, lengths.data(), static_cast<int>(lengths.size()), phase);
}

/// How strongly the shape covers each pixel of the box.
CairoSurface shapeAlpha(cairo_t* cairo, Coverage coverage, double alpha, const Rect& box) {
    CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, static_cast<int>(box.width()),
                                                    static_cast<int>(box.height())));
    const CairoHandle shape(cairo_create(surface.get()));
    cairo_matrix_t matrix;
    cairo_get_matrix(cairo, &matrix);
    cairo_surface_set_device_offset(surface.get(), -box.minX(), -box.minY());
    cairo_set_matrix(shape.get(), &matrix);
    cairo_path_t* path = cairo_copy_path(cairo);
    cairo_append_path(shape.get(), path);
    cairo_path_destroy(path);
    copyStroke(cairo, shape.get());
    cairo_set_antialias(shape.get(), cairo_get_antialias(cairo));
    cairo_set_fill_rule(shape.get(), cairo_get_fill_rule(cairo));
    cairo_set_source(shape.get(), cairo_get_source(cairo));
    applyCoverage(shape.get(), coverage, alpha);
    return surface;
}

}  // namespace

void composeShadow(CGContext::State& state, Coverage coverage, double alpha) {
    cairo_t* cairo = state.cairo.get();
    const ContextShadow& shadow = *state.graphics.shadow;
    const double sigma = shadow.blur / 2 * state.scale;
    const double dx = shadow.offset.width * state.scale;
    const double dy = shadow.offset.height * state.scale * (state.flipped() ? 1 : -1);
    const double margin = std::ceil(blurReach(sigma));
    // Of the shape only what can throw a shadow into the clip matters.
    const Rect seen = deviceClip(cairo).offsetBy(-dx, -dy).insetBy(-margin, -margin);
    const Rect box =
        deviceBox(cairo, coverage).insetBy(-margin, -margin).intersection(seen).integral();
    if (box.isEmpty())
        return;
    const CairoSurface mask = shapeAlpha(cairo, coverage, alpha, box);
    blurAlpha(mask.get(), sigma);
    const CairoSave save(cairo);
    cairo_identity_matrix(cairo);
    // The mask carries the alpha of the state already.
    setSource(cairo, shadow.color);
    cairo_set_operator(cairo, CAIRO_OPERATOR_OVER);
    cairo_mask_surface(cairo, mask.get(), dx, dy);
}

}  // namespace zn
