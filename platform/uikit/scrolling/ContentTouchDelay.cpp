#include "platform/uikit/scrolling/ContentTouchDelay.h"

#include "platform/uikit/scrolling/ScrollViewState.h"
#include "zarnic/platform/foundation/Clock.h"

namespace zn {
namespace {

constexpr double delaySeconds = 0.15;

}  // namespace

ContentTouchDelay::ContentTouchDelay() {
    setDelaysTouchesBegan(true);
    setDelaysTouchesEnded(false);
    setCancelsTouchesInView(false);
}

ContentTouchDelay::~ContentTouchDelay() = default;

/// Touches of the scroll view itself are not delayed, nor those on content that cannot be dragged.
bool ContentTouchDelay::delays(const TouchSet& touches) const {
    const auto scrollView = as<UIScrollView>(view());
    return scrollView && scrollView->delaysContentTouches() && !touches.empty() &&
           touches.front()->view() != scrollView && scrollView->state_->movableAxes().any();
}

void ContentTouchDelay::touchesBegan(const TouchSet& touches, const Ref<UIEvent>&) {
    if (!delays(touches)) {
        setState(UIGestureRecognizerState::Failed);
        return;
    }
    if (deadline_)
        return;
    const WeakRef<ContentTouchDelay> weak = ref(this);
    deadline_ =
        NSRunLoop::mainRunLoop()->addDeadline(Clock::shared().monotonic() + delaySeconds, [weak] {
            if (const auto self = weak.lock())
                self->setState(UIGestureRecognizerState::Failed);
        });
}

void ContentTouchDelay::touchesEnded(const TouchSet&, const Ref<UIEvent>&) {
    setState(UIGestureRecognizerState::Failed);
}

void ContentTouchDelay::touchesCancelled(const TouchSet&, const Ref<UIEvent>&) {
    setState(UIGestureRecognizerState::Failed);
}

void ContentTouchDelay::reset() {
    deadline_.reset();
}

}  // namespace zn
