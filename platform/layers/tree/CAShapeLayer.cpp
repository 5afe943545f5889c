#include "zarnic/platform/layers/CAShapeLayer.h"

#include "platform/layers/tree/LayerNode.h"

namespace zn {

ZN_REGISTER_CLASS(CAShapeLayer);

CAShapeLayer::CAShapeLayer() {
    node().state.shape = std::make_shared<const ShapeStyle>();
}

CAShapeLayer::~CAShapeLayer() = default;

const CGPath& CAShapeLayer::path() const {
    return node().state.shape->path;
}

void CAShapeLayer::setPath(const CGPath& path) {
    node().assign("path", &LayerState::shape, &ShapeStyle::path, path);
}

const CGColor& CAShapeLayer::fillColor() const {
    return node().state.shape->fill;
}

void CAShapeLayer::setFillColor(const CGColor& color) {
    node().assign("fillColor", &LayerState::shape, &ShapeStyle::fill, color);
}

const CGColor& CAShapeLayer::strokeColor() const {
    return node().state.shape->stroke;
}

void CAShapeLayer::setStrokeColor(const CGColor& color) {
    node().assign("strokeColor", &LayerState::shape, &ShapeStyle::stroke, color);
}

double CAShapeLayer::lineWidth() const {
    return node().state.shape->lineWidth;
}

void CAShapeLayer::setLineWidth(double width) {
    node().assign("lineWidth", &LayerState::shape, &ShapeStyle::lineWidth, width);
}

CGLineCap CAShapeLayer::lineCap() const {
    return node().state.shape->cap;
}

void CAShapeLayer::setLineCap(CGLineCap cap) {
    node().assign("lineCap", &LayerState::shape, &ShapeStyle::cap, cap);
}

CGLineJoin CAShapeLayer::lineJoin() const {
    return node().state.shape->join;
}

void CAShapeLayer::setLineJoin(CGLineJoin join) {
    node().assign("lineJoin", &LayerState::shape, &ShapeStyle::join, join);
}

const std::vector<double>& CAShapeLayer::lineDashPattern() const {
    return node().state.shape->dash;
}

void CAShapeLayer::setLineDashPattern(const std::vector<double>& pattern) {
    node().assign("lineDashPattern", &LayerState::shape, &ShapeStyle::dash, pattern);
}

double CAShapeLayer::lineDashPhase() const {
    return node().state.shape->dashPhase;
}

void CAShapeLayer::setLineDashPhase(double phase) {
    node().assign("lineDashPhase", &LayerState::shape, &ShapeStyle::dashPhase, phase);
}

double CAShapeLayer::strokeStart() const {
    return node().state.shape->strokeStart;
}

void CAShapeLayer::setStrokeStart(double start) {
    node().assign("strokeStart", &LayerState::shape, &ShapeStyle::strokeStart, start);
}

double CAShapeLayer::strokeEnd() const {
    return node().state.shape->strokeEnd;
}

void CAShapeLayer::setStrokeEnd(double end) {
    node().assign("strokeEnd", &LayerState::shape, &ShapeStyle::strokeEnd, end);
}

}  // namespace zn
