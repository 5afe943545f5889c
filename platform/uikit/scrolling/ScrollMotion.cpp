#include "platform/uikit/scrolling/ScrollMotion.h"

#include <algorithm>

namespace zn {
namespace {

constexpr double animationDuration = 0.3;

}  // namespace

ScrollMotion::ScrollMotion(DelegateCall call) : begin_(CACurrentMediaTime()), atEnd_(call) {}

double ScrollMotion::elapsed() const {
    return CACurrentMediaTime() - begin_;
}

OffsetAnimation::OffsetAnimation(Point from, Point to, DelegateCall call)
    : ScrollMotion(call), from_(from), to_(to) {}

double OffsetAnimation::duration() const {
    return animationDuration;
}

Point OffsetAnimation::placeAt(double seconds) const {
    const double done = CAMediaTimingFunction::easeInEaseOut().at(seconds / animationDuration);
    return {from_.x + (to_.x - from_.x) * done, from_.y + (to_.y - from_.y) * done};
}

double Deceleration::Plan::duration() const {
    return std::max(x.duration(), y.duration());
}

Deceleration::Deceleration(const Plan& plan)
    : ScrollMotion(&UIScrollViewDelegate::scrollViewDidEndDecelerating), plan_(plan) {}

Point Deceleration::placeAt(double seconds) const {
    return {plan_.x.placeAt(seconds), plan_.y.placeAt(seconds)};
}

Point Deceleration::velocityAt(double seconds) const {
    return {plan_.x.velocityAt(seconds), plan_.y.velocityAt(seconds)};
}

}  // namespace zn
