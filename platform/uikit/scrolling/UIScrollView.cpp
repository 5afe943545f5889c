#include "zarnic/platform/uikit/UIScrollView.h"

#include "platform/uikit/scrolling/ScrollViewState.h"
#include "platform/uikit/view/PixelRounding.h"
#include "platform/uikit/view/ScreenSpace.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {

ZN_REGISTER_CLASS(UIScrollView);

UIScrollView::UIScrollView() : UIScrollView(Rect()) {}

UIScrollView::UIScrollView(const Rect& frame)
    : UIView(frame), state_(std::make_unique<State>(*this)) {}

UIScrollView::~UIScrollView() = default;

void UIScrollView::init() {
    UIView::init();
    setClipsToBounds(true);
    state_->pan =
        make<ScrollPanGestureRecognizer>(Action(ref(this), "panned", &UIScrollView::panned));
    state_->delay = make<ContentTouchDelay>();
    addGestureRecognizer(state_->delay);
    addGestureRecognizer(state_->pan);
}

ScrollRange UIScrollView::State::horizontalRange() const {
    const double side = view.bounds().width(), low = -view.contentInset_.left;
    const double high = std::max(low, view.contentSize_.width + view.contentInset_.right - side);
    return {low, high, side, view.bounces_ && (high > low || view.alwaysBounceHorizontal_)};
}

ScrollRange UIScrollView::State::verticalRange() const {
    const double side = view.bounds().height(), low = -view.contentInset_.top;
    const double high = std::max(low, view.contentSize_.height + view.contentInset_.bottom - side);
    return {low, high, side, view.bounces_ && (high > low || view.alwaysBounceVertical_)};
}

UIScrollView::State::Axes UIScrollView::State::movableAxes() const {
    const auto movable = [](const ScrollRange& range) {
        return range.high > range.low || range.bounces;
    };
    return {movable(horizontalRange()), movable(verticalRange())};
}

bool UIScrollView::State::hasRoomFor(Point movement) const {
    const auto room = [](double way, double offset, const ScrollRange& range) {
        return way > 0 ? offset > range.low : way < 0 && offset < range.high;
    };
    const Point offset = view.contentOffset();
    return room(movement.x, offset.x, horizontalRange()) ||
           room(movement.y, offset.y, verticalRange());
}

Point UIScrollView::State::rounded(Point offset) const {
    const double scale = UIScreen::mainScreen()->scale();
    return {roundToPixel(offset.x, scale), roundToPixel(offset.y, scale)};
}

void UIScrollView::setContentSize(Size size) {
    contentSize_ = size;
    state_->extentChanged();
}

void UIScrollView::setContentInset(const EdgeInsets& insets) {
    contentInset_ = insets;
    state_->extentChanged();
}

void UIScrollView::setBounds(const Rect& bounds) {
    const Rect before = this->bounds();
    UIView::setBounds(bounds);
    const Rect after = this->bounds();
    if (after.size != before.size)
        state_->extentChanged();
    if (after.origin != before.origin)
        state_->offsetChanged();
}

void UIScrollView::setFrame(const Rect& frame) {
    const Size before = bounds().size;
    UIView::setFrame(frame);
    if (bounds().size != before)
        state_->extentChanged();
}

void UIScrollView::State::extentChanged() {
    placeIndicators();
    if (deceleration())
        replan({});
}

void UIScrollView::State::offsetChanged() {
    placeIndicators();
    view.setNeedsLayout();
    if (const auto delegate = view.delegate())
        delegate->scrollViewDidScroll(self());
}

/// What moved on a screen comes to rest where it would.
void UIScrollView::willMoveToWindow(const Ref<UIWindow>& window) {
    UIView::willMoveToWindow(window);
    if (!window && state_->deceleration())
        state_->finish();
}

bool UIScrollView::scrollEnabled() const {
    return state_->pan->enabled();
}

void UIScrollView::setScrollEnabled(bool enabled) {
    state_->pan->setEnabled(enabled);
    state_->delay->setEnabled(enabled);
}

void UIScrollView::setDecelerationRate(double rate) {
    if (rate > 0 && rate < 1)
        decelerationRate_ = rate;
}

bool UIScrollView::isDragging() const {
    return state_->dragging.has_value();
}

bool UIScrollView::isDecelerating() const {
    return state_->decelerating;
}

Ref<UIPanGestureRecognizer> UIScrollView::panGestureRecognizer() const {
    return state_->pan;
}

}  // namespace zn
