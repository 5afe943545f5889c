#pragma once

#include <functional>
#include <limits>
#include <string>
#include <variant>
#include <vector>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/drawing/UIBezierPath.h"
#include "zarnic/platform/drawing/UIColor.h"
#include "zarnic/platform/foundation/Class.h"

namespace zn {

/// Seconds on the monotonic clock: the time base of animations.
ZN_EXPORT double CACurrentMediaTime();

/// A pace: a cubic Bezier from (0, 0) to (1, 1).
struct ZN_EXPORT CAMediaTimingFunction {
    Point control1;
    Point control2;

    static CAMediaTimingFunction linear() { return {{0, 0}, {1, 1}}; }
    static CAMediaTimingFunction easeIn() { return {{0.42, 0}, {1, 1}}; }
    static CAMediaTimingFunction easeOut() { return {{0, 0}, {0.58, 1}}; }
    static CAMediaTimingFunction easeInEaseOut() { return {{0.42, 0}, {0.58, 1}}; }
    static CAMediaTimingFunction standard() { return {{0.25, 0.1}, {0.25, 1}}; }

    /// The progress at a fraction of the duration; outside 0 to 1 it is cut.
    double at(double fraction) const;
};

/// What an animated property holds.
using CAValue = std::variant<std::monostate, double, Point, Size, Rect, AffineTransform, CGColor,
                             CGPath, std::vector<CGColor>, std::vector<double>>;

enum class CAFillMode { Removed, Forwards, Backwards, Both };

/// The base of what `CALayer::addAnimation` takes. A layer keeps its own copy of the settings:
/// later changes here do not reach a running animation.
class ZN_EXPORT CAAnimation : public NSObject {
    ZN_OBJECT(CAAnimation, NSObject)
public:
    /// Stands for the duration of the transaction (0.25 s unless set).
    static constexpr double TransactionDuration = -1;
    static constexpr double RepeatsForever = std::numeric_limits<double>::infinity();

    /// Seconds of one run; with 0 it is over in the next pass.
    double duration = TransactionDuration;
    /// Seconds to wait after the animation was added.
    double delay = 0;
    double repeatCount = 1;
    bool autoreverses = false;
    CAFillMode fillMode = CAFillMode::Removed;
    CAMediaTimingFunction timingFunction = CAMediaTimingFunction::linear();
    bool removedOnCompletion = true;
    /// Called once, on the main thread, never inside the call that caused it: with true at its
    /// exact end, with false when it was removed or replaced.
    std::function<void(bool finished)> completion;
};

/// From one value to another; an absent end is what the layer shows when it is added, or its
/// model value.
class ZN_EXPORT CABasicAnimation : public CAAnimation {
    ZN_OBJECT(CABasicAnimation, CAAnimation)
public:
    CABasicAnimation() = default;
    explicit CABasicAnimation(std::string path) : keyPath(std::move(path)) {}

    /// A property's name ("opacity", "position", "bounds", "transform", "backgroundColor",
    /// "path", ...) or "transform.rotation", "transform.scale", "transform.translation.x" / ".y".
    std::string keyPath;
    CAValue fromValue;
    CAValue toValue;
};

/// Through several values; `keyTimes` (0 to 1) are even when empty.
class ZN_EXPORT CAKeyframeAnimation : public CAAnimation {
    ZN_OBJECT(CAKeyframeAnimation, CAAnimation)
public:
    CAKeyframeAnimation() = default;
    explicit CAKeyframeAnimation(std::string path) : keyPath(std::move(path)) {}

    std::string keyPath;
    std::vector<CAValue> values;
    std::vector<double> keyTimes;
};

enum class CATransitionType { Fade, MoveIn, Push, Reveal };
/// Names are of a y-up space: from top, the new content moves upward on the screen.
enum class CATransitionSubtype { FromRight, FromLeft, FromTop, FromBottom };

/// Animates from the layer's content on the screen to that of the commit it was added in.
class ZN_EXPORT CATransition : public CAAnimation {
    ZN_OBJECT(CATransition, CAAnimation)
public:
    CATransitionType type = CATransitionType::Fade;
    CATransitionSubtype subtype = CATransitionSubtype::FromRight;
};

/// How changes made now are animated and when they are shown. Main thread only.
class ZN_EXPORT CATransaction {
public:
    /// Transactions nest; the outermost one's changes reach the screen when the pass ends.
    static void begin();
    /// Calls the completion block when every animation added since `begin` has ended.
    static void commit();
    /// Commits everything now; hosts and tests only.
    static void flush();
    /// No implicit animations until the end of this transaction (or the pass).
    static void setDisableActions(bool disable);
    static bool disableActions();
    static void setAnimationDuration(double seconds);
    static double animationDuration();
    static void setAnimationTimingFunction(const CAMediaTimingFunction& function);
    static CAMediaTimingFunction animationTimingFunction();
    static void setCompletionBlock(std::function<void()> block);
};

}  // namespace zn
