#include "zarnic/platform/drawing/UIBezierPath.h"

namespace zn {

void CGPath::moveTo(Point point) {
    elements_.push_back({Verb::Move, {point}});
}

void CGPath::lineTo(Point point) {
    elements_.push_back({elements_.empty() ? Verb::Move : Verb::Line, {point}});
}

void CGPath::curveTo(Point end, Point control1, Point control2) {
    if (elements_.empty())
        moveTo(control1);
    elements_.push_back({Verb::Curve, {control1, control2, end}});
}

void CGPath::quadCurveTo(Point end, Point control) {
    if (elements_.empty())
        moveTo(control);
    // A quadratic curve as a cubic one: its control points lie two thirds of the way.
    const auto towardsControl = [control](Point from) {
        return Point{from.x + (control.x - from.x) * 2 / 3, from.y + (control.y - from.y) * 2 / 3};
    };
    curveTo(end, towardsControl(currentPoint()), towardsControl(end));
}

void CGPath::close() {
    if (!elements_.empty() && elements_.back().verb != Verb::Close)
        elements_.push_back({Verb::Close, {}});
}

void CGPath::append(const CGPath& other) {
    // By index and with the count taken first, so that a path can be appended to itself.
    const std::size_t count = other.elements_.size();
    elements_.reserve(elements_.size() + count);
    for (std::size_t i = 0; i < count; ++i)
        elements_.push_back(other.elements_[i]);
}

void CGPath::transform(const AffineTransform& transform) {
    for (Element& element : elements_) {
        if (element.verb == Verb::Close)
            continue;
        const std::size_t count = element.verb == Verb::Curve ? 3 : 1;
        for (std::size_t i = 0; i < count; ++i)
            element.points[i] = transform.apply(element.points[i]);
    }
}

Point CGPath::currentPoint() const {
    bool closed = false;
    for (auto element = elements_.rbegin(); element != elements_.rend(); ++element) {
        if (element->verb == Verb::Close)
            closed = true;
        else if (element->verb == Verb::Move)
            return element->points[0];
        else if (!closed)
            return element->points[element->verb == Verb::Curve ? 2 : 0];
    }
    return {};
}

}  // namespace zn
