#include "platform/layers/painting/PathTrim.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zn {
namespace {

using Curve = std::array<Point, 4>;

struct Segment {
    Curve curve;
    bool straight;
    double length;
};

Point mix(Point a, Point b, double t) {
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

double distance(Point a, Point b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

/// The part of the curve from its beginning to t (de Casteljau).
Curve headOf(const Curve& c, double t) {
    Point ab = mix(c[0], c[1], t), bc = mix(c[1], c[2], t), cd = mix(c[2], c[3], t);
    Point abc = mix(ab, bc, t), bcd = mix(bc, cd, t);
    return {c[0], ab, abc, mix(abc, bcd, t)};
}

Curve tailOf(const Curve& c, double t) {
    Curve turned = headOf({c[3], c[2], c[1], c[0]}, 1 - t);
    return {turned[3], turned[2], turned[1], turned[0]};
}

double lengthOf(const Curve& curve) {
    constexpr int Steps = 32;
    double length = 0;
    Point last = curve[0];
    for (int i = 1; i <= Steps; ++i) {
        Point next = headOf(curve, static_cast<double>(i) / Steps)[3];
        length += distance(last, next);
        last = next;
    }
    return length;
}

Segment lineSegment(Point from, Point to) {
    return {{from, mix(from, to, 1.0 / 3), mix(from, to, 2.0 / 3), to}, true, distance(from, to)};
}

std::vector<Segment> segmentsOf(const CGPath& path) {
    std::vector<Segment> segments;
    Point start, current;
    for (const auto& [verb, points] : path.elements()) {
        if (verb == CGPath::Verb::Move) {
            start = current = points[0];
        } else if (verb == CGPath::Verb::Line) {
            segments.push_back(lineSegment(current, points[0]));
            current = points[0];
        } else if (verb == CGPath::Verb::Curve) {
            Curve curve{current, points[0], points[1], points[2]};
            segments.push_back({curve, false, lengthOf(curve)});
            current = points[2];
        } else {
            segments.push_back(lineSegment(current, start));
            current = start;
        }
    }
    return segments;
}

/// Where along the curve so much of its length lies behind.
double parameterAt(const Segment& segment, double fraction) {
    if (segment.straight || fraction <= 0 || fraction >= 1)
        return std::clamp(fraction, 0.0, 1.0);
    double low = 0, high = 1;
    for (int i = 0; i < 20; ++i) {
        double middle = (low + high) / 2;
        double part = lengthOf(headOf(segment.curve, middle)) / segment.length;
        (part < fraction ? low : high) = middle;
    }
    return (low + high) / 2;
}

void append(CGPath& path, const Segment& segment, double from, double to) {
    double begin = parameterAt(segment, from), finish = parameterAt(segment, to);
    Curve curve = headOf(segment.curve, finish);
    if (finish > 0)
        curve = tailOf(curve, begin / finish);
    if (path.empty() || path.currentPoint() != curve[0])
        path.moveTo(curve[0]);
    if (segment.straight)
        path.lineTo(curve[3]);
    else
        path.curveTo(curve[3], curve[1], curve[2]);
}

}  // namespace

CGPath trimmedPath(const CGPath& path, double start, double end) {
    start = std::clamp(start, 0.0, 1.0);
    end = std::clamp(end, 0.0, 1.0);
    if (start == 0 && end == 1)
        return path;
    std::vector<Segment> segments = segmentsOf(path);
    double total = 0;
    for (const Segment& segment : segments)
        total += segment.length;
    CGPath result;
    double begin = start * total, finish = end * total, at = 0;
    for (const Segment& segment : segments) {
        double from = std::max(begin - at, 0.0), to = std::min(finish - at, segment.length);
        if (from < to)
            append(result, segment, from / segment.length, to / segment.length);
        at += segment.length;
    }
    return result;
}

}  // namespace zn
