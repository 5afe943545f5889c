#pragma once

#include "platform/uikit/scrolling/ScrollCourse.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/layers/CALayer.h"
#include "zarnic/platform/uikit/UIScrollView.h"

namespace zn {

/// A bar beside the content that shows which part of it one sees. It lies in a layer over the
/// content, not among the subviews. Lengths in points.
class ScrollIndicator {
public:
    enum class Axis { Horizontal, Vertical };
    explicit ScrollIndicator(Axis axis) : axis_(axis) {}
    ~ScrollIndicator();
    ScrollIndicator(const ScrollIndicator&) = delete;
    ScrollIndicator& operator=(const ScrollIndicator&) = delete;

    struct Place {
        /// The scroll view's, origin included.
        Rect bounds;
        EdgeInsets insets;
        /// Of the bar's axis.
        ScrollRange range;
        /// Another bar needs the corner.
        bool cornerTaken = false;
    };

    void setStyle(UIScrollViewIndicatorStyle style);
    /// Whether any of it is on the screen.
    bool seen() const;
    void moveTo(const Place& place);
    /// At once, above what is in the layer.
    void show(const Ref<CALayer>& over, const Place& place);
    void hideAfter(double seconds);
    void hide();

private:
    Rect frameAt(const Place& place) const;
    CGColor color() const;

    Axis axis_;
    UIScrollViewIndicatorStyle style_ = UIScrollViewIndicatorStyle::Default;
    Ref<CALayer> bar_;
    RunLoopToken fading_;
};

}  // namespace zn
