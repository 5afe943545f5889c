#include "platform/layers/look/AnimatedProperty.h"

#include <algorithm>
#include <cmath>

namespace zn {
namespace {

template <auto Member>
CAValue get(const LayerState& state) {
    return state.*Member;
}

template <auto Member>
void set(LayerState& state, const CAValue& value) {
    using T = std::remove_reference_t<decltype(state.*Member)>;
    if (const T* typed = std::get_if<T>(&value))
        state.*Member = *typed;
}

/// One coordinate of a property: `Outer` is the property, `Inner` the coordinate.
template <auto Outer, auto Inner>
CAValue getPart(const LayerState& state) {
    return state.*Outer.*Inner;
}

template <auto Outer, auto Inner>
void setPart(LayerState& state, const CAValue& value) {
    using T = std::remove_reference_t<decltype(state.*Outer.*Inner)>;
    if (const T* typed = std::get_if<T>(&value))
        state.*Outer.*Inner = *typed;
}

/// A member of a style, which is shared and so copied before it changes.
template <auto Style, auto Member>
CAValue getStyle(const LayerState& state) {
    return state.*Style ? CAValue((*(state.*Style)).*Member) : CAValue();
}

template <auto Style, auto Member>
void setStyle(LayerState& state, const CAValue& value) {
    if (!(state.*Style))
        return;
    using S =
        std::remove_const_t<typename std::remove_reference_t<decltype(state.*Style)>::element_type>;
    using T = std::remove_reference_t<decltype(std::declval<S>().*Member)>;
    if (const T* typed = std::get_if<T>(&value)) {
        auto copy = std::make_shared<S>(*(state.*Style));
        (*copy).*Member = *typed;
        state.*Style = std::move(copy);
    }
}

CAValue getShadowPath(const LayerState& state) {
    return state.shadowPath ? CAValue(*state.shadowPath) : CAValue();
}

void setShadowPath(LayerState& state, const CAValue& value) {
    if (auto path = std::get_if<CGPath>(&value))
        state.shadowPath = std::make_shared<const CGPath>(*path);
}

CAValue getRotation(const LayerState& state) {
    return std::atan2(state.transform.b, state.transform.a);
}

// Turned from where it stands, so that whole turns count and scale and place stay.
void setRotation(LayerState& state, const CAValue& value) {
    if (auto angle = std::get_if<double>(&value))
        state.transform =
            state.transform.rotatedBy(*angle - std::atan2(state.transform.b, state.transform.a));
}

CAValue getScale(const LayerState& state) {
    return std::hypot(state.transform.a, state.transform.b);
}

void setScale(LayerState& state, const CAValue& value) {
    double present = std::hypot(state.transform.a, state.transform.b);
    if (auto scale = std::get_if<double>(&value); scale && present > 0)
        state.transform = state.transform.scaledBy(*scale / present, *scale / present);
}

using L = LayerState;
using S = ShapeStyle;
using G = GradientStyle;

#define ZN_PLAIN(name, member) \
    { name, get<&L::member>, set<&L::member> }
#define ZN_PART(name, outer, inner) \
    { name, getPart<&L::outer, inner>, setPart<&L::outer, inner> }
#define ZN_STYLE(name, style, member) \
    { name, getStyle<&L::style, member>, setStyle<&L::style, member> }

constexpr AnimatedProperty Properties[] = {
    ZN_PLAIN("bounds", bounds),
    ZN_PART("bounds.origin", bounds, &Rect::origin),
    ZN_PART("bounds.size", bounds, &Rect::size),
    ZN_PLAIN("position", position),
    ZN_PART("position.x", position, &Point::x),
    ZN_PART("position.y", position, &Point::y),
    ZN_PLAIN("anchorPoint", anchorPoint),
    ZN_PLAIN("zPosition", zPosition),
    ZN_PLAIN("transform", transform),
    {"transform.rotation", getRotation, setRotation},
    {"transform.rotation.z", getRotation, setRotation},
    {"transform.scale", getScale, setScale},
    ZN_PART("transform.translation.x", transform, &AffineTransform::tx),
    ZN_PART("transform.translation.y", transform, &AffineTransform::ty),
    ZN_PLAIN("opacity", opacity),
    ZN_PLAIN("backgroundColor", backgroundColor),
    ZN_PLAIN("cornerRadius", cornerRadius),
    ZN_PLAIN("borderWidth", borderWidth),
    ZN_PLAIN("borderColor", borderColor),
    ZN_PLAIN("shadowColor", shadowColor),
    ZN_PLAIN("shadowOffset", shadowOffset),
    ZN_PLAIN("shadowRadius", shadowRadius),
    ZN_PLAIN("shadowOpacity", shadowOpacity),
    {"shadowPath", getShadowPath, setShadowPath},
    ZN_STYLE("path", shape, &S::path),
    ZN_STYLE("fillColor", shape, &S::fill),
    ZN_STYLE("strokeColor", shape, &S::stroke),
    ZN_STYLE("lineWidth", shape, &S::lineWidth),
    ZN_STYLE("lineDashPhase", shape, &S::dashPhase),
    ZN_STYLE("strokeStart", shape, &S::strokeStart),
    ZN_STYLE("strokeEnd", shape, &S::strokeEnd),
    ZN_STYLE("colors", gradient, &G::colors),
    ZN_STYLE("locations", gradient, &G::locations),
    ZN_STYLE("startPoint", gradient, &G::start),
    ZN_STYLE("endPoint", gradient, &G::end),
};

#undef ZN_PLAIN
#undef ZN_PART
#undef ZN_STYLE

}  // namespace

const AnimatedProperty* AnimatedProperty::named(std::string_view name) {
    auto found = std::find_if(std::begin(Properties), std::end(Properties),
                              [&](const AnimatedProperty& each) { return each.name == name; });
    return found == std::end(Properties) ? nullptr : found;
}

}  // namespace zn
