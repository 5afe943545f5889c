#include "zarnic/platform/uikit/UILongPressGestureRecognizer.h"

#include "platform/uikit/view/ScreenSpace.h"
#include "zarnic/platform/foundation/Clock.h"

namespace zn {

UILongPressGestureRecognizer::UILongPressGestureRecognizer() = default;

UILongPressGestureRecognizer::UILongPressGestureRecognizer(const Action& action)
    : UIGestureRecognizer(action) {}

UILongPressGestureRecognizer::~UILongPressGestureRecognizer() = default;

void UILongPressGestureRecognizer::touchesBegan(const TouchSet&, const Ref<UIEvent>&) {
    if (state() != UIGestureRecognizerState::Possible)
        return;
    if (numberOfTouches() > touchesRequired_)
        setState(UIGestureRecognizerState::Failed);
    if (numberOfTouches() != touchesRequired_)
        return;
    start_ = locationInView(nullptr);
    const WeakRef<UILongPressGestureRecognizer> weak = ref(this);
    timer_ = NSRunLoop::mainRunLoop()->addDeadline(
        Clock::shared().monotonic() + minimumPressDuration_, [weak] {
            if (const auto self = weak.lock())
                self->setState(UIGestureRecognizerState::Began);
        });
}

void UILongPressGestureRecognizer::touchesMoved(const TouchSet&, const Ref<UIEvent>&) {
    if (state() != UIGestureRecognizerState::Possible)
        setState(UIGestureRecognizerState::Changed);
    else if (timer_ && distance(start_, locationInView(nullptr)) > allowableMovement_)
        setState(UIGestureRecognizerState::Failed);
}

void UILongPressGestureRecognizer::touchesEnded(const TouchSet&, const Ref<UIEvent>&) {
    setState(state() == UIGestureRecognizerState::Possible ? UIGestureRecognizerState::Failed
                                                           : UIGestureRecognizerState::Ended);
}

void UILongPressGestureRecognizer::touchesCancelled(const TouchSet&, const Ref<UIEvent>&) {
    setState(UIGestureRecognizerState::Cancelled);
}

void UILongPressGestureRecognizer::reset() {
    timer_.reset();
}

}  // namespace zn
