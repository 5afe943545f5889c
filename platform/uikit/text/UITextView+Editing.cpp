#include <cmath>

#include "platform/uikit/text/TextInputState.h"
#include "platform/uikit/text/TextTouch.h"
#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/uikit/UIEvent.h"
#include "zarnic/platform/uikit/UILongPressGestureRecognizer.h"
#include "zarnic/platform/uikit/UITextView.h"

namespace zn {
namespace {

/// How far a finger goes before it selects.
constexpr double dragDistance = 4;

}  // namespace

void UITextView::post(const char* name) {
    NSNotificationCenter::defaultCenter()->postNotificationName(name, ref(this));
}

bool UITextView::canBecomeFirstResponder() const {
    return editable_ && window();
}

bool UITextView::becomeFirstResponder() {
    if (isFirstResponder())
        return true;
    const Ref<UITextView> self = ref(this);
    const auto delegate = textViewDelegate();
    if (!canBecomeFirstResponder() || (delegate && !delegate->textViewShouldBeginEditing(self)) ||
        !UIScrollView::becomeFirstResponder())
        return false;
    beginEditing();
    return isFirstResponder();
}

void UITextView::beginEditing() {
    const Ref<UITextView> self = ref(this);
    input().editing = true;
    setSelectedRange(selectedRange());
    if (const auto delegate = textViewDelegate())
        delegate->textViewDidBeginEditing(self);
    post(UITextViewTextDidBeginEditingNotification);
}

bool UITextView::resignFirstResponder() {
    if (!isFirstResponder())
        return true;
    const Ref<UITextView> self = ref(this);
    const auto delegate = textViewDelegate();
    if (delegate && !delegate->textViewShouldEndEditing(self))
        return false;
    if (!UIScrollView::resignFirstResponder())
        return false;
    finishEditing();
    return true;
}

void UITextView::lostFirstResponder() {
    if (isEditing())
        finishEditing();
}

void UITextView::finishEditing() {
    const Ref<UITextView> self = ref(this);
    unmarkText();
    input().editing = false;
    input().markChanged();
    input().canvas->hideCaret();
    if (const auto delegate = textViewDelegate())
        delegate->textViewDidEndEditing(self);
    post(UITextViewTextDidEndEditingNotification);
}

bool UITextView::shouldChange(NSRange range, std::string_view text) {
    const auto delegate = textViewDelegate();
    return !delegate || delegate->textViewShouldChangeTextInRange(ref(this), range, text);
}

void UITextView::textEdited() {
    if (const auto delegate = textViewDelegate())
        delegate->textViewDidChange(ref(this));
    post(UITextViewTextDidChangeNotification);
}

bool UITextView::scrolls() const {
    return contentSize().height + contentInset().top + contentInset().bottom > bounds().height();
}

Point UITextView::placeOf(const Ref<UITouch>& touch) const {
    return touch->locationInView(input().canvas);
}

void UITextView::touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) {
    UIScrollView::touchesBegan(touches, event);
    const Ref<UITouch> touch = touches.front();
    touchStart_ = placeOf(touch);
    dragging_ = false;
    if (isFirstResponder())
        touch_->begin(touchStart_, touch->tapCount());
}

void UITextView::touchesMoved(const TouchSet& touches, const Ref<UIEvent>& event) {
    UIScrollView::touchesMoved(touches, event);
    const Point place = placeOf(touches.front());
    const bool selects = !scrolls() || (isFirstResponder() && touch_->selectsWhole());
    if (!selects || std::hypot(place.x - touchStart_.x, place.y - touchStart_.y) < dragDistance)
        return;
    if (!dragging_ && !isFirstResponder()) {
        if (!becomeFirstResponder())
            return;
        touch_->begin(touchStart_, 1);
    }
    dragging_ = true;
    touch_->drag(place);
}

void UITextView::touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event) {
    UIScrollView::touchesEnded(touches, event);
    const Ref<UITouch> touch = touches.front();
    if (dragging_ || !bounds().contains(touch->locationInView(ref(this))))
        return;
    const bool first = !isFirstResponder();
    if (first && !becomeFirstResponder())
        return;
    const Point place = placeOf(touch);
    if (first)
        touch_->begin(place, touch->tapCount());
    touch_->tap(place);
}

void UITextView::touchesCancelled(const TouchSet& touches, const Ref<UIEvent>& event) {
    UIScrollView::touchesCancelled(touches, event);
    if (dragging_ && isFirstResponder())
        touch_->cancel();
    dragging_ = false;
}

void UITextView::pressed(const Ref<UILongPressGestureRecognizer>& recognizer) {
    const Point place = recognizer->locationInView(input().canvas);
    if (recognizer->state() == UIGestureRecognizerState::Began) {
        if (!becomeFirstResponder())
            return;
        touch_->begin(place, 2);
    } else if (recognizer->state() == UIGestureRecognizerState::Changed && isFirstResponder()) {
        touch_->drag(place);
    }
}

}  // namespace zn
