#include "platform/layers/painting/LayerPlacement.h"

#include <algorithm>
#include <cmath>

namespace zn {
namespace {

/// Halves go up, those too that arithmetic left a hair below: what is moved by whole pixels is then
/// rounded as before.
double nearest(double place) {
    constexpr double hair = 1e-7;
    return std::floor(place + 0.5 + hair);
}

bool close(double a, double b) {
    return std::abs(a - b) < 1e-9;
}

/// Edges to whole pixels; what has any extent keeps at least one.
Rect snapped(const Rect& rect) {
    double left = nearest(rect.minX()), top = nearest(rect.minY());
    double right = nearest(rect.maxX()), bottom = nearest(rect.maxY());
    if (right == left && rect.width() > 0)
        right += 1;
    if (bottom == top && rect.height() > 0)
        bottom += 1;
    return {left, top, right - left, bottom - top};
}

}  // namespace

LayerPlacement::LayerPlacement(const LayerState& state, const AffineTransform& parentToPixels,
                               double scale)
    : LayerPlacement(state.bounds, Exact{state.toSuperlayer().concat(parentToPixels)}, scale) {}

LayerPlacement LayerPlacement::movedBy(const LayerState& state, Point offset, double scale) const {
    return {state.bounds, Exact{AffineTransform::translation(offset.x, offset.y).concat(exact)},
            scale};
}

LayerPlacement::LayerPlacement(const Rect& bounds, const Exact& transform, double scale)
    : exact(transform.toPixels),
      aligned(close(exact.b, 0) && close(exact.c, 0) && close(exact.a, scale) &&
              close(exact.d, scale)),
      toPixels(exact),
      box(bounds),
      boxToPixels(exact),
      unit(1) {
    if (!aligned)
        return;
    box = snapped(exact.apply(bounds));
    toPixels = AffineTransform::translation(-bounds.origin.x, -bounds.origin.y)
                   .concat(AffineTransform::scale(scale, scale))
                   .concat(AffineTransform::translation(box.origin.x, box.origin.y));
    boxToPixels = {};
    unit = scale;
}

double LayerPlacement::pixelsPerPoint() const {
    return std::sqrt(std::abs(exact.a * exact.d - exact.b * exact.c));
}

Point LayerPlacement::distance(Size offset) const {
    Point moved{exact.a * offset.width + exact.c * offset.height,
                exact.b * offset.width + exact.d * offset.height};
    return aligned ? Point{nearest(moved.x), nearest(moved.y)} : moved;
}

bool clearOfCorners(const LayerPlacement& placement, double cornerRadius, const PixelRect& rect) {
    if (!placement.aligned)
        return false;
    double radius = std::max(cornerRadius * placement.unit, 0.0);
    Rect inside = toRect(rect);
    // The corner circle leaves this much of its square free.
    double corner = radius * (1 - std::sqrt(0.5)) + 1;
    return placement.box.insetBy(radius, 0).contains(inside) ||
           placement.box.insetBy(0, radius).contains(inside) ||
           (radius > 0 && placement.box.insetBy(corner, corner).contains(inside));
}

}  // namespace zn
