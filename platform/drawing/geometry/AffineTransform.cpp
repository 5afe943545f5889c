#include <algorithm>

#include "zarnic/platform/drawing/Geometry.h"

namespace zn {

AffineTransform AffineTransform::translation(double dx, double dy) {
    return {1, 0, 0, 1, dx, dy};
}

AffineTransform AffineTransform::scale(double sx, double sy) {
    return {sx, 0, 0, sy, 0, 0};
}

AffineTransform AffineTransform::rotation(double angle) {
    const double sine = std::sin(angle);
    const double cosine = std::cos(angle);
    return {cosine, sine, -sine, cosine, 0, 0};
}

AffineTransform AffineTransform::concat(const AffineTransform& next) const {
    return {a * next.a + b * next.c,
            a * next.b + b * next.d,
            c * next.a + d * next.c,
            c * next.b + d * next.d,
            tx * next.a + ty * next.c + next.tx,
            tx * next.b + ty * next.d + next.ty};
}

AffineTransform AffineTransform::translatedBy(double dx, double dy) const {
    return translation(dx, dy).concat(*this);
}

AffineTransform AffineTransform::scaledBy(double sx, double sy) const {
    return scale(sx, sy).concat(*this);
}

AffineTransform AffineTransform::rotatedBy(double angle) const {
    return rotation(angle).concat(*this);
}

std::optional<AffineTransform> AffineTransform::inverted() const {
    const double determinant = a * d - b * c;
    if (determinant == 0 || !std::isfinite(determinant) || !std::isfinite(1 / determinant))
        return std::nullopt;
    return AffineTransform{d / determinant,
                           -b / determinant,
                           -c / determinant,
                           a / determinant,
                           (c * ty - d * tx) / determinant,
                           (b * tx - a * ty) / determinant};
}

Point AffineTransform::apply(Point point) const {
    return {a * point.x + c * point.y + tx, b * point.x + d * point.y + ty};
}

Rect AffineTransform::apply(const Rect& rect) const {
    if (rect.isNull())
        return Rect::null();
    const Point corners[] = {
        apply(Point{rect.minX(), rect.minY()}), apply(Point{rect.maxX(), rect.minY()}),
        apply(Point{rect.maxX(), rect.maxY()}), apply(Point{rect.minX(), rect.maxY()})};
    const auto [left, right] = std::ranges::minmax(corners, {}, &Point::x);
    const auto [top, bottom] = std::ranges::minmax(corners, {}, &Point::y);
    return {left.x, top.y, right.x - left.x, bottom.y - top.y};
}

}  // namespace zn
