#include "platform/uikit/scrolling/ScrollCourse.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace zn {
namespace {

constexpr double bandStiffness = 0.55;
/// The part of the side that nothing is shown to reach: where the band could be stretched for ever.
constexpr double mostBanded = 0.999;
/// Per second: of the spring at an edge, of one that turns a page, of one that goes elsewhere.
constexpr double edgeRate = 10;
constexpr double pageRate = 14;
constexpr double targetRate = 8;
/// Points from the target at which a movement is over.
constexpr double restDistance = 0.5;
/// Points a second from which a release is a flick that turns a page.
constexpr double flick = 200;
/// Pages that arithmetic may be short of a whole one.
constexpr double pageTolerance = 1e-6;

/// The rate per second of a speed that is multiplied by `perMillisecond` in each millisecond.
double ratePerSecond(double perMillisecond) {
    return -1000 * std::log(perMillisecond);
}

}  // namespace

double ScrollRange::nearest(double offset) const {
    return std::max(low, std::min(offset, high));
}

double ScrollRange::banded(double offset) const {
    const double outside = std::abs(beyond(offset));
    if (outside == 0 || !bounces || !(side > 0))
        return nearest(offset);
    const double shown = (1 - 1 / (outside * bandStiffness / side + 1)) * side;
    return nearest(offset) + std::copysign(shown, beyond(offset));
}

double ScrollRange::unbanded(double shown) const {
    const double outside = std::min(std::abs(beyond(shown)), side * mostBanded);
    if (outside == 0 || !bounces || !(side > 0))
        return shown;
    const double pulled = outside * side / (bandStiffness * (side - outside));
    return nearest(shown) + std::copysign(pulled, beyond(shown));
}

double ScrollRange::bandedSpeed(double offset) const {
    const double outside = std::abs(beyond(offset));
    if (outside == 0)
        return 1;
    if (!bounces || !(side > 0))
        return 0;
    return bandStiffness / std::pow(outside * bandStiffness / side + 1, 2);
}

double ScrollCourse::Phase::placeAfter(double seconds) const {
    return target + (offset + slope * seconds) * std::exp(-rate * seconds);
}

double ScrollCourse::Phase::velocityAfter(double seconds) const {
    return (slope - rate * (offset + slope * seconds)) * std::exp(-rate * seconds);
}

/// Each of the two terms is below half of the rest distance by then; alone, the first one below all
/// of it.
double ScrollCourse::Phase::rest() const {
    const double far = std::abs(offset);
    if (slope == 0)
        return far <= restDistance ? 0 : std::log(far / restDistance) / rate;
    const double first = far == 0 ? 0 : std::log(2 * far / restDistance) / rate;
    const double second =
        2 * std::log(4 * std::abs(slope) / (std::numbers::e * rate * restDistance)) / rate;
    return std::max({first, second, 0.0});
}

void ScrollCourse::finish(const Phase& phase) {
    phases_.push_back(phase);
    duration_ = phase.start + phase.rest();
    end_ = phase.target;
}

void ScrollCourse::coast(double place, double velocity, double rate) {
    const double stop = place + velocity / rate;
    const Phase phase{clock_, stop, place - stop, 0, rate};
    if (range_.contains(stop))
        return finish(phase);
    const double edge = range_.nearest(stop);
    phases_.push_back(phase);
    clock_ -= std::log(1 - (edge - place) * rate / velocity) / rate;
    duration_ = clock_;
    end_ = edge;
    if (range_.bounces)
        spring(edge, velocity - rate * (edge - place), edge, rate);
}

void ScrollCourse::spring(double place, double velocity, double edge, double coastingRate) {
    const double offset = place - edge;
    const Phase phase{clock_, edge, offset, velocity + edgeRate * offset, edgeRate};
    // Thrown back inside, it flies on from the edge.
    const double crossing = offset == 0 || phase.slope == 0 ? -1 : -phase.offset / phase.slope;
    const double speed = crossing > 0 ? phase.velocityAfter(crossing) : 0;
    if (std::abs(speed) / coastingRate <= restDistance)
        return finish(phase);
    phases_.push_back(phase);
    clock_ += crossing;
    coast(edge, speed, coastingRate);
}

ScrollCourse ScrollCourse::coasting(double place, double velocity, const ScrollRange& range,
                                    double decelerationRate) {
    const double rate = ratePerSecond(decelerationRate);
    ScrollCourse course(range);
    if (range.contains(place))
        course.coast(place, velocity, rate);
    else
        course.spring(place, velocity, range.nearest(place), rate);
    return course;
}

ScrollCourse ScrollCourse::settling(double place, double velocity, double target,
                                    const ScrollRange& range, double decelerationRate) {
    ScrollCourse course(range);
    const double offset = place - target;
    const double ownRate = offset == 0 ? 0 : -velocity / offset;
    // Fast enough, it goes there by slowing down only.
    if (ownRate >= ratePerSecond(decelerationRate) / 2)
        course.finish({0, target, offset, 0, ownRate});
    else
        course.finish({0, target, offset, velocity + targetRate * offset, targetRate});
    return course;
}

ScrollCourse ScrollCourse::turning(double place, double velocity, double target,
                                   const ScrollRange& range) {
    ScrollCourse course(range);
    const double offset = place - target;
    // No page is overshot: what comes fast is slowed down faster.
    const double rate = offset == 0 ? pageRate : std::max(pageRate, -velocity / offset);
    course.finish({0, target, offset, velocity + rate * offset, rate});
    return course;
}

double ScrollCourse::pageFor(double place, double velocity, const ScrollRange& range) {
    if (!(range.side > 0))
        return range.nearest(place);
    const double pages = place / range.side;
    double page = std::round(pages);
    if (velocity > flick)
        page = std::floor(pages + pageTolerance) + 1;
    else if (velocity < -flick)
        page = std::ceil(pages - pageTolerance) - 1;
    return range.nearest(page * range.side);
}

const ScrollCourse::Phase* ScrollCourse::phaseAt(double seconds) const {
    if (seconds >= duration_)
        return nullptr;
    const auto after = std::find_if(phases_.begin(), phases_.end(), [seconds](const Phase& phase) {
        return phase.start > seconds;
    });
    return after == phases_.begin() ? nullptr : &*(after - 1);
}

double ScrollCourse::placeAt(double seconds) const {
    const Phase* phase = phaseAt(seconds);
    if (!phase)
        return end_;
    const double place = phase->placeAfter(seconds - phase->start);
    return range_.bounces ? place : range_.nearest(place);
}

double ScrollCourse::velocityAt(double seconds) const {
    const Phase* phase = phaseAt(seconds);
    return phase ? phase->velocityAfter(seconds - phase->start) : 0;
}

}  // namespace zn
