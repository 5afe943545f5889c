#pragma once

#include <memory>
#include <vector>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/uikit/UIResponder.h"

namespace zn {

class UIView;
class UIWindow;
class UIGestureRecognizer;

enum class UITouchPhase { Began, Moved, Stationary, Ended, Cancelled };

/// One finger from its coming down until it leaves; the same object all the while.
class ZN_EXPORT UITouch final : public NSObject {
    ZN_OBJECT(UITouch, NSObject)
public:
    UITouch();
    ~UITouch() override;

    UITouchPhase phase() const { return phase_; }
    /// Seconds on the monotonic clock.
    double timestamp() const { return timestamp_; }
    /// 1, or 2 and more for quick touches at about the same place.
    int tapCount() const { return tapCount_; }
    Ref<UIWindow> window() const { return window_.lock(); }
    /// The view that the touch began in.
    Ref<UIView> view() const { return view_.lock(); }
    /// In the view's coordinates; a null view means the window's.
    Point locationInView(const Ref<UIView>& view) const;
    Point previousLocationInView(const Ref<UIView>& view) const;

private:
    friend class TouchDispatcher;
    UITouchPhase phase_ = UITouchPhase::Began;
    double timestamp_ = 0;
    int tapCount_ = 1;
    /// In screen points.
    Point location_;
    Point previous_;
    WeakRef<UIWindow> window_;
    WeakRef<UIView> view_;
};

/// The touches there are now.
class ZN_EXPORT UIEvent final : public NSObject {
    ZN_OBJECT(UIEvent, NSObject)
public:
    UIEvent();
    ~UIEvent() override;

    double timestamp() const { return timestamp_; }
    const TouchSet& allTouches() const { return touches_; }
    TouchSet touchesForView(const Ref<UIView>& view) const;

private:
    friend class TouchDispatcher;
    double timestamp_ = 0;
    TouchSet touches_;
};

}  // namespace zn
