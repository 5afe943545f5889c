#include <algorithm>

#include "zarnic/platform/uikit/UIView.h"

namespace zn {

namespace {

/// Where a view lies along one side of its superview, and which parts of that may change.
struct Span {
    double start;
    double length;
    bool flexibleBefore;
    bool flexibleLength;
    bool flexibleAfter;
};

Span resized(Span span, double oldSide, double newSide) {
    const double after = oldSide - span.start - span.length;
    const int parts = span.flexibleBefore + span.flexibleLength + span.flexibleAfter;
    if (parts == 0)
        return span;
    const double flexible = (span.flexibleBefore ? span.start : 0) +
                            (span.flexibleLength ? span.length : 0) +
                            (span.flexibleAfter ? after : 0);
    const double growth = newSide - oldSide;
    const auto share = [&](double part) {
        return flexible > 0 ? growth * (part / flexible) : growth / parts;
    };
    if (span.flexibleBefore)
        span.start += share(span.start);
    if (span.flexibleLength)
        span.length = std::max(0.0, span.length + share(span.length));
    return span;
}

}  // namespace

void UIView::sizeChanged(Size oldSize) {
    if (layer_->bounds().size == oldSize)
        return;
    setNeedsLayout();
    if (autoresizesSubviews_)
        resizeSubviews(oldSize);
}

void UIView::resizeSubviews(Size oldSize) {
    const Size newSize = layer_->bounds().size;
    for (const auto& subview : std::vector(subviews_))
        if (subview->autoresizingMask_ != UIViewAutoresizing::None)
            subview->resizeInSuperview(oldSize, newSize);
}

void UIView::resizeInSuperview(Size oldSize, Size newSize) {
    using namespace UIViewAutoresizing;
    const auto has = [this](unsigned bit) { return (autoresizingMask_ & bit) != 0; };
    const Size size = bounds().size;
    const Point anchor = layer_->anchorPoint(), place = center();
    const Span x = resized({place.x - anchor.x * size.width, size.width, has(FlexibleLeftMargin),
                            has(FlexibleWidth), has(FlexibleRightMargin)},
                           oldSize.width, newSize.width);
    const Span y = resized({place.y - anchor.y * size.height, size.height, has(FlexibleTopMargin),
                            has(FlexibleHeight), has(FlexibleBottomMargin)},
                           oldSize.height, newSize.height);
    if (transform().isIdentity()) {
        setFrame({x.start, y.start, x.length, y.length});
        return;
    }
    setBounds({bounds().origin, {x.length, y.length}});
    setCenter({x.start + anchor.x * x.length, y.start + anchor.y * y.length});
}

}  // namespace zn
