#include "platform/uikit/scrolling/ScrollViewState.h"
#include "platform/uikit/view/ScreenSpace.h"
#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/platform/uikit/UIControl.h"

namespace zn {
namespace {

/// How much longer one way must be than the other for a drag to keep to it.
constexpr double lockRatio = 2;
constexpr double millisecondsPerSecond = 1000;

Point operator*(Point point, double factor) {
    return {point.x * factor, point.y * factor};
}

}  // namespace

void UIScrollView::panned() {
    const Ref<UIScrollView> self = ref(this);
    switch (state_->pan->state()) {
        case UIGestureRecognizerState::Began:
            return state_->beginDragging();
        case UIGestureRecognizerState::Changed:
            return state_->drag();
        case UIGestureRecognizerState::Ended:
            return state_->endDragging(state_->pan->velocityInView(self));
        default:
            return state_->endDragging({});
    }
}

bool UIScrollView::isTracking() const {
    const UIGestureRecognizerState state = state_->pan->state();
    return state_->pan->numberOfTouches() > 0 &&
           (state == UIGestureRecognizerState::Possible ||
            state == UIGestureRecognizerState::Began || state == UIGestureRecognizerState::Changed);
}

bool UIScrollView::touchesShouldBegin(const TouchSet&, const Ref<UIEvent>&, const Ref<UIView>&) {
    return true;
}

bool UIScrollView::touchesShouldCancelInContentView(const Ref<UIView>& view) {
    return as<UIControl>(view) == nullptr;
}

void UIScrollView::State::fingerDown() {
    if (!motion || dragging)
        return;
    const Ref<UIScrollView> kept = self();
    caught = true;
    stop();
}

/// Content that was caught where it cannot stay goes on to where it can.
void UIScrollView::State::fingersUp() {
    if (!std::exchange(caught, false) || motion || dragging)
        return;
    const Ref<UIScrollView> kept = self();
    const Deceleration::Plan plan = planFrom(view.contentOffset(), {});
    if (plan.duration() > 0)
        decelerate(plan);
}

UIScrollView::State::Axes UIScrollView::State::draggedAxes(Point movement) const {
    Axes axes = movableAxes();
    if (!view.directionalLock_)
        return axes;
    const double across = std::abs(movement.x), down = std::abs(movement.y);
    if (axes.horizontal && across > lockRatio * down)
        axes.vertical = false;
    else if (axes.vertical && down > lockRatio * across)
        axes.horizontal = false;
    return axes;
}

void UIScrollView::State::beginDragging() {
    const Ref<UIScrollView> kept = self();
    stop();
    const Point movement = pan->translationInView(kept);
    const Axes axes = draggedAxes(movement);
    dragging = Drag{axes, pulledAt(view.contentOffset()), view.contentOffset()};
    if (!tracking)
        tracking.emplace();
    showIndicators();
    if (view.keyboardDismissMode_ == UIScrollViewKeyboardDismissMode::OnDrag)
        if (const auto responder = UIApplication::sharedApplication()->firstResponder())
            responder->resignFirstResponder();
    if (const auto delegate = view.delegate())
        delegate->scrollViewWillBeginDragging(kept);
    // The content does not jump by what only showed that it is a drag.
    const Point along = axes.along(movement);
    const double length = distance({}, along);
    const double counts = length > 0 ? 1 - pan->hesitation(length) / length : 0;
    pan->setTranslation(along * counts, kept);
    drag();
}

Point UIScrollView::State::pulledAt(Point shown) const {
    return {horizontalRange().unbanded(shown.x), verticalRange().unbanded(shown.y)};
}

void UIScrollView::State::drag() {
    if (!dragging)
        return;
    const Ref<UIScrollView> kept = self();
    stop();
    const Point moved = dragging->axes.along(pan->translationInView(kept));
    pan->setTranslation({}, kept);
    const Point offset = view.contentOffset();
    // Somebody else has moved it.
    if (offset != dragging->shown)
        dragging->pulled = pulledAt(offset);
    dragging->pulled = dragging->pulled - moved;
    const Point banded = rounded(
        {horizontalRange().banded(dragging->pulled.x), verticalRange().banded(dragging->pulled.y)});
    dragging->shown = {dragging->axes.horizontal ? banded.x : offset.x,
                       dragging->axes.vertical ? banded.y : offset.y};
    place(dragging->shown);
}

void UIScrollView::State::endDragging(Point fingerVelocity) {
    if (!dragging)
        return;
    const Ref<UIScrollView> kept = self();
    const Point shown =
        dragging->axes.along({-fingerVelocity.x * horizontalRange().bandedSpeed(dragging->pulled.x),
                              -fingerVelocity.y * verticalRange().bandedSpeed(dragging->pulled.y)});
    stop();
    Deceleration::Plan plan = planFrom(view.contentOffset(), shown);
    Point target = plan.end;
    if (const auto delegate = view.delegate())
        delegate->scrollViewWillEndDraggingWithVelocity(kept, shown * (1 / millisecondsPerSecond),
                                                        target);
    if (target != plan.end)
        redirect(plan, target, view.contentOffset(), shown);
    leaveDrag(plan);
}

void UIScrollView::State::leaveDrag(const Deceleration::Plan& plan) {
    const Ref<UIScrollView> kept = self();
    const bool goesOn = plan.duration() > 0;
    dragging.reset();
    if (goesOn)
        begin(std::make_unique<Deceleration>(plan));
    else
        place(plan.end);
    if (const auto delegate = view.delegate())
        delegate->scrollViewDidEndDraggingWillDecelerate(kept, goesOn);
    // The delegate may have sent it elsewhere.
    if (goesOn && deceleration())
        announceDeceleration();
    else
        comeToRest();
}

}  // namespace zn
