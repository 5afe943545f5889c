#pragma once

#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/uikit/UIGestureRecognizer.h"

namespace zn {

/// One or more quick taps of one or more fingers. A tap ends within 0.75 s, the next begins within
/// 0.35 s, and no finger strays 45 points. A single tap of one finger on an enabled control below
/// the recogniser's view belongs to the control.
class ZN_EXPORT UITapGestureRecognizer : public UIGestureRecognizer {
    ZN_OBJECT(UITapGestureRecognizer, UIGestureRecognizer)
public:
    UITapGestureRecognizer();
    explicit UITapGestureRecognizer(const Action& action);
    ~UITapGestureRecognizer() override;

    /// Default 1.
    std::size_t numberOfTapsRequired() const { return tapsRequired_; }
    void setNumberOfTapsRequired(std::size_t taps) { tapsRequired_ = taps; }
    /// Default 1.
    std::size_t numberOfTouchesRequired() const { return touchesRequired_; }
    void setNumberOfTouchesRequired(std::size_t touches) { touchesRequired_ = touches; }

    void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesMoved(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesCancelled(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void reset() override;
    /// A tap of fewer times does not keep one of more times from being recognised.
    bool canBePreventedByGestureRecognizer(const Ref<UIGestureRecognizer>& other) const override;

private:
    struct Finger {
        Ref<UITouch> touch;
        Point start;
    };

    void failAfter(double seconds);
    bool belongsToControl(const Ref<UITouch>& touch) const;
    bool strayed(const Finger& finger) const;
    void endTap();

    std::size_t tapsRequired_ = 1;
    std::size_t touchesRequired_ = 1;
    std::size_t taps_ = 0;
    /// The fingers of the present tap.
    std::vector<Finger> fingers_;
    /// Where the first finger of the first tap came down, in the window.
    std::optional<Point> firstPlace_;
    RunLoopToken timeout_;
};

}  // namespace zn
