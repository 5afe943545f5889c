#pragma once

#include <memory>

#include "zarnic/platform/uikit/UIEvent.h"
#include "zarnic/platform/uikit/UIPanGestureRecognizer.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

class UIScrollView;

/// The platform's numbers.
enum class UIScrollViewIndicatorStyle { Default, Black, White };
enum class UIScrollViewKeyboardDismissMode { None, OnDrag };

/// The part of its speed that a flying content keeps in each millisecond.
inline constexpr double UIScrollViewDecelerationRateNormal = 0.998;
inline constexpr double UIScrollViewDecelerationRateFast = 0.99;

/// Held weakly by the scroll view, called inside what causes the call. A drag tells, in this order:
/// will begin dragging, did scroll (any number of times), will end dragging, did end dragging and,
/// when the content moves on by itself, will begin decelerating, did scroll, did end decelerating.
class ZN_EXPORT UIScrollViewDelegate {
public:
    virtual ~UIScrollViewDelegate() = default;
    /// The offset has changed. Called inside the call that changed it, also when that comes from
    /// here.
    virtual void scrollViewDidScroll(const Ref<UIScrollView>&) {}
    virtual void scrollViewWillBeginDragging(const Ref<UIScrollView>&) {}
    /// The last finger has left. `velocity` is the offset's, in points a millisecond;
    /// `targetContentOffset` is where the content will come to rest, and may be changed.
    virtual void scrollViewWillEndDraggingWithVelocity(const Ref<UIScrollView>&, Point /*velocity*/,
                                                       Point& /*targetContentOffset*/) {}
    virtual void scrollViewDidEndDraggingWillDecelerate(const Ref<UIScrollView>&,
                                                        bool /*decelerate*/) {}
    virtual void scrollViewWillBeginDecelerating(const Ref<UIScrollView>&) {}
    /// Also when a finger or a call stopped it.
    virtual void scrollViewDidEndDecelerating(const Ref<UIScrollView>&) {}
    /// An animated change of the offset has come to its end.
    virtual void scrollViewDidEndScrollingAnimation(const Ref<UIScrollView>&) {}
    /// The status bar was tapped.
    virtual bool scrollViewShouldScrollToTop(const Ref<UIScrollView>&) { return true; }
    virtual void scrollViewDidScrollToTop(const Ref<UIScrollView>&) {}
};

/// A window onto content that is larger than itself: what is at the content offset lies in its top
/// left corner. The offset is the origin of the bounds, so that conversions include it. Clips what
/// lies outside.
///
/// A finger drags the content once it has moved 10 points along an axis that can scroll; a flick
/// lets it fly on. Of two scroll views, one inside the other, the inner one moves, unless it cannot
/// move that way. Beyond its edges the content follows more and more reluctantly, and springs back.
/// What fingers and animations reach is rounded to device pixels; while they do, timers of the
/// run loop's default mode wait. Main thread only.
class ZN_EXPORT UIScrollView : public UIView {
    ZN_OBJECT(UIScrollView, UIView)
public:
    UIScrollView();
    explicit UIScrollView(const Rect& frame);
    ~UIScrollView() override;
    void init() override;

    Ref<UIScrollViewDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const Ref<UIScrollViewDelegate>& delegate) { delegate_ = delegate; }

    // The content, in points.
    /// Kept as set, outside the content too.
    Point contentOffset() const { return layer()->bounds().origin; }
    /// At once. An animated change in progress ends where it is, without a call; a drag or a
    /// deceleration goes on from there.
    virtual void setContentOffset(Point offset);
    /// Animated, it takes 0.3 s, and the delegate hears of every frame and of the end, unless a
    /// finger comes between. Not animated, it also ends a deceleration.
    void setContentOffset(Point offset, bool animated);
    Size contentSize() const { return contentSize_; }
    virtual void setContentSize(Size size);
    /// Room around the content that can be scrolled to; the offset stays.
    EdgeInsets contentInset() const { return contentInset_; }
    virtual void setContentInset(const EdgeInsets& insets);
    /// Scrolls as little as shows the rectangle (content coordinates), or as much of it as fits;
    /// not beyond the content.
    void scrollRectToVisible(const Rect& rect, bool animated);

    // What a finger may do.
    /// Default yes. Code may scroll without.
    bool scrollEnabled() const;
    void setScrollEnabled(bool enabled);
    /// Comes to rest at multiples of the bounds' size, at most one page on by a flick. Default no.
    bool pagingEnabled() const { return paging_; }
    void setPagingEnabled(bool paging) { paging_ = paging; }
    /// Whether the content moves beyond its edges and springs back; default yes. On an axis with
    /// nothing to scroll it does so only if `alwaysBounce...` (default no) says it.
    bool bounces() const { return bounces_; }
    void setBounces(bool bounces) { bounces_ = bounces; }
    bool alwaysBounceHorizontal() const { return alwaysBounceHorizontal_; }
    void setAlwaysBounceHorizontal(bool always) { alwaysBounceHorizontal_ = always; }
    bool alwaysBounceVertical() const { return alwaysBounceVertical_; }
    void setAlwaysBounceVertical(bool always) { alwaysBounceVertical_ = always; }
    /// A drag that begins clearly along one axis keeps to it; default no.
    bool directionalLockEnabled() const { return directionalLock_; }
    void setDirectionalLockEnabled(bool lock) { directionalLock_ = lock; }
    /// Between 0 and 1, both exclusive; others are ignored. Default
    /// `UIScrollViewDecelerationRateNormal`.
    double decelerationRate() const { return decelerationRate_; }
    void setDecelerationRate(double rate);
    /// A tap on the status bar scrolls to the top, if this is the only one on the screen that
    /// wants to; default yes.
    bool scrollsToTop() const { return scrollsToTop_; }
    void setScrollsToTop(bool scrolls) { scrollsToTop_ = scrolls; }
    UIScrollViewKeyboardDismissMode keyboardDismissMode() const { return keyboardDismissMode_; }
    void setKeyboardDismissMode(UIScrollViewKeyboardDismissMode mode) {
        keyboardDismissMode_ = mode;
    }

    // What goes on.
    /// A finger is on the content that may yet drag it, or does.
    bool isTracking() const;
    /// A finger drags the content.
    bool isDragging() const;
    /// The content moves on by itself after a drag.
    bool isDecelerating() const;
    Ref<UIPanGestureRecognizer> panGestureRecognizer() const;

    // Touches of the views inside.
    /// They hear of a finger only when it has rested for 150 ms, or left. Default yes.
    bool delaysContentTouches() const { return delaysContentTouches_; }
    void setDelaysContentTouches(bool delays) { delaysContentTouches_ = delays; }
    /// A finger that they have heard of may still begin to drag: they hear that it was cancelled.
    /// Default yes.
    bool canCancelContentTouches() const { return canCancelContentTouches_; }
    void setCanCancelContentTouches(bool can) { canCancelContentTouches_ = can; }
    /// Asked before a view inside hears of a finger; with no it never does. Default yes.
    virtual bool touchesShouldBegin(const TouchSet& touches, const Ref<UIEvent>& event,
                                    const Ref<UIView>& view);
    /// Asked when a finger that the view has heard of begins to drag; with no, the finger stays
    /// the view's. By default no for controls, yes for other views.
    virtual bool touchesShouldCancelInContentView(const Ref<UIView>& view);

    // Indicators: bars that show place and extent while a finger or a flight moves the content.
    bool showsHorizontalScrollIndicator() const { return showsHorizontalIndicator_; }
    void setShowsHorizontalScrollIndicator(bool shows);
    bool showsVerticalScrollIndicator() const { return showsVerticalIndicator_; }
    void setShowsVerticalScrollIndicator(bool shows);
    /// Distance from the edges of the bounds.
    EdgeInsets scrollIndicatorInsets() const { return indicatorInsets_; }
    void setScrollIndicatorInsets(const EdgeInsets& insets);
    UIScrollViewIndicatorStyle indicatorStyle() const { return indicatorStyle_; }
    void setIndicatorStyle(UIScrollViewIndicatorStyle style);
    /// Shows them for a moment, where there is something to scroll.
    void flashScrollIndicators();

    /// Tells the delegate when the origin changes, and asks for layout.
    void setBounds(const Rect& bounds) override;
    void setFrame(const Rect& frame) override;
    void willMoveToWindow(const Ref<UIWindow>& window) override;

private:
    friend class ScrollPanGestureRecognizer;
    friend class ContentTouchDelay;
    friend class ContentTouches;
    friend class StatusBarTap;
    struct State;

    void panned();

    WeakRef<UIScrollViewDelegate> delegate_;
    std::unique_ptr<State> state_;
    Size contentSize_;
    EdgeInsets contentInset_;
    EdgeInsets indicatorInsets_;
    double decelerationRate_ = UIScrollViewDecelerationRateNormal;
    UIScrollViewIndicatorStyle indicatorStyle_ = UIScrollViewIndicatorStyle::Default;
    UIScrollViewKeyboardDismissMode keyboardDismissMode_ = UIScrollViewKeyboardDismissMode::None;
    bool paging_ = false;
    bool bounces_ = true;
    bool alwaysBounceHorizontal_ = false;
    bool alwaysBounceVertical_ = false;
    bool directionalLock_ = false;
    bool scrollsToTop_ = true;
    bool delaysContentTouches_ = true;
    bool canCancelContentTouches_ = true;
    bool showsHorizontalIndicator_ = true;
    bool showsVerticalIndicator_ = true;
};

}  // namespace zn
