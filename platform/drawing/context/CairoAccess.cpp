#include "platform/drawing/context/CairoAccess.h"

#include <algorithm>
#include <cstring>

#include "platform/drawing/context/Compositing.h"
#include "platform/drawing/context/ContextState.h"

namespace zn {

namespace {

const cairo_user_data_key_t imageKey{};

double bounded(double place) {
    constexpr double limit = 1e6;
    return std::isnan(place) ? 0 : std::clamp(place, -limit, limit);
}

double unit(double component) {
    return component > 0 ? std::min(component, 1.0) : 0;
}

double roundedByte(double component) {
    return std::floor(component * 255 + 0.5);
}

}  // namespace

cairo_t* cairoHandle(CGContext& context) {
    return context.state().cairo.get();
}

Ref<CGContext> contextOnSurface(cairo_surface_t* surface, double scale) {
    const bool opaque = cairo_surface_get_content(surface) == CAIRO_CONTENT_COLOR;
    const cairo_matrix_t base{scale, 0, 0, scale, 0, 0};
    return make<CGContext>(std::make_unique<CGContext::State>(
        CairoSurface(cairo_surface_reference(surface)), base, scale, opaque));
}

CairoSurface surfaceOfImage(const Ref<CGImage>& image) {
    if (!image || std::max(image->width(), image->height()) > longestSurfaceSide)
        return nullptr;
    // Cairo reads a source only; it has no constant form of this call.
    auto* pixels =
        reinterpret_cast<unsigned char*>(const_cast<std::uint32_t*>(image->pixels().data()));
    const auto width = static_cast<int>(image->width());
    CairoSurface surface(cairo_image_surface_create_for_data(
        pixels, CAIRO_FORMAT_ARGB32, width, static_cast<int>(image->height()), width * 4));
    auto owner = std::make_unique<Ref<CGImage>>(image);
    const auto release = [](void* data) { delete static_cast<Ref<CGImage>*>(data); };
    if (cairo_surface_set_user_data(surface.get(), &imageKey, owner.get(), release) !=
        CAIRO_STATUS_SUCCESS)
        return nullptr;
    owner.release();
    return surface;
}

Ref<CGImage> imageOfSurface(cairo_surface_t* surface, bool opaque) {
    cairo_surface_flush(surface);
    const auto width = static_cast<std::size_t>(cairo_image_surface_get_width(surface));
    const auto height = static_cast<std::size_t>(cairo_image_surface_get_height(surface));
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
    const unsigned char* data = cairo_image_surface_get_data(surface);
    if (data == nullptr)
        return nullptr;
    auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(width * height);
    for (std::size_t row = 0; row < height; ++row)
        std::memcpy(pixels.get() + row * width, data + row * stride, width * sizeof pixels[0]);
    if (opaque)
        for (std::size_t i = 0; i < width * height; ++i)
            pixels[i] |= 0xFF000000;
    return make<CGImage>(width, height, std::move(pixels));
}

void setSource(cairo_t* cairo, const CGColor& color, double alpha) {
    const double opacity = unit(color.alpha * alpha);
    const double alphaByte = roundedByte(opacity);
    if (alphaByte == 0) {
        cairo_set_source_rgba(cairo, 0, 0, 0, 0);
        return;
    }
    // Cairo multiplies by alpha and cuts to eight bits; given whole bytes it has nothing to cut.
    const auto component = [&](double value) {
        return roundedByte(unit(value) * opacity) / alphaByte;
    };
    cairo_set_source_rgba(cairo, component(color.red), component(color.green),
                          component(color.blue), alphaByte / 255);
}

void prepareSource(CGContext& context, const CGColor& color) {
    const CGContext::State& state = context.state();
    setSource(state.cairo.get(), color, state.graphics.alpha);
    cairo_set_operator(state.cairo.get(), cairoOperator(state.graphics.blendMode));
}

void moveTo(cairo_t* cairo, Point point) {
    cairo_move_to(cairo, bounded(point.x), bounded(point.y));
}

void lineTo(cairo_t* cairo, Point point) {
    cairo_line_to(cairo, bounded(point.x), bounded(point.y));
}

void curveTo(cairo_t* cairo, Point end, Point control1, Point control2) {
    cairo_curve_to(cairo, bounded(control1.x), bounded(control1.y), bounded(control2.x),
                   bounded(control2.y), bounded(end.x), bounded(end.y));
}

void addPath(cairo_t* cairo, const CGPath& path) {
    for (const auto& [verb, points] : path.elements()) {
        switch (verb) {
            case CGPath::Verb::Move:
                moveTo(cairo, points[0]);
                break;
            case CGPath::Verb::Line:
                lineTo(cairo, points[0]);
                break;
            case CGPath::Verb::Curve:
                curveTo(cairo, points[2], points[0], points[1]);
                break;
            case CGPath::Verb::Close:
                cairo_close_path(cairo);
                break;
        }
    }
}

void addRect(cairo_t* cairo, const Rect& rect) {
    if (rect.isNull())
        return;
    const double left = bounded(rect.minX());
    const double top = bounded(rect.minY());
    cairo_rectangle(cairo, left, top, bounded(rect.maxX()) - left, bounded(rect.maxY()) - top);
}

cairo_matrix_t toCairo(const AffineTransform& transform) {
    return {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty};
}

AffineTransform fromCairo(const cairo_matrix_t& matrix) {
    return {matrix.xx, matrix.yx, matrix.xy, matrix.yy, matrix.x0, matrix.y0};
}

}  // namespace zn
