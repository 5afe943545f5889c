#include "platform/uikit/scrolling/ScrollViewState.h"

namespace zn {
namespace {

/// Seconds that they stay when they flash.
constexpr double flash = 1.0;

bool scrolls(const ScrollRange& range) {
    return range.high > range.low;
}

}  // namespace

ScrollIndicator::Place UIScrollView::State::horizontalPlace() const {
    return {view.bounds(), view.indicatorInsets_, horizontalRange(),
            view.showsVerticalIndicator_ && scrolls(verticalRange())};
}

ScrollIndicator::Place UIScrollView::State::verticalPlace() const {
    return {view.bounds(), view.indicatorInsets_, verticalRange(),
            view.showsHorizontalIndicator_ && scrolls(horizontalRange())};
}

void UIScrollView::State::placeIndicators() {
    if (horizontalIndicator.seen())
        horizontalIndicator.moveTo(horizontalPlace());
    if (verticalIndicator.seen())
        verticalIndicator.moveTo(verticalPlace());
}

void UIScrollView::State::showIndicators() {
    if (view.showsHorizontalIndicator_ && scrolls(horizontalRange()))
        horizontalIndicator.show(view.layer(), horizontalPlace());
    if (view.showsVerticalIndicator_ && scrolls(verticalRange()))
        verticalIndicator.show(view.layer(), verticalPlace());
}

void UIScrollView::State::hideIndicatorsAfter(double seconds) {
    horizontalIndicator.hideAfter(seconds);
    verticalIndicator.hideAfter(seconds);
}

void UIScrollView::setShowsHorizontalScrollIndicator(bool shows) {
    showsHorizontalIndicator_ = shows;
    if (!shows)
        state_->horizontalIndicator.hide();
}

void UIScrollView::setShowsVerticalScrollIndicator(bool shows) {
    showsVerticalIndicator_ = shows;
    if (!shows)
        state_->verticalIndicator.hide();
}

void UIScrollView::setScrollIndicatorInsets(const EdgeInsets& insets) {
    indicatorInsets_ = insets;
    state_->placeIndicators();
}

void UIScrollView::setIndicatorStyle(UIScrollViewIndicatorStyle style) {
    indicatorStyle_ = style;
    state_->horizontalIndicator.setStyle(style);
    state_->verticalIndicator.setStyle(style);
}

void UIScrollView::flashScrollIndicators() {
    state_->showIndicators();
    // Shown by a finger they go when the content rests.
    if (!isDragging() && !isDecelerating())
        state_->hideIndicatorsAfter(flash);
}

}  // namespace zn
