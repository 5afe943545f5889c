#pragma once

#include <memory>
#include <optional>

#include "platform/uikit/scrolling/ContentTouchDelay.h"
#include "platform/uikit/scrolling/ScrollIndicator.h"
#include "platform/uikit/scrolling/ScrollMotion.h"
#include "platform/uikit/scrolling/ScrollPanGestureRecognizer.h"
#include "platform/uikit/scrolling/TrackingMode.h"
#include "zarnic/platform/layers/DisplayTick.h"

namespace zn {

/// What moves a scroll view: the finger that drags it, and the motion that goes on without.
struct UIScrollView::State {
    explicit State(UIScrollView& owner) : view(owner) {}

    struct Axes {
        bool horizontal;
        bool vertical;
        bool any() const { return horizontal || vertical; }
        /// The part of it along these axes.
        Point along(Point movement) const {
            return {horizontal ? movement.x : 0, vertical ? movement.y : 0};
        }
    };
    struct Drag {
        Axes axes;
        /// Where the finger has pulled the content, and where that shows it.
        Point pulled;
        Point shown;
    };

    // The geometry of the moment.
    ScrollRange horizontalRange() const;
    ScrollRange verticalRange() const;
    /// Those that a finger can move at all.
    Axes movableAxes() const;
    /// Whether a finger that moves so can scroll it without leaving the content.
    bool hasRoomFor(Point movement) const;
    /// The nearest device pixel.
    Point rounded(Point offset) const;

    // Offsets.
    void place(Point offset);
    void offsetChanged();
    /// Of the content or the view.
    void extentChanged();
    void animateTo(Point offset, ScrollMotion::DelegateCall atEnd);
    void scrollToTop();

    // Motion.
    void begin(std::unique_ptr<ScrollMotion> next);
    void step();
    void finish();
    /// Ends a motion where it is.
    void stop();
    Deceleration* deceleration() const { return dynamic_cast<Deceleration*>(motion.get()); }
    Deceleration::Plan planFrom(Point offset, Point velocity) const;
    void redirect(Deceleration::Plan& plan, Point target, Point offset, Point velocity) const;
    ScrollCourse courseFrom(double place, double velocity, const ScrollRange& range) const;
    ScrollCourse courseTo(double target, double place, double velocity,
                          const ScrollRange& range) const;
    void decelerate(const Deceleration::Plan& plan);
    void announceDeceleration();
    void comeToRest();
    /// The content, its edges or (by `moved`) the offset changed under a deceleration.
    void replan(Point moved);

    // Fingers.
    void fingerDown();
    void fingersUp();
    void beginDragging();
    void drag();
    void endDragging(Point fingerVelocity);
    void leaveDrag(const Deceleration::Plan& plan);
    Axes draggedAxes(Point movement) const;
    /// Where a finger has pulled content that is shown there.
    Point pulledAt(Point shown) const;

    // Indicators.
    ScrollIndicator::Place horizontalPlace() const;
    ScrollIndicator::Place verticalPlace() const;
    void placeIndicators();
    void showIndicators();
    void hideIndicatorsAfter(double seconds);

    Ref<UIScrollView> self() const { return ref(&view); }

    UIScrollView& view;
    Ref<ScrollPanGestureRecognizer> pan;
    Ref<ContentTouchDelay> delay;
    std::optional<Drag> dragging;
    std::unique_ptr<ScrollMotion> motion;
    /// Made with the first motion.
    std::optional<DisplayTick> tick;
    std::optional<TrackingMode> tracking;
    /// The finger came down on moving content: it drags at once, and no view inside hears of it.
    bool caught = false;
    /// The delegate was told that a deceleration began.
    bool decelerating = false;
    ScrollIndicator horizontalIndicator{ScrollIndicator::Axis::Horizontal};
    ScrollIndicator verticalIndicator{ScrollIndicator::Axis::Vertical};
};

}  // namespace zn
