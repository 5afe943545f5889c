#include "zarnic/platform/layers/CALayer.h"

#include "platform/layers/tree/AnimationScheduler.h"
#include "platform/layers/tree/DrawnContents.h"
#include "platform/layers/tree/LayerNode.h"

namespace zn {

ZN_REGISTER_CLASS(CALayer);

CALayer::CALayer() : node_(std::make_unique<Node>(*this)) {}

CALayer::~CALayer() {
    for (const auto& sublayer : node_->sublayers)
        sublayer->node().superlayer = nullptr;
    if (node_->mask)
        node_->mask->node().maskOwner = nullptr;
    DrawnContents::shared().forget(*node_);
    for (const auto& animation : std::exchange(node_->animations, {}))
        AnimationScheduler::shared().cancel(animation);
}

double CALayer::opacity() const {
    return node_->state.opacity;
}

void CALayer::setOpacity(double opacity) {
    node_->assign("opacity", &LayerState::opacity, opacity);
}

bool CALayer::hidden() const {
    return node_->state.hidden;
}

void CALayer::setHidden(bool hidden) {
    node_->assign(&LayerState::hidden, hidden);
    // Hidden layers keep what they have to draw to themselves until they are seen.
    if (!hidden)
        node_->announce(node_->work | node_->workBelow);
}

bool CALayer::masksToBounds() const {
    return node_->state.masksToBounds;
}

void CALayer::setMasksToBounds(bool masks) {
    node_->assign(&LayerState::masksToBounds, masks);
}

const CGColor& CALayer::backgroundColor() const {
    return node_->state.backgroundColor;
}

void CALayer::setBackgroundColor(const CGColor& color) {
    node_->assign("backgroundColor", &LayerState::backgroundColor, color);
}

double CALayer::cornerRadius() const {
    return node_->state.cornerRadius;
}

void CALayer::setCornerRadius(double radius) {
    node_->assign("cornerRadius", &LayerState::cornerRadius, radius);
}

double CALayer::borderWidth() const {
    return node_->state.borderWidth;
}

void CALayer::setBorderWidth(double width) {
    node_->assign("borderWidth", &LayerState::borderWidth, width);
}

const CGColor& CALayer::borderColor() const {
    return node_->state.borderColor;
}

void CALayer::setBorderColor(const CGColor& color) {
    node_->assign("borderColor", &LayerState::borderColor, color);
}

const CGColor& CALayer::shadowColor() const {
    return node_->state.shadowColor;
}

void CALayer::setShadowColor(const CGColor& color) {
    node_->assign("shadowColor", &LayerState::shadowColor, color);
}

Size CALayer::shadowOffset() const {
    return node_->state.shadowOffset;
}

void CALayer::setShadowOffset(Size offset) {
    node_->assign("shadowOffset", &LayerState::shadowOffset, offset);
}

double CALayer::shadowRadius() const {
    return node_->state.shadowRadius;
}

void CALayer::setShadowRadius(double radius) {
    node_->assign("shadowRadius", &LayerState::shadowRadius, radius);
}

double CALayer::shadowOpacity() const {
    return node_->state.shadowOpacity;
}

void CALayer::setShadowOpacity(double opacity) {
    node_->assign("shadowOpacity", &LayerState::shadowOpacity, opacity);
}

std::optional<CGPath> CALayer::shadowPath() const {
    return node_->state.shadowPath ? std::optional(*node_->state.shadowPath) : std::nullopt;
}

void CALayer::setShadowPath(std::optional<CGPath> path) {
    if (shadowPath() == path)
        return;
    node_->change("shadowPath", [&] {
        node_->state.shadowPath = path ? std::make_shared<const CGPath>(std::move(*path)) : nullptr;
    });
}

bool CALayer::shouldRasterize() const {
    return node_->state.shouldRasterize;
}

void CALayer::setShouldRasterize(bool rasterize) {
    node_->assign(&LayerState::shouldRasterize, rasterize);
}

CALayerDelegate* CALayer::delegate() const {
    return node_->delegate;
}

void CALayer::setDelegate(CALayerDelegate* delegate) {
    node_->delegate = delegate;
}

const std::string& CALayer::name() const {
    return node_->name;
}

void CALayer::setName(std::string name) {
    node_->name = std::move(name);
}

}  // namespace zn
