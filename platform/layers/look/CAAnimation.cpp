#include "zarnic/platform/layers/CAAnimation.h"

#include <algorithm>
#include <cmath>

#include "zarnic/platform/foundation/Clock.h"

namespace zn {

ZN_REGISTER_CLASS(CABasicAnimation);
ZN_REGISTER_CLASS(CAKeyframeAnimation);
ZN_REGISTER_CLASS(CATransition);

double CACurrentMediaTime() {
    return Clock::shared().monotonic();
}

namespace {

/// One coordinate of the curve; its ends are 0 and 1.
double bezier(double control1, double control2, double t) {
    double rest = 1 - t;
    return 3 * rest * rest * t * control1 + 3 * rest * t * t * control2 + t * t * t;
}

/// Where the curve has the x-coordinate; x grows along it, so halving finds it.
double parameterAt(double control1, double control2, double x) {
    double low = 0, high = 1;
    while (high - low > 1e-9) {
        double middle = (low + high) / 2;
        (bezier(control1, control2, middle) < x ? low : high) = middle;
    }
    return (low + high) / 2;
}

}  // namespace

double CAMediaTimingFunction::at(double fraction) const {
    if (!(fraction > 0))
        return 0;
    if (fraction >= 1)
        return 1;
    if (control1.x == control1.y && control2.x == control2.y)
        return fraction;
    double x1 = std::clamp(control1.x, 0.0, 1.0), x2 = std::clamp(control2.x, 0.0, 1.0);
    return bezier(control1.y, control2.y, parameterAt(x1, x2, fraction));
}

}  // namespace zn
