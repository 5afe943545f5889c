#include <algorithm>
#include <numbers>

#include "zarnic/platform/drawing/UIBezierPath.h"

namespace zn {

namespace {

using std::numbers::pi;

Point onCircle(Point center, double radius, double angle) {
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

/// The signed angle to walk: a full turn or more is one turn, less goes the way that was asked.
double sweep(double startAngle, double endAngle, bool increasing) {
    const double turn = 2 * pi;
    const double difference = endAngle - startAngle;
    if (!std::isfinite(difference))
        return 0;
    if (std::abs(difference) >= turn)
        return increasing ? turn : -turn;
    if (increasing)
        return difference < 0 ? difference + turn : difference;
    return difference > 0 ? difference - turn : difference;
}

/// One cubic piece of a circle of at most a quarter turn, the current point being its start. The
/// handle length 4/3 tan(angle/4) makes the curve meet the circle in the middle.
void addArcPiece(CGPath& path, Point center, double radius, double from, double to) {
    const double handle = 4.0 / 3.0 * std::tan((to - from) / 4) * radius;
    const Point start = onCircle(center, radius, from);
    const Point end = onCircle(center, radius, to);
    path.curveTo(end, {start.x - handle * std::sin(from), start.y + handle * std::cos(from)},
                 {end.x + handle * std::sin(to), end.y - handle * std::cos(to)});
}

}  // namespace

CGPath CGPath::rect(const Rect& rect) {
    CGPath path;
    if (rect.isNull())
        return path;
    path.elements_.reserve(5);
    path.moveTo({rect.minX(), rect.minY()});
    path.lineTo({rect.maxX(), rect.minY()});
    path.lineTo({rect.maxX(), rect.maxY()});
    path.lineTo({rect.minX(), rect.maxY()});
    path.close();
    return path;
}

CGPath CGPath::ellipse(const Rect& rect) {
    CGPath path;
    if (rect.isNull())
        return path;
    path.arc({}, 1, 0, 2 * pi, true);
    path.close();
    path.transform(AffineTransform::scale(rect.width() / 2, rect.height() / 2)
                       .concat(AffineTransform::translation(rect.midX(), rect.midY())));
    return path;
}

CGPath CGPath::roundedRect(const Rect& rect, double radius) {
    const double corner = std::min({radius, rect.width() / 2, rect.height() / 2});
    if (!(corner > 0))
        return CGPath::rect(rect);
    CGPath path;
    const double left = rect.minX(), top = rect.minY(), right = rect.maxX(), bottom = rect.maxY();
    path.moveTo({left + corner, top});
    path.lineTo({right - corner, top});
    addArcPiece(path, {right - corner, top + corner}, corner, -pi / 2, 0);
    path.lineTo({right, bottom - corner});
    addArcPiece(path, {right - corner, bottom - corner}, corner, 0, pi / 2);
    path.lineTo({left + corner, bottom});
    addArcPiece(path, {left + corner, bottom - corner}, corner, pi / 2, pi);
    path.lineTo({left, top + corner});
    addArcPiece(path, {left + corner, top + corner}, corner, pi, 3 * pi / 2);
    path.close();
    return path;
}

void CGPath::arc(Point center, double radius, double startAngle, double endAngle, bool clockwise) {
    lineTo(onCircle(center, radius, startAngle));
    const double angle = sweep(startAngle, endAngle, clockwise);
    const int pieces = static_cast<int>(std::ceil(std::abs(angle) / (pi / 2) - 1e-9));
    for (int i = 0; i < pieces; ++i)
        addArcPiece(*this, center, radius, startAngle + angle * i / pieces,
                    startAngle + angle * (i + 1) / pieces);
}

}  // namespace zn
