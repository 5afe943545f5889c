#include <algorithm>
#include <cmath>

#include "platform/layers/painting/LayerContents.h"
#include "platform/layers/painting/LayerPainter.h"
#include "platform/layers/painting/PaintCache.h"
#include "platform/layers/painting/PathTrim.h"

namespace zn {
namespace {

CGColor faded(CGColor color, double alpha) {
    color.alpha *= alpha;
    return color;
}

Point inUnits(const Rect& box, Point place) {
    return {box.minX() + place.x * box.width(), box.minY() + place.y * box.height()};
}

/// A box that something around cuts reaches beyond the cut, which would else smooth its edges
/// twice.
Rect beyondCut(const LayerPlacement& placement) {
    double margin = 2 * placement.unit / std::max(placement.pixelsPerPoint(), 1e-3);
    return placement.box.insetBy(-margin, -margin);
}

bool isShrunk(const PixelPart& part, const Rect& destination) {
    return destination.width() < part.width * 0.99 || destination.height() < part.height * 0.99;
}

}  // namespace

void LayerPainter::paintBackground(const LayerState& state, const LayerPlacement& placement,
                                   double alpha, Corners corners) {
    if (!state.hasBackground())
        return;
    double radius = corners == Corners::Round ? state.cornerRadius * placement.unit : 0;
    Rect box = corners == Corners::Round ? placement.box : beyondCut(placement);
    // Under an opaque border the fill ends half a pixel early, else it would shine through the
    // border's smooth outer edge.
    if (radius > 0 && state.hasBorder() && state.borderColor.alpha >= 1) {
        double inset = std::min(state.borderWidth * placement.unit / 2, 1.0);
        box = box.insetBy(inset, inset);
        radius = std::max(radius - inset, 0.0);
    }
    Canvas::Saved saved(canvas_);
    canvas_.setSpace(placement.boxToPixels);
    canvas_.fillRoundedRect(box, radius, faded(state.backgroundColor, alpha));
}

void LayerPainter::paintGradient(const LayerState& state, const LayerPlacement& placement,
                                 double alpha, Corners corners) {
    if (!state.gradient || state.gradient->colors.empty())
        return;
    const GradientStyle& style = *state.gradient;
    double radius = corners == Corners::Round ? state.cornerRadius * placement.unit : 0;
    Canvas::Saved saved(canvas_);
    canvas_.setSpace(placement.boxToPixels);
    const Rect& box = placement.box;
    Rect area = corners == Corners::Round ? box : beyondCut(placement);
    if (style.colors.size() == 1 || style.start == style.end)
        canvas_.fillRoundedRect(area, radius, faded(style.colors.back(), alpha));
    else
        canvas_.fillGradient(area, radius, {style.colors, style.locations},
                             inUnits(box, style.start), inUnits(box, style.end), alpha);
}

void LayerPainter::paintContents(const LayerState& state, const LayerPlacement& placement,
                                 double alpha) {
    if (!state.contents)
        return;
    Canvas::Saved saved(canvas_);
    canvas_.setSpace(placement.boxToPixels);
    for (const ContentsPart& part : contentsParts(state, placement))
        paintContentsPart(state.contents, part.source, part.destination, placement, alpha);
}

void LayerPainter::paintContentsPart(const Ref<CGImage>& image, const PixelPart& part,
                                     const Rect& destination, const LayerPlacement& placement,
                                     double alpha) {
    PixelRect pixels = enclosing(destination);
    bool keepScaled = placement.aligned && isShrunk(part, destination) &&
                      toRect(pixels) == destination && part.width * part.height > 4096;
    if (!keepScaled)
        return canvas_.drawImage(*image, part, destination, alpha);
    auto scaled = PaintCache::shared().scaledImage(image, part, pixels.width, pixels.height);
    canvas_.drawPicture(*scaled, destination, alpha);
}

void LayerPainter::paintShape(const LayerState& state, const LayerPlacement& placement,
                              double alpha) {
    if (!state.shape || state.shape->path.empty())
        return;
    const ShapeStyle& shape = *state.shape;
    Canvas::Saved saved(canvas_);
    canvas_.setSpace(placement.toPixels);
    if (shape.fill.alpha > 0)
        canvas_.fillPath(shape.path, faded(shape.fill, alpha));
    if (shape.stroke.alpha <= 0 || shape.lineWidth <= 0)
        return;
    StrokeStyle style{shape.lineWidth, shape.cap, shape.join, shape.dash, shape.dashPhase};
    canvas_.strokePath(trimmedPath(shape.path, shape.strokeStart, shape.strokeEnd), style,
                       faded(shape.stroke, alpha));
}

void LayerPainter::paintBorder(const LayerState& state, const LayerPlacement& placement,
                               double alpha, Corners corners) {
    if (!state.hasBorder() || !reaches(placement.pixelBox()))
        return;
    double width = state.borderWidth * placement.unit;
    if (placement.aligned)
        width = std::max(std::floor(width + 0.5), 1.0);
    const Rect& box = placement.box;
    double radius =
        std::min({state.cornerRadius * placement.unit, box.width() / 2, box.height() / 2});
    radius = std::max(radius, 0.0);
    width = std::min({width, box.width() / 2, box.height() / 2});
    Canvas::Saved saved(canvas_);
    canvas_.setSpace(placement.boxToPixels);
    bool round = corners == Corners::Round;
    canvas_.fillRing(round ? box : beyondCut(placement), round ? radius : 0,
                     box.insetBy(width, width), std::max(radius - width, 0.0),
                     faded(state.borderColor, alpha));
}

}  // namespace zn
