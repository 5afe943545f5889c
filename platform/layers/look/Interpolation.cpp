#include <cmath>
#include <numbers>

#include "platform/layers/look/AnimatedProperty.h"

namespace zn {
namespace {

double between(double from, double to, double t) {
    return from + (to - from) * t;
}

Point between(Point from, Point to, double t) {
    return {between(from.x, to.x, t), between(from.y, to.y, t)};
}

Size between(Size from, Size to, double t) {
    return {between(from.width, to.width, t), between(from.height, to.height, t)};
}

Rect between(const Rect& from, const Rect& to, double t) {
    return {between(from.origin, to.origin, t), between(from.size, to.size, t)};
}

/// Premultiplied in between, so that a fade from clear keeps the other end's hue.
CGColor between(const CGColor& from, const CGColor& to, double t) {
    double alpha = between(from.alpha, to.alpha, t);
    auto component = [&](double CGColor::*member) {
        double mixed = between(from.*member * from.alpha, to.*member * to.alpha, t);
        return alpha > 0 ? mixed / alpha : between(from.*member, to.*member, t);
    };
    return {component(&CGColor::red), component(&CGColor::green), component(&CGColor::blue), alpha,
            to.space};
}

/// Scale, then shear, then turn, then move: what a transform is made of.
struct TransformParts {
    double scaleX;
    double scaleY;
    double shear;
    double angle;
    Point move;
};

TransformParts partsOf(const AffineTransform& m) {
    double scaleX = std::hypot(m.a, m.b);
    double angle = std::atan2(m.b, m.a);
    double cosine = std::cos(angle), sine = std::sin(angle);
    return {scaleX, m.d * cosine - m.c * sine, m.c * cosine + m.d * sine, angle, {m.tx, m.ty}};
}

AffineTransform assembled(const TransformParts& parts) {
    double cosine = std::cos(parts.angle), sine = std::sin(parts.angle);
    return {parts.scaleX * cosine,
            parts.scaleX * sine,
            parts.shear * cosine - parts.scaleY * sine,
            parts.shear * sine + parts.scaleY * cosine,
            parts.move.x,
            parts.move.y};
}

AffineTransform between(const AffineTransform& from, const AffineTransform& to, double t) {
    TransformParts a = partsOf(from), b = partsOf(to);
    // A shrunken end has no direction of its own.
    if (a.scaleX == 0)
        a.angle = b.angle;
    if (b.scaleX == 0)
        b.angle = a.angle;
    double turn = std::remainder(b.angle - a.angle, 2 * std::numbers::pi);
    return assembled({between(a.scaleX, b.scaleX, t), between(a.scaleY, b.scaleY, t),
                      between(a.shear, b.shear, t), a.angle + turn * t,
                      between(a.move, b.move, t)});
}

bool sameShape(const CGPath& a, const CGPath& b) {
    if (a.elements().size() != b.elements().size())
        return false;
    for (std::size_t i = 0; i < a.elements().size(); ++i)
        if (a.elements()[i].verb != b.elements()[i].verb)
            return false;
    return true;
}

CGPath between(const CGPath& from, const CGPath& to, double t) {
    if (!sameShape(from, to))
        return to;
    CGPath path;
    for (std::size_t i = 0; i < to.elements().size(); ++i) {
        const auto& p = from.elements()[i].points;
        const auto& q = to.elements()[i].points;
        switch (to.elements()[i].verb) {
            case CGPath::Verb::Move:
                path.moveTo(between(p[0], q[0], t));
                break;
            case CGPath::Verb::Line:
                path.lineTo(between(p[0], q[0], t));
                break;
            case CGPath::Verb::Curve:
                path.curveTo(between(p[2], q[2], t), between(p[0], q[0], t),
                             between(p[1], q[1], t));
                break;
            case CGPath::Verb::Close:
                path.close();
                break;
        }
    }
    return path;
}

std::monostate between(std::monostate, std::monostate, double) {
    return {};
}

template <class T>
std::vector<T> between(const std::vector<T>& from, const std::vector<T>& to, double t) {
    if (from.size() != to.size())
        return to;
    std::vector<T> values;
    for (std::size_t i = 0; i < to.size(); ++i)
        values.push_back(between(from[i], to[i], t));
    return values;
}

}  // namespace

CAValue interpolate(const CAValue& from, const CAValue& to, double progress) {
    if (from.index() != to.index() || progress == 1)
        return to;
    return std::visit(
        [&](const auto& end) -> CAValue {
            return between(std::get<std::decay_t<decltype(end)>>(from), end, progress);
        },
        to);
}

}  // namespace zn
