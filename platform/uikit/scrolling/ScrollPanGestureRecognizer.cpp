#include "platform/uikit/scrolling/ScrollPanGestureRecognizer.h"

#include <algorithm>

#include "platform/uikit/scrolling/ScrollViewState.h"
#include "platform/uikit/touch/TouchDispatcher.h"
#include "platform/uikit/view/ScreenSpace.h"
#include "zarnic/platform/uikit/UIScreenEdgePanGestureRecognizer.h"

namespace zn {
namespace {

/// Points before it is a drag; on content that was moving, any movement is.
constexpr double threshold = 10;

/// The greater part of a movement.
Point mainPart(Point movement) {
    return std::abs(movement.x) > std::abs(movement.y) ? Point{movement.x, 0}
                                                       : Point{0, movement.y};
}

}  // namespace

ScrollPanGestureRecognizer::ScrollPanGestureRecognizer(const Action& action)
    : UIPanGestureRecognizer(action) {}

ScrollPanGestureRecognizer::~ScrollPanGestureRecognizer() = default;

double ScrollPanGestureRecognizer::hesitation(double length) const {
    const auto scrollView = as<UIScrollView>(view());
    return scrollView && scrollView->state_->caught ? 0 : std::min(length, threshold);
}

void ScrollPanGestureRecognizer::touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) {
    UIPanGestureRecognizer::touchesBegan(touches, event);
    if (const auto scrollView = as<UIScrollView>(view()))
        scrollView->state_->fingerDown();
}

void ScrollPanGestureRecognizer::reset() {
    UIPanGestureRecognizer::reset();
    if (const auto scrollView = as<UIScrollView>(view()))
        scrollView->state_->fingersUp();
}

bool ScrollPanGestureRecognizer::shouldRequireFailureOfGestureRecognizer(
    const Ref<UIGestureRecognizer>& other) const {
    return as<UIScreenEdgePanGestureRecognizer>(other) != nullptr;
}

UIPanGestureRecognizer::Verdict ScrollPanGestureRecognizer::judge(Point movement) const {
    const auto scrollView = as<UIScrollView>(view());
    if (!scrollView)
        return Verdict::Fails;
    const UIScrollView::State& state = *scrollView->state_;
    const Point scrolled = state.movableAxes().along(movement);
    const double length = distance({}, scrolled);
    if (length <= 0 || (length < threshold && !state.caught) || outerTakes(scrolled))
        return Verdict::Undecided;
    return viewsGiveUp() ? Verdict::Begins : Verdict::Fails;
}

/// At its end, a scroll view leaves the finger to one around it that can go on.
bool ScrollPanGestureRecognizer::outerTakes(Point movement) const {
    const auto inner = as<UIScrollView>(view());
    const Point wanted = mainPart(movement);
    if (inner->state_->hasRoomFor(wanted))
        return false;
    for (Ref<UIView> each = inner->superview(); each; each = each->superview()) {
        const auto outer = as<UIScrollView>(each);
        if (outer && outer->scrollEnabled() && outer->state_->hasRoomFor(wanted))
            return true;
    }
    return false;
}

bool ScrollPanGestureRecognizer::viewsGiveUp() const {
    const auto scrollView = as<UIScrollView>(view());
    const auto& dispatcher = TouchDispatcher::shared();
    return std::all_of(touches().begin(), touches().end(), [&](const Ref<UITouch>& touch) {
        const Ref<UIView> content = touch->view();
        return !content || content == scrollView || !dispatcher.viewHas(touch) ||
               (scrollView->canCancelContentTouches() &&
                scrollView->touchesShouldCancelInContentView(content));
    });
}

}  // namespace zn
