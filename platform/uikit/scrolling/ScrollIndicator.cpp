#include "platform/uikit/scrolling/ScrollIndicator.h"

#include <algorithm>
#include <cmath>

#include "zarnic/platform/foundation/Clock.h"

namespace zn {
namespace {

/// Points.
constexpr double thickness = 2.5;
constexpr double margin = 3;
constexpr double corner = thickness + margin;
constexpr double leastLength = 36;
/// Squeezed beyond an edge.
constexpr double leastSqueezed = 7;
constexpr double fadeDuration = 0.25;
/// Above any content.
constexpr double level = 1e6;

template <class Change>
void withoutAnimation(const Change& change) {
    CATransaction::begin();
    CATransaction::setDisableActions(true);
    change();
    CATransaction::commit();
}

struct Span {
    double start;
    double length;
};

/// Where the bar lies in a track of this length.
Span spanIn(double track, double offset, const ScrollRange& range) {
    const double scrolled = range.high - range.low;
    const double whole = scrolled + range.side;
    const double full = std::max(leastLength, whole > 0 ? track * range.side / whole : track);
    const double squeezed = std::max(leastSqueezed, full - std::abs(range.beyond(offset)));
    const double length = std::max(0.0, std::min(squeezed, track));
    const double done = scrolled > 0 ? (range.nearest(offset) - range.low) / scrolled : 0;
    const double part = range.beyond(offset) > 0 ? 1 : done;
    return {(track - length) * part, length};
}

}  // namespace

ScrollIndicator::~ScrollIndicator() {
    if (bar_)
        bar_->removeFromSuperlayer();
}

void ScrollIndicator::setStyle(UIScrollViewIndicatorStyle style) {
    style_ = style;
    if (bar_)
        withoutAnimation([this] { bar_->setBackgroundColor(color()); });
}

CGColor ScrollIndicator::color() const {
    switch (style_) {
        case UIScrollViewIndicatorStyle::White:
            return {1, 1, 1, 0.5};
        case UIScrollViewIndicatorStyle::Black:
            return {0, 0, 0, 0.5};
        default:
            return {0.2, 0.2, 0.22, 0.45};
    }
}

bool ScrollIndicator::seen() const {
    return bar_ && (bar_->opacity() > 0 || bar_->animates("opacity"));
}

Rect ScrollIndicator::frameAt(const Place& place) const {
    const Rect inner = place.bounds.insetBy(place.insets);
    const double room = place.cornerTaken ? corner : 0;
    if (axis_ == Axis::Horizontal) {
        const Span span = spanIn(std::max(0.0, inner.width() - 2 * margin - room),
                                 place.bounds.minX(), place.range);
        return {inner.minX() + margin + span.start, inner.maxY() - corner, span.length, thickness};
    }
    const Span span =
        spanIn(std::max(0.0, inner.height() - 2 * margin - room), place.bounds.minY(), place.range);
    return {inner.maxX() - corner, inner.minY() + margin + span.start, thickness, span.length};
}

void ScrollIndicator::moveTo(const Place& place) {
    if (seen())
        withoutAnimation([&] { bar_->setFrame(frameAt(place)); });
}

void ScrollIndicator::show(const Ref<CALayer>& over, const Place& place) {
    fading_.reset();
    withoutAnimation([&] {
        if (!bar_) {
            bar_ = make<CALayer>();
            bar_->setName("scroll indicator");
            bar_->setCornerRadius(thickness / 2);
            bar_->setZPosition(level);
            bar_->setBackgroundColor(color());
            over->addSublayer(bar_);
        }
        bar_->setOpacity(1);
        bar_->setFrame(frameAt(place));
    });
}

void ScrollIndicator::hideAfter(double seconds) {
    if (seen())
        fading_ = NSRunLoop::mainRunLoop()->addDeadline(Clock::shared().monotonic() + seconds,
                                                        [this] { hide(); });
}

void ScrollIndicator::hide() {
    fading_.reset();
    if (!bar_)
        return;
    CATransaction::begin();
    CATransaction::setAnimationDuration(fadeDuration);
    bar_->setOpacity(0);
    CATransaction::commit();
}

}  // namespace zn
