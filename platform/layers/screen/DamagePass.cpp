#include "platform/layers/screen/DamagePass.h"

#include <algorithm>

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

LayerReach offset(const LayerReach& reach, PixelOffset shift) {
    return {offset(reach.own, shift), offset(reach.body, shift), offset(reach.all, shift)};
}

/// The layer and all below it draw where their pixels went.
void follow(CommittedLayer& layer, PixelOffset shift) {
    layer.lastReach = offset(layer.lastReach, shift);
    for (const auto& child : layer.children)
        follow(*child, shift);
    if (layer.mask)
        follow(*layer.mask, shift);
}

}  // namespace

void DamagePass::damage(const PixelRect& rect, const PixelRect& clip) {
    damage_.add(intersection(rect, clip));
}

void DamagePass::visit(CommittedLayer& layer, const AffineTransform& parentToPixels,
                       const PixelRect& clip, Motion motion) {
    if (std::exchange(layer.entering, false)) {
        layer.lastReach = {};
        motion.moved = true;
    }
    if (!motion.moved && !layer.touched && !layer.touchedBelow) {
        if (motion.shift != PixelOffset())
            follow(layer, motion.shift);
        return;
    }
    Before before{offset(layer.lastReach, motion.shift), layer.presented.visible(),
                  layer.frame.has_value()};
    LayerState next = layer.stateAt(now_);
    unsigned change = compare(layer.presented, next);
    layer.touched = false;
    if (!next.visible())
        return hide(layer, next, before, clip);

    bool below = std::exchange(layer.touchedBelow, false) || !layer.vacated.empty();
    bool shadowFollowed =
        below && shadowFollowsBody(
                     layer, LayerPlacement(layer.presented, parentToPixels, space_.scale), space_);
    const LayerState last = std::exchange(layer.presented, std::move(next));
    layer.frame.reset();
    for (const auto& animation : layer.animations)
        if (auto frame = animation->transitionAt(now_))
            layer.frame = std::move(frame);

    LayerPlacement placement(layer.presented, parentToPixels, space_.scale);
    path_.push_back({&layer, &placement});
    const bool stays = before.visible && !before.inTransition && motion == Motion();
    const auto scrolled = stays ? scroll(last, clip) : std::nullopt;
    motion.moved =
        !scrolled && (motion.moved || !before.visible || (change & LayerChange::Placement));
    bool maskChanged =
        visitBelow(layer, placement, clip, scrolled ? Motion{false, scrolled->offset} : motion);
    path_.pop_back();
    layer.lastReach = reachOf(layer, placement, space_);

    bool inTransition = before.inTransition || layer.frame;
    bool picture = (change & LayerChange::Content) || below || maskChanged || inTransition;
    layer.contentVersion += picture;
    bool recast = (change & LayerChange::Content) && castsOwnShape(layer);
    bool whole = motion.moved || (change & LayerChange::Composition) || maskChanged ||
                 inTransition || recast ||
                 (below && (shadowFollowed || shadowFollowsBody(layer, placement, space_)));
    if (whole) {
        damage(before.reach.all, clip);
        damage(layer.lastReach.all, clip);
    } else if ((change & LayerChange::Content) && !scrolled) {
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
                            const PixelRect& clip, Motion motion) {
    PixelRect inner = clip;
    if (layer.presented.masksToBounds)
        inner = intersection(clip, placement.pixelBox());
    for (const PixelRect& rect : layer.vacated.take())
        damage(offset(rect, motion.shift), inner);
    for (const auto& child : layer.children)
        visit(*child, placement.exact, inner, motion);
    bool replaced = std::exchange(layer.maskReplaced, false);
    if (!layer.mask)
        return replaced;
    bool changed =
        replaced || layer.mask->touched || layer.mask->touchedBelow || layer.mask->entering;
    // The mask itself is not seen: what it masks is painted again.
    visit(*layer.mask, placement.exact, {}, motion);
    return changed;
}

std::optional<ContentShift> DamagePass::scroll(const LayerState& before, const PixelRect& clip) {
    const auto shift = contentShift(path_, before, clip);
    const std::vector<PixelRect> wrong = damage_.rects();
    const auto lost = [&](const PixelRect& rect) { return contains(rect, shift->box); };
    if (!shift || std::ranges::any_of(wrong, lost))
        return std::nullopt;
    // What is wrong goes along, and so does what lies over the content.
    for (const PixelRect& rect : wrong)
        damage_.add(shift->moved(rect));
    for (const PixelRect& rect : overlaysOf(path_, shift->box)) {
        damage_.add(rect);
        damage_.add(shift->moved(rect));
    }
    for (const PixelRect& rect : shift->exposed())
        damage_.add(rect);
    shifts_.push_back(*shift);
    return shift;
}

}  // namespace zn
