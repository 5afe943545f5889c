#include <algorithm>
#include <array>

#include "zarnic/platform/drawing/UIBezierPath.h"

namespace zn {

namespace {

struct Box {
    Rect rect = Rect::null();
    void add(Point point) { rect = rect.unionWith({point, {}}); }
};

double cubic(double p0, double p1, double p2, double p3, double t) {
    const double u = 1 - t;
    return u * u * u * p0 + 3 * u * u * t * p1 + 3 * u * t * t * p2 + t * t * t * p3;
}

Point cubic(const std::array<Point, 4>& curve, double t) {
    return {cubic(curve[0].x, curve[1].x, curve[2].x, curve[3].x, t),
            cubic(curve[0].y, curve[1].y, curve[2].y, curve[3].y, t)};
}

/// The places where one coordinate of a cubic curve turns: the roots of its derivative.
std::array<double, 2> turningPlaces(double p0, double p1, double p2, double p3) {
    const double a = -p0 + 3 * p1 - 3 * p2 + p3;
    const double b = 2 * (p0 - 2 * p1 + p2);
    const double c = p1 - p0;
    if (a == 0)
        return {b == 0 ? 0 : -c / b, 0};
    const double root = std::sqrt(std::max(0.0, b * b - 4 * a * c));
    return {(-b + root) / (2 * a), (-b - root) / (2 * a)};
}

void addCurve(Box& box, const std::array<Point, 4>& curve) {
    box.add(curve[3]);
    for (const auto coordinate : {&Point::x, &Point::y})
        for (const double t : turningPlaces(curve[0].*coordinate, curve[1].*coordinate,
                                            curve[2].*coordinate, curve[3].*coordinate))
            if (t > 0 && t < 1)
                box.add(cubic(curve, t));
}

/// Counts how often a path winds around a point, by the edges that cross the ray to its right.
class Winding {
public:
    explicit Winding(Point point) : point_(point) {}

    void edge(Point from, Point to) {
        if ((from.y <= point_.y) == (to.y <= point_.y))
            return;
        const double x = from.x + (point_.y - from.y) / (to.y - from.y) * (to.x - from.x);
        if (x > point_.x)
            turns_ += from.y < to.y ? 1 : -1;
    }

    void curve(const std::array<Point, 4>& curve) {
        constexpr int pieces = 32;
        Point from = curve[0];
        for (int i = 1; i <= pieces; ++i) {
            const Point to = cubic(curve, static_cast<double>(i) / pieces);
            edge(from, to);
            from = to;
        }
    }

    int turns() const { return turns_; }

private:
    Point point_;
    int turns_ = 0;
};

}  // namespace

Rect CGPath::bounds() const {
    Box box;
    Point current;
    Point start;
    for (const Element& element : elements_) {
        if (element.verb == Verb::Close) {
            current = start;
        } else if (element.verb == Verb::Curve) {
            addCurve(box, {current, element.points[0], element.points[1], element.points[2]});
            current = element.points[2];
        } else {
            current = element.points[0];
            box.add(current);
            if (element.verb == Verb::Move)
                start = current;
        }
    }
    return box.rect;
}

bool CGPath::contains(Point point, bool evenOdd) const {
    Winding winding(point);
    Point current;
    Point start;
    for (const Element& element : elements_) {
        switch (element.verb) {
            case Verb::Move:
                // Open parts count as closed when an area is asked for.
                winding.edge(current, start);
                start = element.points[0];
                current = start;
                break;
            case Verb::Line:
                winding.edge(current, element.points[0]);
                current = element.points[0];
                break;
            case Verb::Curve:
                winding.curve({current, element.points[0], element.points[1], element.points[2]});
                current = element.points[2];
                break;
            case Verb::Close:
                winding.edge(current, start);
                current = start;
                break;
        }
    }
    winding.edge(current, start);
    return evenOdd ? winding.turns() % 2 != 0 : winding.turns() != 0;
}

}  // namespace zn
