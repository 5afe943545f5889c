#pragma once

#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/uikit/UIGestureRecognizer.h"

namespace zn {

/// Fingers that stay down: began after the minimum time, changed while they move, ended when one
/// leaves.
class ZN_EXPORT UILongPressGestureRecognizer : public UIGestureRecognizer {
    ZN_OBJECT(UILongPressGestureRecognizer, UIGestureRecognizer)
public:
    UILongPressGestureRecognizer();
    explicit UILongPressGestureRecognizer(const Action& action);
    ~UILongPressGestureRecognizer() override;

    /// Seconds; default 0.5.
    double minimumPressDuration() const { return minimumPressDuration_; }
    void setMinimumPressDuration(double seconds) { minimumPressDuration_ = seconds; }
    /// Points a finger may stray before the press is recognised; default 10.
    double allowableMovement() const { return allowableMovement_; }
    void setAllowableMovement(double points) { allowableMovement_ = points; }
    /// Default 1.
    std::size_t numberOfTouchesRequired() const { return touchesRequired_; }
    void setNumberOfTouchesRequired(std::size_t touches) { touchesRequired_ = touches; }

    void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesMoved(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesCancelled(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void reset() override;

private:
    double minimumPressDuration_ = 0.5;
    double allowableMovement_ = 10;
    std::size_t touchesRequired_ = 1;
    Point start_;
    RunLoopToken timer_;
};

}  // namespace zn
