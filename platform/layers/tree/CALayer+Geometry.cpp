#include <cmath>

#include "platform/layers/tree/LayerNode.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

void requireNumbers(std::string_view property, std::initializer_list<double> values) {
    for (double value : values)
        if (std::isnan(value))
            throw NSException("CALayerInvalidGeometry",
                              "CALayer " + std::string(property) + " contains NaN");
}

}  // namespace

const Rect& CALayer::bounds() const {
    return node_->state.bounds;
}

void CALayer::setBounds(const Rect& bounds) {
    requireNumbers("bounds",
                   {bounds.origin.x, bounds.origin.y, bounds.size.width, bounds.size.height});
    Rect next = bounds.standardized();
    bool resized = next.size != node_->state.bounds.size;
    node_->assign("bounds", &LayerState::bounds, next);
    if (!resized)
        return;
    setNeedsLayout();
    if (node_->needsDisplayOnBoundsChange || !node_->state.contents)
        setNeedsDisplay();
}

Point CALayer::position() const {
    return node_->state.position;
}

void CALayer::setPosition(Point position) {
    requireNumbers("position", {position.x, position.y});
    node_->assign("position", &LayerState::position, position);
}

Point CALayer::anchorPoint() const {
    return node_->state.anchorPoint;
}

void CALayer::setAnchorPoint(Point anchor) {
    requireNumbers("anchorPoint", {anchor.x, anchor.y});
    node_->assign("anchorPoint", &LayerState::anchorPoint, anchor);
}

double CALayer::zPosition() const {
    return node_->state.zPosition;
}

void CALayer::setZPosition(double z) {
    requireNumbers("zPosition", {z});
    node_->assign("zPosition", &LayerState::zPosition, z);
}

const AffineTransform& CALayer::affineTransform() const {
    return node_->state.transform;
}

void CALayer::setAffineTransform(const AffineTransform& transform) {
    requireNumbers("transform", {transform.a, transform.b, transform.c, transform.d, transform.tx,
                                 transform.ty});
    node_->assign("transform", &LayerState::transform, transform);
}

Rect CALayer::frame() const {
    return node_->state.toSuperlayer().apply(node_->state.bounds);
}

void CALayer::setFrame(const Rect& frame) {
    Rect box = frame.standardized();
    const LayerState& state = node_->state;
    Size size = box.size;
    // The bounds whose transformed box is the frame: exact unless the layer is turned askew.
    if (auto undo = state.transform.inverted(); undo && !state.transform.isIdentity())
        size = undo->apply(Rect({}, box.size)).size;
    setBounds({state.bounds.origin, size});
    Rect now = state.toSuperlayer().apply(state.bounds);
    setPosition({state.position.x + box.origin.x - now.origin.x,
                 state.position.y + box.origin.y - now.origin.y});
}

AffineTransform CALayer::transformToLayer(const Ref<CALayer>& layer) const {
    AffineTransform transform;
    for (const Node* node = node_.get(); node && &node->layer != layer.get();
         node = node->parent()) {
        if (node->parent())
            transform = transform.concat(node->state.toSuperlayer());
        else if (layer)
            // The layer is not above: through the root, and down again.
            return transform.concat(
                layer->transformToLayer(nullptr).inverted().value_or(AffineTransform()));
    }
    return transform;
}

Point CALayer::convertPointToLayer(Point point, const Ref<CALayer>& layer) const {
    return transformToLayer(layer).apply(point);
}

Point CALayer::convertPointFromLayer(Point point, const Ref<CALayer>& layer) const {
    auto undo = transformToLayer(layer).inverted();
    return undo ? undo->apply(point) : point;
}

bool CALayer::containsPoint(Point point) const {
    return node_->state.bounds.contains(point);
}

}  // namespace zn
