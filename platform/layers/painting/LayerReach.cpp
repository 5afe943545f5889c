#include <algorithm>
#include <cmath>

#include "platform/layers/painting/LayerContents.h"
#include "platform/layers/painting/LayerPlacement.h"

namespace zn {
namespace {

/// The box of a stroked path: sharp miters reach out to the limit of ten half widths.
Rect strokedBounds(const ShapeStyle& shape) {
    Rect bounds = shape.path.bounds();
    if (bounds.isNull() || shape.stroke.alpha <= 0 || shape.lineWidth <= 0)
        return bounds;
    double half = shape.lineWidth / 2;
    double reach = half * (shape.join == CGLineJoin::Miter ? 10 : std::numbers::sqrt2);
    return bounds.insetBy(-reach, -reach);
}

/// The shadow of something that fills the body, or of the path.
PixelRect shadowReach(const LayerState& state, const LayerPlacement& placement,
                      const PixelRect& body) {
    PixelRect source =
        state.shadowPath ? enclosing(placement.toPixels.apply(state.shadowPath->bounds())) : body;
    Point offset = placement.distance(state.shadowOffset);
    int blur = Picture::blurReach(state.shadowRadius * placement.pixelsPerPoint());
    PixelRect moved = enclosing(toRect(source).offsetBy(offset.x, offset.y));
    return isEmpty(source) ? PixelRect() : expanded(moved, blur, blur, blur, blur);
}

LayerReach measured(const PaintNode& node, const AffineTransform& parentToPixels,
                    const PaintSpace& space) {
    if (space.reachesKnown && node.reach())
        return *node.reach();
    if (!node.look().visible())
        return {};
    return reachOf(node, LayerPlacement(node.look(), parentToPixels, space.scale), space);
}

}  // namespace

PixelRect ownReach(const LayerState& state, const LayerPlacement& placement) {
    PixelRect reach;
    if (state.hasBackground() || state.hasBorder() || state.gradient)
        reach = placement.pixelBox();
    if (state.contents)
        reach = unite(reach, enclosing(placement.boxToPixels.apply(contentsBox(state, placement))));
    if (state.shape)
        if (Rect bounds = strokedBounds(*state.shape); !bounds.isNull())
            reach = unite(reach, enclosing(placement.toPixels.apply(bounds)));
    return reach;
}

LayerReach reachOf(const PaintNode& node, const LayerPlacement& placement,
                   const PaintSpace& space) {
    const LayerState& state = node.look();
    LayerReach reach;
    reach.own = ownReach(state, placement);
    reach.body = reach.own;
    for (std::size_t i = 0; i < node.childCount(); ++i)
        reach.body = unite(reach.body, measured(node.child(i), placement.exact, space).all);
    // Both contents move about inside the box.
    if (node.transition())
        reach.body = placement.pixelBox();
    if (state.masksToBounds)
        reach.body = intersection(reach.body, placement.pixelBox());
    if (const PaintNode* mask = node.maskNode())
        reach.body = intersection(reach.body, measured(*mask, placement.exact, space).all);
    reach.all = reach.body;
    if (state.castsShadow() && !node.maskNode())
        reach.all = unite(reach.all, shadowReach(state, placement, reach.body));
    return reach;
}

bool isPlainBox(const PaintNode& node, const LayerPlacement& placement, const PaintSpace& space) {
    const LayerState& state = node.look();
    if (!placement.aligned || state.backgroundColor.alpha < 1 || node.transition() || state.shape)
        return false;
    if (ownReach(state, placement) != placement.pixelBox() ||
        (state.contents && state.cornerRadius > 0))
        return false;
    for (std::size_t i = 0; i < node.childCount(); ++i) {
        PixelRect child = measured(node.child(i), placement.exact, space).all;
        if (!isEmpty(child) && !clearOfCorners(placement, state.cornerRadius, child))
            return false;
    }
    return true;
}

}  // namespace zn
