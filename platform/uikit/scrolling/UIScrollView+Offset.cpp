#include <algorithm>

#include "platform/uikit/scrolling/ScrollViewState.h"
#include "platform/uikit/view/ScreenSpace.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {
namespace {

/// Seconds by which the loop may wake it before the sum of its frames.
constexpr double timeTolerance = 1e-9;

struct Range {
    double start;
    double end;
};

/// The offset nearest to the present one at which the range shows, inside what can be scrolled to.
double offsetShowing(Range range, double offset, const ScrollRange& scrollable) {
    const double least = range.end - scrollable.side, most = range.start;
    // A range that does not fit shows its beginning, or stays when only its inside is seen.
    const double nearest =
        least <= most ? std::clamp(offset, least, most) : std::clamp(offset, most, least);
    return scrollable.nearest(nearest);
}

}  // namespace

void UIScrollView::setContentOffset(Point offset) {
    const Point moved = offset - contentOffset();
    const bool goesOn = state_->deceleration() != nullptr;
    if (!goesOn)
        state_->stop();
    state_->place(offset);
    if (goesOn && state_->deceleration())
        state_->replan(moved);
}

void UIScrollView::setContentOffset(Point offset, bool animated) {
    const Ref<UIScrollView> self = ref(this);
    if (animated && offset != contentOffset()) {
        state_->animateTo(offset, &UIScrollViewDelegate::scrollViewDidEndScrollingAnimation);
    } else {
        state_->stop();
        setContentOffset(offset);
    }
}

void UIScrollView::scrollRectToVisible(const Rect& rect, bool animated) {
    const Rect wanted = rect.standardized();
    const Point offset{
        offsetShowing({wanted.minX(), wanted.maxX()}, contentOffset().x, state_->horizontalRange()),
        offsetShowing({wanted.minY(), wanted.maxY()}, contentOffset().y, state_->verticalRange())};
    if (offset != contentOffset())
        setContentOffset(offset, animated);
}

void UIScrollView::State::place(Point offset) {
    view.setBounds({offset, view.bounds().size});
}

void UIScrollView::State::animateTo(Point offset, ScrollMotion::DelegateCall atEnd) {
    stop();
    begin(std::make_unique<OffsetAnimation>(view.contentOffset(), offset, atEnd));
}

void UIScrollView::State::scrollToTop() {
    const Ref<UIScrollView> kept = self();
    const auto delegate = view.delegate();
    if (delegate && !delegate->scrollViewShouldScrollToTop(kept))
        return;
    const Point top{view.contentOffset().x, verticalRange().low};
    if (top.y < view.contentOffset().y)
        animateTo(top, &UIScrollViewDelegate::scrollViewDidScrollToTop);
}

void UIScrollView::State::begin(std::unique_ptr<ScrollMotion> next) {
    motion = std::move(next);
    if (!tick)
        tick.emplace([this] { step(); }, UIScreen::mainScreen()->maximumFramesPerSecond());
    tick->stop();
    tick->start();
}

void UIScrollView::State::step() {
    const Ref<UIScrollView> kept = self();
    if (motion->elapsed() < motion->duration() - timeTolerance)
        place(rounded(motion->placeAt(motion->elapsed())));
    else
        finish();
}

void UIScrollView::State::finish() {
    const Ref<UIScrollView> kept = self();
    // The delegate may begin another one: this one is over before it hears of the end.
    const std::unique_ptr<ScrollMotion> finished = std::move(motion);
    tick->stop();
    place(finished->end());
    if (std::exchange(decelerating, false))
        comeToRest();
    if (const auto delegate = view.delegate())
        ((*delegate).*finished->atEnd())(kept);
}

void UIScrollView::State::stop() {
    if (!motion)
        return;
    const bool wasDeceleration = deceleration() != nullptr;
    motion.reset();
    tick->stop();
    if (!wasDeceleration)
        return;
    comeToRest();
    const auto delegate = view.delegate();
    if (std::exchange(decelerating, false) && delegate)
        delegate->scrollViewDidEndDecelerating(self());
}

}  // namespace zn
