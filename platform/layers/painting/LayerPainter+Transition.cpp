#include <cmath>

#include "platform/layers/painting/LayerPainter.h"
#include "platform/layers/painting/PainterClip.h"

namespace zn {
namespace {

/// Which way things move on the screen, in widths and heights. The names are of a y-up space.
Point directionOf(CATransitionSubtype subtype) {
    switch (subtype) {
        case CATransitionSubtype::FromRight:
            return {-1, 0};
        case CATransitionSubtype::FromLeft:
            return {1, 0};
        case CATransitionSubtype::FromTop:
            return {0, -1};
        case CATransitionSubtype::FromBottom:
            return {0, 1};
    }
    return {};
}

}  // namespace

void LayerPainter::paintTransition(const PaintNode& node, const LayerPlacement& placement,
                                   double alpha) {
    ClipScope scope(*this);
    scope.cut(placement.pixelBox());
    if (scope.empty())
        return;
    if (node.transition()->type == CATransitionType::Fade)
        return paintFade(node, placement, alpha);
    if (alpha >= 1)
        return paintSlide(node, placement);
    canvas_.beginGroup();
    paintSlide(node, placement);
    canvas_.drawGroup(canvas_.endGroup(), alpha);
}

// The two weights add up to one, so what is alike in both pictures stays as it is.
void LayerPainter::paintFade(const PaintNode& node, const LayerPlacement& placement, double alpha) {
    const TransitionFrame& frame = *node.transition();
    canvas_.beginGroup();
    paintBefore(frame, placement, {}, 1 - frame.progress);
    canvas_.beginGroup();
    paintMoved(node, placement, {});
    canvas_.drawGroup(canvas_.endGroup(), frame.progress, Canvas::Blend::Add);
    canvas_.drawGroup(canvas_.endGroup(), alpha);
}

void LayerPainter::paintSlide(const PaintNode& node, const LayerPlacement& placement) {
    const TransitionFrame& frame = *node.transition();
    Point way = directionOf(frame.subtype);
    Size size = node.look().bounds.size;
    double t = frame.progress;
    Point entering{way.x * size.width * (t - 1), way.y * size.height * (t - 1)};
    Point leaving{way.x * size.width * t, way.y * size.height * t};
    if (frame.type == CATransitionType::Reveal) {
        paintMoved(node, placement, {});
        paintBefore(frame, placement, leaving, 1);
        return;
    }
    paintBefore(frame, placement, frame.type == CATransitionType::Push ? leaving : Point(), 1);
    paintMoved(node, placement, entering);
}

void LayerPainter::paintMoved(const PaintNode& node, const LayerPlacement& placement,
                              Point offset) {
    // Moved layers are not where they are known to be.
    PaintSpace space = space_;
    space.reachesKnown = space.reachesKnown && offset == Point();
    LayerPlacement moved = placement.movedBy(node.look(), offset, space_.scale);
    LayerPainter painter(canvas_, space, clip_);
    painter.paintClipped(node, moved, 1);
    painted_ += painter.painted_;
}

void LayerPainter::paintBefore(const TransitionFrame& frame, const LayerPlacement& placement,
                               Point offset, double alpha) {
    Rect place = placement.box.offsetBy(offset.x * placement.unit, offset.y * placement.unit);
    if (placement.aligned)
        place.origin = {std::floor(place.origin.x + 0.5), std::floor(place.origin.y + 0.5)};
    Canvas::Saved saved(canvas_);
    canvas_.setSpace(placement.boxToPixels);
    canvas_.drawPicture(*frame.before, place, alpha);
}

}  // namespace zn
