#pragma once

#include <memory>

#include "zarnic/platform/UIView.h"

namespace zn {

class UIScrollView;

/// Held weakly by the scroll view.
class ZN_EXPORT UIScrollViewDelegate {
public:
    virtual ~UIScrollViewDelegate() = default;
    /// The offset has changed. Called inside the call that changed it, also when that comes from
    /// here.
    virtual void scrollViewDidScroll(const Ref<UIScrollView>&) {}
    /// An animated change of the offset has come to its end.
    virtual void scrollViewDidEndScrollingAnimation(const Ref<UIScrollView>&) {}
};

/// A window onto content that is larger than itself: what is at the content offset lies in its top
/// left corner. The offset is the origin of the bounds, so that conversions include it. Clips what
/// lies outside. Main thread only.
class ZN_EXPORT UIScrollView : public UIView {
    ZN_OBJECT(UIScrollView, UIView)
public:
    UIScrollView();
    explicit UIScrollView(const Rect& frame);
    ~UIScrollView() override;
    void init() override;

    Ref<UIScrollViewDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const Ref<UIScrollViewDelegate>& delegate) { delegate_ = delegate; }

    /// Points; kept as set, outside the content too.
    Point contentOffset() const { return layer()->bounds().origin; }
    /// At once; an animated change in progress ends where it is, without a call.
    virtual void setContentOffset(Point offset);
    /// Animated, it takes 0.3 s, and the delegate hears of every frame and of the end.
    void setContentOffset(Point offset, bool animated);
    Size contentSize() const { return contentSize_; }
    virtual void setContentSize(Size size) { contentSize_ = size; }
    /// Room around the content that can be scrolled to; the offset stays.
    EdgeInsets contentInset() const { return contentInset_; }
    virtual void setContentInset(const EdgeInsets& insets) { contentInset_ = insets; }
    /// Scrolls as little as shows the rectangle (content coordinates), or as much of it as fits;
    /// not beyond the content.
    void scrollRectToVisible(const Rect& rect, bool animated);

    bool bounces() const { return bounces_; }
    void setBounces(bool bounces) { bounces_ = bounces; }
    bool showsHorizontalScrollIndicator() const { return showsHorizontalIndicator_; }
    void setShowsHorizontalScrollIndicator(bool shows) { showsHorizontalIndicator_ = shows; }
    bool showsVerticalScrollIndicator() const { return showsVerticalIndicator_; }
    void setShowsVerticalScrollIndicator(bool shows) { showsVerticalIndicator_ = shows; }

    /// Tells the delegate when the origin changes.
    void setBounds(const Rect& bounds) override;

private:
    class Animation;

    void animateTo(Point offset);
    void moveTo(Point offset);

    WeakRef<UIScrollViewDelegate> delegate_;
    std::unique_ptr<Animation> animation_;
    Size contentSize_;
    EdgeInsets contentInset_;
    bool bounces_ = true;
    bool showsHorizontalIndicator_ = true;
    bool showsVerticalIndicator_ = true;
};

}  // namespace zn
