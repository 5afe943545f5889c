#include "platform/layers/DamagePass.h"

namespace zn {
namespace {

bool castsOwnShape(const CommittedLayer& layer) {
    return layer.presented.castsShadow() && !layer.presented.shadowPath && !layer.mask;
}

/// The shadow follows whatever changes below.
bool shadowFollowsBody(const CommittedLayer& layer, const LayerPlacement& placement,
                       const PaintSpace& space) {
    return castsOwnShape(layer) && !isPlainBox(layer, placement, space);
}

}  // namespace

void DamagePass::damage(const PixelRect& rect, const PixelRect& clip) {
    damage_.add(intersection(rect, clip));
}

void DamagePass::visit(CommittedLayer& layer, const AffineTransform& parentToPixels,
                       const PixelRect& clip, bool moved) {
    if (std::exchange(layer.entering, false)) {
        layer.lastReach = {};
        moved = true;
    }
    if (!moved && !layer.touched && !layer.touchedBelow)
        return;
    Before before{layer.lastReach, layer.presented.visible(), layer.frame.has_value()};
    LayerState next = layer.stateAt(now_);
    unsigned change = compare(layer.presented, next);
    layer.touched = false;
    if (!next.visible())
        return hide(layer, next, before, clip);

    bool below = std::exchange(layer.touchedBelow, false) || !layer.vacated.empty();
    bool shadowFollowed =
        below && shadowFollowsBody(
                     layer, LayerPlacement(layer.presented, parentToPixels, space_.scale), space_);
    layer.presented = std::move(next);
    layer.frame.reset();
    for (const auto& animation : layer.animations)
        if (auto frame = animation->transitionAt(now_))
            layer.frame = std::move(frame);

    LayerPlacement placement(layer.presented, parentToPixels, space_.scale);
    moved = moved || !before.visible || (change & LayerChange::Placement);
    bool maskChanged = visitBelow(layer, placement, clip, moved);
    layer.lastReach = reachOf(layer, placement, space_);

    bool inTransition = before.inTransition || layer.frame;
    bool picture = (change & LayerChange::Content) || below || maskChanged || inTransition;
    layer.contentVersion += picture;
    bool recast = (change & LayerChange::Content) && castsOwnShape(layer);
    bool whole = moved || (change & LayerChange::Composition) || maskChanged || inTransition ||
                 recast ||
                 (below && (shadowFollowed || shadowFollowsBody(layer, placement, space_)));
    if (whole) {
        damage(before.reach.all, clip);
        damage(layer.lastReach.all, clip);
    } else if (change & LayerChange::Content) {
        damage(before.reach.own, clip);
        damage(layer.lastReach.own, clip);
    }
}

// Nothing below is looked at until the layer shows again, and then all of it.
void DamagePass::hide(CommittedLayer& layer, const LayerState& next, const Before& before,
                      const PixelRect& clip) {
    damage(before.reach.all, clip);
    layer.presented = next;
    layer.frame.reset();
    layer.vacated.take();
    layer.lastReach = {};
    layer.touchedBelow = false;
    ++layer.contentVersion;
}

bool DamagePass::visitBelow(CommittedLayer& layer, const LayerPlacement& placement,
                            const PixelRect& clip, bool moved) {
    PixelRect inner = clip;
    if (layer.presented.masksToBounds)
        inner = intersection(clip, placement.pixelBox());
    for (const PixelRect& rect : layer.vacated.take())
        damage(rect, inner);
    for (const auto& child : layer.children)
        visit(*child, placement.exact, inner, moved);
    bool replaced = std::exchange(layer.maskReplaced, false);
    if (!layer.mask)
        return replaced;
    bool changed =
        replaced || layer.mask->touched || layer.mask->touchedBelow || layer.mask->entering;
    // The mask itself is not seen: what it masks is painted again.
    visit(*layer.mask, placement.exact, {}, moved);
    return changed;
}

}  // namespace zn
