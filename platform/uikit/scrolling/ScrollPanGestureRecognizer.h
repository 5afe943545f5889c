#pragma once

#include "zarnic/platform/uikit/UIPanGestureRecognizer.h"

namespace zn {

/// The drag of a scroll view: begins along the axes that can scroll, and leaves the finger to the
/// scroll view around it, to the edge of the screen, or to a view inside that keeps it.
class ScrollPanGestureRecognizer final : public UIPanGestureRecognizer {
    ZN_OBJECT(ScrollPanGestureRecognizer, UIPanGestureRecognizer)
public:
    explicit ScrollPanGestureRecognizer(const Action& action);
    ~ScrollPanGestureRecognizer() override;

    /// Points in which a movement of `length` only showed that it is one.
    double hesitation(double length) const;

    void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void reset() override;
    bool shouldRequireFailureOfGestureRecognizer(
        const Ref<UIGestureRecognizer>& other) const override;

protected:
    Verdict judge(Point movement) const override;

private:
    bool outerTakes(Point movement) const;
    bool viewsGiveUp() const;
};

}  // namespace zn
