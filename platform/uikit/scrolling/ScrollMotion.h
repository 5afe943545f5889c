#pragma once

#include "platform/uikit/scrolling/ScrollCourse.h"
#include "zarnic/platform/uikit/UIScrollView.h"

namespace zn {

/// An offset that moves by itself from the moment the motion is made.
class ScrollMotion {
public:
    using DelegateCall = void (UIScrollViewDelegate::*)(const Ref<UIScrollView>&);

    /// `call` is what the delegate is told when it has run its course.
    explicit ScrollMotion(DelegateCall call);
    virtual ~ScrollMotion() = default;

    /// Seconds since it began.
    double elapsed() const;
    virtual Point placeAt(double seconds) const = 0;
    virtual double duration() const = 0;
    virtual Point end() const = 0;
    DelegateCall atEnd() const { return atEnd_; }

private:
    double begin_;
    DelegateCall atEnd_;
};

/// From one offset to another in 0.3 s, ease in and out.
class OffsetAnimation final : public ScrollMotion {
public:
    OffsetAnimation(Point from, Point to, DelegateCall call);
    Point placeAt(double seconds) const override;
    double duration() const override;
    Point end() const override { return to_; }

private:
    Point from_;
    Point to_;
};

/// What follows a drag.
class Deceleration final : public ScrollMotion {
public:
    struct Plan {
        ScrollCourse x;
        ScrollCourse y;
        Point end;
        /// Where the delegate or a page chose the end.
        bool chosen = false;

        double duration() const;
    };

    explicit Deceleration(const Plan& plan);
    Point placeAt(double seconds) const override;
    Point velocityAt(double seconds) const;
    double duration() const override { return plan_.duration(); }
    Point end() const override { return plan_.end; }
    bool chosen() const { return plan_.chosen; }

private:
    Plan plan_;
};

}  // namespace zn
