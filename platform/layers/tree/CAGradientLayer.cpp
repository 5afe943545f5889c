#include "zarnic/platform/layers/CAGradientLayer.h"

#include "platform/layers/tree/LayerNode.h"

namespace zn {

ZN_REGISTER_CLASS(CAGradientLayer);

CAGradientLayer::CAGradientLayer() {
    node().state.gradient = std::make_shared<const GradientStyle>();
}

CAGradientLayer::~CAGradientLayer() = default;

const std::vector<CGColor>& CAGradientLayer::colors() const {
    return node().state.gradient->colors;
}

void CAGradientLayer::setColors(const std::vector<CGColor>& colors) {
    node().assign("colors", &LayerState::gradient, &GradientStyle::colors, colors);
}

const std::vector<double>& CAGradientLayer::locations() const {
    return node().state.gradient->locations;
}

void CAGradientLayer::setLocations(const std::vector<double>& locations) {
    node().assign("locations", &LayerState::gradient, &GradientStyle::locations, locations);
}

Point CAGradientLayer::startPoint() const {
    return node().state.gradient->start;
}

void CAGradientLayer::setStartPoint(Point point) {
    node().assign("startPoint", &LayerState::gradient, &GradientStyle::start, point);
}

Point CAGradientLayer::endPoint() const {
    return node().state.gradient->end;
}

void CAGradientLayer::setEndPoint(Point point) {
    node().assign("endPoint", &LayerState::gradient, &GradientStyle::end, point);
}

}  // namespace zn
