#include <algorithm>
#include <ranges>

#include "platform/drawing/context/Compositing.h"

namespace zn {

namespace {

using namespace CGGradientDrawingOptions;

struct Stop {
    double location;
    CGColor color;
};

/// In the order of their locations, which the caller need not keep.
std::vector<Stop> sortedStops(const CGGradient& gradient) {
    const std::size_t count = gradient.colors.size();
    if (!gradient.locations.empty() && gradient.locations.size() != count)
        return {};
    std::vector<Stop> stops(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double even = count > 1 ? static_cast<double>(i) / static_cast<double>(count - 1) : 0;
        stops[i] = {gradient.locations.empty() ? even : gradient.locations[i], gradient.colors[i]};
        if (!std::isfinite(stops[i].location))
            stops[i].location = 0;
    }
    std::ranges::stable_sort(stops, {}, &Stop::location);
    return stops;
}

/// Cairo's image back end interpolates straight components and premultiplies afterwards.
void addStop(cairo_pattern_t* pattern, double location, const CGColor& color) {
    cairo_pattern_add_color_stop_rgba(pattern, location, color.red, color.green, color.blue,
                                      color.alpha);
}

/// The end colours go on beyond the ends; a clip takes away what is not asked for.
void addStops(cairo_pattern_t* pattern, const std::vector<Stop>& stops) {
    for (const Stop& stop : stops)
        addStop(pattern, stop.location, stop.color);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
}

void paintPattern(CGContext::State& state, cairo_pattern_t* pattern) {
    cairo_new_path(state.cairo.get());
    cairo_set_source(state.cairo.get(), pattern);
    compose(state, Coverage::Paint, state.graphics.alpha);
}

double distance(Point from, Point to) {
    return std::hypot(to.x - from.x, to.y - from.y);
}

/// The farthest that any point of the clip lies from here.
double reach(const Rect& clip, Point from) {
    return std::max(
        {distance(from, {clip.minX(), clip.minY()}), distance(from, {clip.maxX(), clip.minY()}),
         distance(from, {clip.minX(), clip.maxY()}), distance(from, {clip.maxX(), clip.maxY()})});
}

/// Cuts the clip to the band across the line from start to end, open on the sides that are
/// painted beyond the ends.
void clipToBand(cairo_t* cairo, const Rect& clip, Point start, Point end, unsigned options) {
    const double length = distance(start, end);
    const Point along{(end.x - start.x) / length, (end.y - start.y) / length};
    const double far = reach(clip, start) + 1;
    const double from = options & DrawsBeforeStartLocation ? -far : 0;
    const double to = options & DrawsAfterEndLocation ? std::max(far, length) : length;
    const auto corner = [&](double forward, double aside) {
        return Point{start.x + along.x * forward - along.y * aside,
                     start.y + along.y * forward + along.x * aside};
    };
    cairo_new_path(cairo);
    moveTo(cairo, corner(from, -far));
    lineTo(cairo, corner(to, -far));
    lineTo(cairo, corner(to, far));
    lineTo(cairo, corner(from, far));
    cairo_clip(cairo);
}

struct Circles {
    Point startCenter;
    double startRadius;
    Point endCenter;
    double endRadius;

    Point center(double place) const {
        return {startCenter.x + (endCenter.x - startCenter.x) * place,
                startCenter.y + (endCenter.y - startCenter.y) * place};
    }
    double radius(double place) const {
        return std::max(0.0, startRadius + (endRadius - startRadius) * place);
    }
    double growth() const { return endRadius - startRadius; }
    double movement() const { return distance(startCenter, endCenter); }
    /// One circle inside the other: every place belongs to exactly one circle.
    bool nested() const { return movement() < std::abs(growth()); }

    CairoPattern pattern(double from, double to) const {
        const Point first = center(from);
        const Point last = center(to);
        return CairoPattern(cairo_pattern_create_radial(first.x, first.y, radius(from), last.x,
                                                        last.y, radius(to)));
    }
};

void addCircle(cairo_t* cairo, Point center, double radius) {
    cairo_new_sub_path(cairo);
    addPath(cairo, CGPath::ellipse({center.x - radius, center.y - radius, 2 * radius, 2 * radius}));
}

/// Nested circles: cuts the clip to the ring between them, without the border on a side that is
/// painted beyond its end.
void clipToRing(cairo_t* cairo, const Rect& clip, const Circles& circles, unsigned options) {
    const bool grows = circles.growth() > 0;
    const bool paintsStart = options & DrawsBeforeStartLocation;
    const bool paintsEnd = options & DrawsAfterEndLocation;
    cairo_new_path(cairo);
    if (grows ? paintsEnd : paintsStart)
        addRect(cairo, clip.insetBy(-1, -1));
    else
        addCircle(cairo, circles.center(grows ? 1 : 0), circles.radius(grows ? 1 : 0));
    if (!(grows ? paintsStart : paintsEnd))
        addCircle(cairo, circles.center(grows ? 0 : 1), circles.radius(grows ? 0 : 1));
    cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_clip(cairo);
}

CairoPattern nestedPattern(const Circles& circles, const std::vector<Stop>& stops) {
    CairoPattern pattern = circles.pattern(0, 1);
    addStops(pattern.get(), stops);
    return pattern;
}

/// Circles that wander off form a cone, in which later circles cover earlier ones. Cairo extends
/// both sides or none, so the circles themselves go on until they have left the clip.
CairoPattern conePattern(const Circles& circles, const std::vector<Stop>& stops, unsigned options,
                         const Rect& clip) {
    constexpr double farthest = 1000;
    const double speed = std::max(circles.movement() - std::abs(circles.growth()), 1e-6);
    const double radius = std::max(circles.startRadius, circles.endRadius);
    const double far = std::min(
        farthest, (reach(clip, circles.startCenter) + circles.movement() + radius) / speed);
    double from = options & DrawsBeforeStartLocation ? -far : 0;
    double to = options & DrawsAfterEndLocation ? 1 + far : 1;
    // No circle is smaller than a point.
    if (circles.growth() > 0)
        from = std::max(from, -circles.startRadius / circles.growth());
    if (circles.growth() < 0)
        to = std::min(to, -circles.startRadius / circles.growth());
    CairoPattern pattern = circles.pattern(from, to);
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_NONE);
    addStop(pattern.get(), 0, stops.front().color);
    for (const Stop& stop : stops)
        addStop(pattern.get(), (std::clamp(stop.location, 0.0, 1.0) - from) / (to - from),
                stop.color);
    addStop(pattern.get(), 1, stops.back().color);
    return pattern;
}

}  // namespace

void CGContext::drawLinearGradient(const CGGradient& gradient, Point start, Point end,
                                   unsigned options) {
    const std::vector<Stop> stops = sortedStops(gradient);
    const Rect clip = clipBoundingBox();
    if (!state_->graphics.drawable || stops.empty() || start == end || clip.isNull())
        return;
    CairoPattern pattern(cairo_pattern_create_linear(start.x, start.y, end.x, end.y));
    addStops(pattern.get(), stops);
    cairo_t* cairo = state_->cairo.get();
    const CairoSave save(cairo);
    constexpr unsigned bothSides = DrawsBeforeStartLocation | DrawsAfterEndLocation;
    if ((options & bothSides) != bothSides)
        clipToBand(cairo, clip, start, end, options);
    paintPattern(*state_, pattern.get());
}

void CGContext::drawRadialGradient(const CGGradient& gradient, Point startCenter,
                                   double startRadius, Point endCenter, double endRadius,
                                   unsigned options) {
    const std::vector<Stop> stops = sortedStops(gradient);
    const Rect clip = clipBoundingBox();
    const Circles circles{startCenter, std::max(0.0, startRadius), endCenter,
                          std::max(0.0, endRadius)};
    const bool nothingSwept = circles.movement() == 0 && circles.growth() == 0;
    if (!state_->graphics.drawable || stops.empty() || nothingSwept || clip.isNull())
        return;
    cairo_t* cairo = state_->cairo.get();
    const CairoSave save(cairo);
    if (circles.nested()) {
        clipToRing(cairo, clip, circles, options);
        paintPattern(*state_, nestedPattern(circles, stops).get());
    } else {
        paintPattern(*state_, conePattern(circles, stops, options, clip).get());
    }
}

}  // namespace zn
