#include "platform/layers/screen/ContentShift.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace zn {
namespace {

constexpr double hair = 1e-9;

bool scrolledOnly(const LayerState& before, const LayerState& after) {
    if (before.bounds.origin == after.bounds.origin)
        return false;
    LayerState same = before;
    same.bounds.origin = after.bounds.origin;
    return compare(same, after) == LayerChange::None;
}

std::optional<PixelOffset> wholePixels(Point way) {
    const double x = std::round(way.x), y = std::round(way.y);
    constexpr double farthest = 1 << 20;
    if (std::abs(x - way.x) > hair || std::abs(y - way.y) > hair ||
        std::max(std::abs(x), std::abs(y)) > farthest)
        return std::nullopt;
    return PixelOffset{static_cast<int>(x), static_cast<int>(y)};
}

/// Neither mixes what is below it with what is behind it nor draws over it.
bool letsThrough(const PlacedLayer& place, const PixelRect& box) {
    const LayerState& state = place.layer->presented;
    return state.opacity >= 1 && !state.hasBorder() && !state.shouldRasterize &&
           !place.layer->mask && !place.layer->frame &&
           (!state.masksToBounds || clearOfCorners(*place.placement, state.cornerRadius, box));
}

bool drawsNothing(const LayerState& state) {
    return !state.hasBackground() && !state.contents && !state.gradient && !state.shape;
}

bool isOneColor(const PlacedLayer& place, const PixelRect& box) {
    const LayerState& state = place.layer->presented;
    return state.backgroundColor.alpha >= 1 && !state.contents && !state.gradient && !state.shape &&
           clearOfCorners(*place.placement, state.cornerRadius, box);
}

enum class Side { Behind, InFront };

/// Where the siblings of a child reach into the rectangle.
std::vector<PixelRect> siblingsAt(const CommittedLayer& parent, const CommittedLayer& child,
                                  Side side, const PixelRect& rect) {
    std::vector<PixelRect> found;
    bool passed = false;
    for (const auto& each : parent.children) {
        if (each.get() == &child) {
            passed = true;
            continue;
        }
        const double level = each->presented.zPosition, own = child.presented.zPosition;
        const bool inFront = level > own || (level == own && passed);
        const PixelRect part = intersection(each->lastReach.all, rect);
        if (inFront == (side == Side::InFront) && !isEmpty(part))
            found.push_back(part);
    }
    return found;
}

/// What shows where the layer's sublayers leave room: one colour all over the box.
bool hasPlainGround(const LayerPath& path, const PixelRect& box) {
    for (std::size_t depth = path.size(); depth-- > 0;) {
        if (isOneColor(path[depth], box))
            return true;
        if (!drawsNothing(path[depth].layer->presented))
            return false;
        const bool lies =
            depth > 0 &&
            !siblingsAt(*path[depth - 1].layer, *path[depth].layer, Side::Behind, box).empty();
        if (lies)
            return false;
    }
    // The screen itself is black.
    return true;
}

}  // namespace

PixelRect ContentShift::moved(const PixelRect& rect) const {
    return intersection(zn::offset(intersection(rect, box), offset), box);
}

std::vector<PixelRect> ContentShift::exposed() const {
    const PixelRect kept = moved(box);
    std::vector<PixelRect> parts;
    const int above = kept.y - box.y, below = box.y + box.height - kept.y - kept.height;
    const int before = kept.x - box.x, behind = box.x + box.width - kept.x - kept.width;
    parts.push_back({box.x, box.y, box.width, above});
    parts.push_back({box.x, kept.y + kept.height, box.width, below});
    parts.push_back({box.x, kept.y, before, kept.height});
    parts.push_back({kept.x + kept.width, kept.y, behind, kept.height});
    std::erase_if(parts, isEmpty);
    return parts;
}

void ContentShift::apply(Picture& screen) const {
    const PixelRect to = moved(box);
    screen.copyPart({to.x - offset.x, to.y - offset.y, to.width, to.height}, to.x, to.y);
}

std::optional<ContentShift> contentShift(const LayerPath& path, const LayerState& before,
                                         const PixelRect& clip) {
    const CommittedLayer& layer = *path.back().layer;
    const LayerPlacement& placement = *path.back().placement;
    const LayerState& now = layer.presented;
    if (!placement.aligned || !now.masksToBounds || !scrolledOnly(before, now))
        return std::nullopt;
    const Point from = before.bounds.origin, to = now.bounds.origin;
    const auto pixels =
        wholePixels({(from.x - to.x) * placement.unit, (from.y - to.y) * placement.unit});
    const PixelRect box = intersection(placement.pixelBox(), clip);
    if (!pixels || std::abs(pixels->x) >= box.width || std::abs(pixels->y) >= box.height)
        return std::nullopt;
    const bool through =
        std::ranges::all_of(path, [&](const auto& each) { return letsThrough(each, box); });
    if (!through || !hasPlainGround(path, box))
        return std::nullopt;
    return ContentShift{box, *pixels};
}

std::vector<PixelRect> overlaysOf(const LayerPath& path, const PixelRect& rect) {
    std::vector<PixelRect> overlays;
    for (std::size_t depth = 1; depth < path.size(); ++depth)
        std::ranges::copy(
            siblingsAt(*path[depth - 1].layer, *path[depth].layer, Side::InFront, rect),
            std::back_inserter(overlays));
    return overlays;
}

}  // namespace zn
