#pragma once

#include <cairo.h>

#include <memory>

#include "zarnic/platform/drawing/CGContext.h"

namespace zn {

struct CairoDeleter {
    void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};
using CairoHandle = std::unique_ptr<cairo_t, CairoDeleter>;
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using CairoPattern = std::unique_ptr<cairo_pattern_t, CairoDeleter>;

/// No surface of Cairo's has a longer side, in pixels.
inline constexpr std::size_t longestSurfaceSide = 32767;

/// What the context draws with. Its matrix maps the context's user space; whoever changes its
/// state saves and restores it, and leaves no path behind.
cairo_t* cairoHandle(CGContext& context);

/// A context that draws on a surface of somebody else, `scale` pixels a point, y downward. It
/// keeps the surface alive.
Ref<CGContext> contextOnSurface(cairo_surface_t* surface, double scale);

/// An image's pixels as a surface, without copying them; the surface keeps the image alive and is
/// never drawn on. Null for an absent image or a side longer than `longestSurfaceSide`.
CairoSurface surfaceOfImage(const Ref<CGImage>& image);

/// The pixels of an image surface as an image, copied; `opaque` fills the alpha up.
Ref<CGImage> imageOfSurface(cairo_surface_t* surface, bool opaque);

/// Makes the colour the source, so that painted on nothing it leaves
/// round(component * alpha * 255). `alpha` multiplies the colour's own.
void setSource(cairo_t* cairo, const CGColor& color, double alpha = 1);

/// Sets the source and the operator as the context's state wants them for drawing a shape of that
/// colour (blend mode and alpha of the state).
void prepareSource(CGContext& context, const CGColor& color);

/// These extend Cairo's current path. Cairo keeps places as 24.8 fixed-point numbers, which wrap
/// around, so places beyond a million points are brought nearer, to where no screen reaches.
void moveTo(cairo_t* cairo, Point point);
void lineTo(cairo_t* cairo, Point point);
void curveTo(cairo_t* cairo, Point end, Point control1, Point control2);
void addPath(cairo_t* cairo, const CGPath& path);
void addRect(cairo_t* cairo, const Rect& rect);

cairo_matrix_t toCairo(const AffineTransform& transform);
AffineTransform fromCairo(const cairo_matrix_t& matrix);

/// Saves Cairo's state for a scope.
class CairoSave {
public:
    explicit CairoSave(cairo_t* cairo) : cairo_(cairo) { cairo_save(cairo_); }
    ~CairoSave() { cairo_restore(cairo_); }
    CairoSave(const CairoSave&) = delete;
    CairoSave& operator=(const CairoSave&) = delete;

private:
    cairo_t* cairo_;
};

}  // namespace zn
