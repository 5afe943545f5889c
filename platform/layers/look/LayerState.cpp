#include "platform/layers/look/LayerState.h"

namespace zn {

AffineTransform LayerState::toSuperlayer() const {
    double x = bounds.origin.x + anchorPoint.x * bounds.size.width;
    double y = bounds.origin.y + anchorPoint.y * bounds.size.height;
    if (transform.isIdentity())
        return AffineTransform::translation(position.x - x, position.y - y);
    return AffineTransform::translation(-x, -y).concat(transform).concat(
        AffineTransform::translation(position.x, position.y));
}

bool LayerState::castsShadow() const {
    return shadowOpacity > 0 && shadowColor.alpha > 0 && !masksToBounds;
}

namespace {

bool sameContent(const LayerState& a, const LayerState& b) {
    return a.bounds == b.bounds && a.masksToBounds == b.masksToBounds &&
           a.backgroundColor == b.backgroundColor && a.cornerRadius == b.cornerRadius &&
           a.borderWidth == b.borderWidth && a.borderColor == b.borderColor &&
           a.contents == b.contents && a.contentsScale == b.contentsScale &&
           a.contentsGravity == b.contentsGravity && a.contentsCenter == b.contentsCenter &&
           a.drawnSize == b.drawnSize && a.shape == b.shape && a.gradient == b.gradient &&
           a.shadowPath == b.shadowPath;
}

bool samePlacement(const LayerState& a, const LayerState& b) {
    return a.bounds == b.bounds && a.position == b.position && a.anchorPoint == b.anchorPoint &&
           a.transform == b.transform && a.zPosition == b.zPosition;
}

bool sameComposition(const LayerState& a, const LayerState& b) {
    return a.opacity == b.opacity && a.hidden == b.hidden && a.masksToBounds == b.masksToBounds &&
           a.shouldRasterize == b.shouldRasterize && a.shadowColor == b.shadowColor &&
           a.shadowOffset == b.shadowOffset && a.shadowRadius == b.shadowRadius &&
           a.shadowOpacity == b.shadowOpacity && a.shadowPath == b.shadowPath &&
           (!a.masksToBounds || a.cornerRadius == b.cornerRadius);
}

}  // namespace

unsigned compare(const LayerState& before, const LayerState& after) {
    unsigned change = LayerChange::None;
    if (!sameContent(before, after))
        change |= LayerChange::Content;
    if (!samePlacement(before, after))
        change |= LayerChange::Placement;
    if (!sameComposition(before, after))
        change |= LayerChange::Composition;
    return change;
}

}  // namespace zn
