#include <algorithm>
#include <array>
#include <cmath>

#include "platform/layers/painting/LayerPainter.h"
#include "platform/layers/painting/PaintCache.h"

namespace zn {
namespace {

/// The rectangle that a path is, or the null one.
Rect asRect(const CGPath& path) {
    Rect bounds = path.bounds();
    return !bounds.isNull() && path == CGPath::rect(bounds) ? bounds : Rect::null();
}

/// One side of a picture of which only the middle pixel is stretched.
struct Stretch {
    std::array<int, 4> source;
    std::array<double, 4> destination;
};

Stretch stretchSide(int pictureSide, double start, double length) {
    int middle = pictureSide / 2;
    double tail = pictureSide - middle - 1;
    return {{0, middle, middle + 1, pictureSide},
            {start, start + middle, start + length - tail, start + length}};
}

/// The layer whose inside is the silhouette, and how opaque it is there.
struct Caster {
    const PaintNode* node;
    LayerPlacement placement;
    double alpha;
};

/// The one sublayer that shows; null when there are more or none.
const PaintNode* onlyVisibleChild(const PaintNode& node) {
    const PaintNode* only = nullptr;
    for (std::size_t i = 0; i < node.childCount(); ++i) {
        if (!node.child(i).look().visible())
            continue;
        if (only)
            return nullptr;
        only = &node.child(i);
    }
    return only;
}

/// Down through layers that merely hold another one: a shadow blurred from that one's inside stays
/// good while it fades.
Caster casterOf(const PaintNode& node, const LayerPlacement& placement, const PaintSpace& space) {
    Caster caster{&node, placement, 1};
    while (!caster.node->transition() &&
           ownPieceCount(caster.node->look()) == (caster.node == &node ? 1 : 0)) {
        const PaintNode* child = onlyVisibleChild(*caster.node);
        if (!child || child->maskNode() || child->look().castsShadow() || child->look().shadowPath)
            break;
        LayerPlacement inner(child->look(), caster.placement.exact, space.scale);
        const LayerState& holder = caster.node->look();
        bool cut = holder.masksToBounds &&
                   (holder.cornerRadius > 0 ||
                    !contains(caster.placement.pixelBox(), reachOf(*child, inner, space).body));
        if (cut)
            break;
        caster = {child, inner, caster.alpha * std::min(child->look().opacity, 1.0)};
    }
    return caster;
}

}  // namespace

void LayerPainter::paintShadow(const PaintNode& node, const LayerPlacement& placement,
                               double alpha) {
    const LayerState& state = node.look();
    CGColor color = state.shadowColor;
    color.alpha *= std::min(state.shadowOpacity, 1.0) * alpha;
    double sigma =
        std::clamp(state.shadowRadius * placement.pixelsPerPoint(), 0.0, Picture::LargestSigma);
    Rect pathBox = state.shadowPath ? asRect(*state.shadowPath) : Rect::null();
    Point offset = placement.distance(state.shadowOffset);
    if (!pathBox.isNull() && placement.aligned) {
        Rect box = toRect(enclosing(placement.toPixels.apply(pathBox)));
        paintBoxShadow(box.offsetBy(offset.x, offset.y), 0, sigma, color);
    } else if (!state.shadowPath && isPlainBox(node, placement, space_)) {
        double radius = std::min({state.cornerRadius * placement.unit, placement.box.width() / 2,
                                  placement.box.height() / 2});
        paintBoxShadow(placement.box.offsetBy(offset.x, offset.y), std::max(radius, 0.0), sigma,
                       color);
    } else if (state.shadowPath) {
        paintSilhouetteShadow(node, placement, offset, sigma, color);
    } else {
        Caster caster = casterOf(node, placement, space_);
        color.alpha *= caster.alpha;
        paintSilhouetteShadow(*caster.node, caster.placement, offset, sigma, color);
    }
}

// A blurred box has the same corners at any size that is large enough for them, and only one row
// and one column in the middle need stretching.
void LayerPainter::paintBoxShadow(const Rect& box, double radius, double sigma,
                                  const CGColor& color) {
    int margin = Picture::blurReach(sigma);
    int widest = 2 * (static_cast<int>(std::ceil(radius)) + margin) + 1;
    PixelRect pixels = enclosing(box);
    PixelRect shadow = expanded(pixels, margin, margin, margin, margin);
    if (!reaches(shadow))
        return;
    int width = std::min(pixels.width, widest), height = std::min(pixels.height, widest);
    auto picture = PaintCache::shared().boxShadow(width, height, radius, sigma);
    Stretch x = stretchSide(picture->width(), shadow.x, shadow.width);
    Stretch y = stretchSide(picture->height(), shadow.y, shadow.height);
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            canvas_.fillThrough(
                *picture,
                {x.source[column], y.source[row], x.source[column + 1] - x.source[column],
                 y.source[row + 1] - y.source[row]},
                {x.destination[column], y.destination[row],
                 x.destination[column + 1] - x.destination[column],
                 y.destination[row + 1] - y.destination[row]},
                color);
}

void LayerPainter::paintSilhouetteShadow(const PaintNode& node, const LayerPlacement& placement,
                                         Point offset, double sigma, const CGColor& color) {
    const LayerState& state = node.look();
    int margin = Picture::blurReach(sigma);
    PixelRect body = state.shadowPath
                         ? enclosing(placement.toPixels.apply(state.shadowPath->bounds()))
                         : reachOf(node, placement, space_).body;
    // Of something huge only what can be seen, and what the blur needs around it.
    if (area(body) > 2 * area(limits_)) {
        PixelRect seen = enclosing(toRect(limits_).offsetBy(-offset.x, -offset.y));
        body = intersection(body, expanded(seen, margin, margin, margin, margin));
    }
    PixelRect region = expanded(body, margin, margin, margin, margin);
    if (isEmpty(region) || !reaches(enclosing(toRect(region).offsetBy(offset.x, offset.y))))
        return;
    auto draw = [&](const PixelRect& area) {
        auto picture =
            std::make_shared<Picture>(area.width, area.height, Picture::Format::Coverage);
        {
            Canvas canvas(*picture, area.x, area.y);
            if (state.shadowPath) {
                canvas.setSpace(placement.toPixels);
                canvas.fillPath(*state.shadowPath, {0, 0, 0, 1});
            } else {
                LayerPainter(canvas, space_, area).paintInside(node, placement);
            }
        }
        picture->blur(sigma);
        return picture;
    };
    auto fit = space_.moving ? PaintCache::Fit::Near : PaintCache::Fit::Exact;
    LayerPicture shadow = PaintCache::shared().layerPicture(
        {PaintCache::Kind::Shadow, node, placement, region, sigma, fit}, draw);
    const Picture& picture = *shadow.picture;
    PixelRect place{shadow.x, shadow.y, picture.width(), picture.height()};
    canvas_.fillThrough(picture, {0, 0, picture.width(), picture.height()},
                        toRect(place).offsetBy(offset.x, offset.y), color);
}

}  // namespace zn
