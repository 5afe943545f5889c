#include "platform/layers/painting/LayerPainter.h"

#include <algorithm>

#include "platform/layers/painting/PaintCache.h"
#include "platform/layers/painting/PainterClip.h"

namespace zn {

std::vector<const PaintNode*> paintOrder(const PaintNode& node) {
    std::vector<const PaintNode*> order;
    order.reserve(node.childCount());
    bool level = true;
    for (std::size_t i = 0; i < node.childCount(); ++i) {
        const PaintNode& child = node.child(i);
        if (!child.look().visible())
            continue;
        level = level && child.look().zPosition == 0;
        order.push_back(&child);
    }
    if (!level)
        std::stable_sort(order.begin(), order.end(), [](const PaintNode* a, const PaintNode* b) {
            return a->look().zPosition < b->look().zPosition;
        });
    return order;
}

int ownPieceCount(const LayerState& state) {
    int count = state.hasBackground() + state.hasBorder() + (state.contents != nullptr) +
                (state.gradient != nullptr) + state.castsShadow();
    if (state.shape)
        count += (state.shape->fill.alpha > 0) + (state.shape->stroke.alpha > 0);
    return count;
}

namespace {

struct Pieces {
    /// What the layer draws itself.
    int own = 0;
    int sublayers = 0;
    int all() const { return own + sublayers; }
};

/// How many things are painted one over the other, counted up to where it no longer matters.
Pieces piecesOf(const PaintNode& node) {
    Pieces pieces;
    pieces.own = ownPieceCount(node.look());
    for (std::size_t i = 0; i < node.childCount() && pieces.all() < 2; ++i)
        pieces.sublayers += node.child(i).look().visible();
    return pieces;
}

}  // namespace

LayerPainter::LayerPainter(Canvas& canvas, const PaintSpace& space, const PixelRect& limits)
    : canvas_(canvas),
      space_(space),
      limits_(limits),
      clip_(intersection(enclosing(canvas.clipBox()), limits)) {}

bool LayerPainter::reaches(const PixelRect& rect) const {
    return !isEmpty(intersection(rect, clip_));
}

bool LayerPainter::reaches(const PaintNode& node) const {
    const LayerReach* known = space_.reachesKnown ? node.reach() : nullptr;
    return !known || reaches(known->all);
}

void LayerPainter::paintLayer(const PaintNode& node, const AffineTransform& parentToPixels,
                              double alpha) {
    const LayerState& state = node.look();
    if (!state.visible() || !reaches(node))
        return;
    ++painted_;
    LayerPlacement placement(state, parentToPixels, space_.scale);
    alpha *= std::min(state.opacity, 1.0);
    if (state.shouldRasterize && node.identity())
        paintRasterized(node, placement, alpha);
    else if (node.maskNode())
        paintMasked(node, placement, alpha);
    else if (alpha < 1 && piecesOf(node).all() > 1)
        paintGrouped(node, placement, alpha);
    else
        paintComposed(node, placement, alpha);
}

void LayerPainter::paintMasked(const PaintNode& node, const LayerPlacement& placement,
                               double alpha) {
    ClipScope scope(*this, node);
    canvas_.beginGroup();
    paintComposed(node, placement, 1);
    Group content = canvas_.endGroup();
    canvas_.beginGroup();
    paintLayer(*node.maskNode(), placement.exact, alpha);
    Group mask = canvas_.endGroup();
    canvas_.drawGroupThrough(content, mask);
}

void LayerPainter::paintGrouped(const PaintNode& node, const LayerPlacement& placement,
                                double alpha) {
    ClipScope scope(*this, node);
    canvas_.beginGroup();
    paintComposed(node, placement, 1);
    canvas_.drawGroup(canvas_.endGroup(), alpha);
}

void LayerPainter::paintRasterized(const PaintNode& node, const LayerPlacement& placement,
                                   double alpha) {
    PixelRect region = intersection(reachOf(node, placement, space_).all, limits_);
    if (isEmpty(region))
        return;
    auto draw = [&](const PixelRect& area) {
        auto picture = std::make_shared<Picture>(area.width, area.height, Picture::Format::Color);
        Canvas canvas(*picture, area.x, area.y);
        LayerPainter painter(canvas, space_, area);
        if (node.maskNode())
            painter.paintMasked(node, placement, 1);
        else
            painter.paintComposed(node, placement, 1);
        return picture;
    };
    LayerPicture kept = PaintCache::shared().layerPicture(
        {PaintCache::Kind::Raster, node, placement, region, 0, PaintCache::Fit::Exact}, draw);
    canvas_.drawPicture(*kept.picture, toRect(region), alpha);
}

void LayerPainter::paintComposed(const PaintNode& node, const LayerPlacement& placement,
                                 double alpha) {
    if (node.look().castsShadow() && !node.maskNode())
        paintShadow(node, placement, alpha);
    if (node.transition())
        paintTransition(node, placement, alpha);
    else
        paintClipped(node, placement, alpha);
}

void LayerPainter::paintInside(const PaintNode& node, const LayerPlacement& placement) {
    if (node.transition())
        paintTransition(node, placement, 1);
    else
        paintClipped(node, placement, 1);
}

void LayerPainter::paintClipped(const PaintNode& node, const LayerPlacement& placement,
                                double alpha) {
    const LayerState& state = node.look();
    if (!state.masksToBounds)
        return paintBody(node, placement, alpha, Corners::Round);
    ClipScope scope(*this);
    scope.cut(placement.pixelBox());
    if (scope.empty())
        return;
    bool square = placement.aligned && state.cornerRadius <= 0;
    if (square || clearOfCorners(placement, state.cornerRadius, clip_))
        paintBody(node, placement, alpha, Corners::Cut);
    else
        paintRounded(node, placement, alpha);
}

// Several pieces that were each cut by a smooth edge would shine through one another along it, so
// they are first painted whole, then cut once.
void LayerPainter::paintRounded(const PaintNode& node, const LayerPlacement& placement,
                                double alpha) {
    Pieces pieces = piecesOf(node);
    bool single = pieces.own == 1 && pieces.sublayers == 0;
    Group whole;
    if (!single) {
        canvas_.beginGroup();
        paintBody(node, placement, 1, Corners::Cut);
        whole = canvas_.endGroup();
    }
    Canvas::Saved saved(canvas_);
    canvas_.setSpace(placement.boxToPixels);
    canvas_.clipRoundedRect(placement.box, node.look().cornerRadius * placement.unit);
    canvas_.setSpace({});
    if (single)
        paintBody(node, placement, alpha, Corners::Cut);
    else
        canvas_.drawGroup(whole, alpha);
}

void LayerPainter::paintBody(const PaintNode& node, const LayerPlacement& placement, double alpha,
                             Corners corners) {
    const LayerState& state = node.look();
    if (reaches(ownReach(state, placement))) {
        paintBackground(state, placement, alpha, corners);
        paintGradient(state, placement, alpha, corners);
        paintContents(state, placement, alpha);
        paintShape(state, placement, alpha);
    }
    for (const PaintNode* child : paintOrder(node))
        paintLayer(*child, placement.exact, alpha);
    paintBorder(state, placement, alpha, corners);
}

void LayerPainter::paintAbove(const std::vector<const PaintNode*>& path,
                              const AffineTransform& parentToPixels) {
    paintPath(path, 0, parentToPixels);
}

void LayerPainter::paintPath(const std::vector<const PaintNode*>& path, std::size_t depth,
                             const AffineTransform& parentToPixels) {
    const PaintNode& node = *path[depth];
    if (depth + 1 == path.size())
        return paintLayer(node, parentToPixels, 1);
    ++painted_;
    LayerPlacement placement(node.look(), parentToPixels, space_.scale);
    ClipScope scope(*this);
    if (node.look().masksToBounds)
        scope.cut(placement.pixelBox());
    bool above = false;
    for (const PaintNode* child : paintOrder(node)) {
        if (child == path[depth + 1]) {
            above = true;
            paintPath(path, depth + 1, placement.exact);
        } else if (above) {
            paintLayer(*child, placement.exact, 1);
        } else {
            covered_ += reaches(*child);
        }
    }
    paintBorder(node.look(), placement, 1, Corners::Round);
}

}  // namespace zn
