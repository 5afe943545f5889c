#pragma once

#include <limits>

#include "zarnic/platform/uikit/UIGestureRecognizer.h"

namespace zn {

/// Fingers that drag: begins when their middle has moved 10 points, changes with every move, ends
/// when the last one leaves.
class ZN_EXPORT UIPanGestureRecognizer : public UIGestureRecognizer {
    ZN_OBJECT(UIPanGestureRecognizer, UIGestureRecognizer)
public:
    UIPanGestureRecognizer();
    explicit UIPanGestureRecognizer(const Action& action);
    ~UIPanGestureRecognizer() override;

    /// Default 1.
    std::size_t minimumNumberOfTouches() const { return minimumTouches_; }
    void setMinimumNumberOfTouches(std::size_t touches) { minimumTouches_ = touches; }
    /// Default any number.
    std::size_t maximumNumberOfTouches() const { return maximumTouches_; }
    void setMaximumNumberOfTouches(std::size_t touches) { maximumTouches_ = touches; }

    /// Points moved since the fingers came down, in the view's directions. A finger that comes or
    /// leaves does not change it. A null view means the window's.
    Point translationInView(const Ref<UIView>& view) const;
    /// Counts on from `translation`.
    void setTranslation(Point translation, const Ref<UIView>& view);
    /// Points a second over the last tenth of a second, 0 for a finger that rested.
    Point velocityInView(const Ref<UIView>& view) const;

    void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesMoved(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesCancelled(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void reset() override;

protected:
    /// Whether a movement (points since the fingers came down) makes the gesture, or rules it out.
    enum class Verdict { Undecided, Begins, Fails };
    virtual Verdict judge(Point movement) const;

private:
    struct Sample {
        double time;
        Point moved;
    };

    Point middle() const;
    void touchLeft(UIGestureRecognizerState last);
    /// From a movement in screen points to one in the view's directions.
    Point directionInView(Point movement, const Ref<UIView>& view) const;

    std::size_t minimumTouches_ = 1;
    std::size_t maximumTouches_ = std::numeric_limits<std::size_t>::max();
    /// Middle of the fingers when last looked at, and how far it came, in screen points.
    Point last_;
    Point moved_;
    /// What `setTranslation` took off.
    Point zero_;
    std::vector<Sample> samples_;
};

}  // namespace zn
