#include <cmath>

#include "platform/uikit/text/TextInputState.h"
#include "platform/uikit/text/TextTouch.h"
#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/uikit/UIEvent.h"
#include "zarnic/platform/uikit/UITextField.h"

namespace zn {
namespace {

/// How far a finger goes before it selects.
constexpr double dragDistance = 4;

}  // namespace

void UITextField::post(const char* name) {
    NSNotificationCenter::defaultCenter()->postNotificationName(name, ref(this));
}

bool UITextField::canBecomeFirstResponder() const {
    return enabled() && window();
}

bool UITextField::becomeFirstResponder() {
    if (isFirstResponder())
        return true;
    const Ref<UITextField> self = ref(this);
    const auto delegate = this->delegate();
    if (!canBecomeFirstResponder() || (delegate && !delegate->textFieldShouldBeginEditing(self)) ||
        !UIControl::becomeFirstResponder())
        return false;
    beginEditing();
    return isFirstResponder();
}

void UITextField::beginEditing() {
    const Ref<UITextField> self = ref(this);
    input().editing = true;
    truncate(clip_->bounds().width());
    if (clearsOnBegin_)
        setText({});
    setNeedsLayout();
    setSelectedRange({text().size(), 0});
    if (const auto delegate = this->delegate())
        delegate->textFieldDidBeginEditing(self);
    sendActionsForControlEvents(UIControlEvents::EditingDidBegin);
    post(UITextFieldTextDidBeginEditingNotification);
}

bool UITextField::resignFirstResponder() {
    if (!isFirstResponder())
        return true;
    const Ref<UITextField> self = ref(this);
    const auto delegate = this->delegate();
    if (delegate && !delegate->textFieldShouldEndEditing(self))
        return false;
    if (!UIControl::resignFirstResponder())
        return false;
    finishEditing();
    return true;
}

void UITextField::lostFirstResponder() {
    if (isEditing())
        finishEditing();
}

void UITextField::finishEditing() {
    const Ref<UITextField> self = ref(this);
    unmarkText();
    input().editing = false;
    input().markChanged();
    input().canvas->hideCaret();
    setNeedsLayout();
    if (const auto delegate = this->delegate())
        delegate->textFieldDidEndEditing(self);
    sendActionsForControlEvents(UIControlEvents::EditingDidEnd);
    post(UITextFieldTextDidEndEditingNotification);
}

bool UITextField::shouldChange(NSRange range, std::string_view text) {
    const auto delegate = this->delegate();
    return !delegate || delegate->textFieldShouldChangeCharactersInRange(ref(this), range, text);
}

void UITextField::contentChanged() {
    setNeedsLayout();
}

void UITextField::textEdited() {
    sendActionsForControlEvents(UIControlEvents::EditingChanged);
    post(UITextFieldTextDidChangeNotification);
}

void UITextField::selectionMoved() {
    setNeedsLayout();
    if (const auto delegate = this->delegate())
        delegate->textFieldDidChangeSelection(ref(this));
}

void UITextField::returnPressed() {
    const Ref<UITextField> self = ref(this);
    const auto delegate = this->delegate();
    if (delegate && !delegate->textFieldShouldReturn(self))
        return;
    const bool exits = !actionsForControlEvents(UIControlEvents::EditingDidEndOnExit).empty();
    sendActionsForControlEvents(UIControlEvents::EditingDidEndOnExit);
    if (exits)
        resignFirstResponder();
}

void UITextField::clearTapped() {
    const Ref<UITextField> self = ref(this);
    const auto delegate = this->delegate();
    if (!delegate || delegate->textFieldShouldClear(self))
        edit({0, text().size()}, {});
}

Point UITextField::placeOf(const Ref<UITouch>& touch) const {
    return touch->locationInView(input().canvas);
}

bool UITextField::beginTrackingWithTouch(const Ref<UITouch>& touch, const Ref<UIEvent>&) {
    touchStart_ = placeOf(touch);
    dragging_ = false;
    if (isFirstResponder())
        touch_->begin(touchStart_, touch->tapCount());
    return true;
}

bool UITextField::continueTrackingWithTouch(const Ref<UITouch>& touch, const Ref<UIEvent>&) {
    const Point place = placeOf(touch);
    if (!dragging_ && std::hypot(place.x - touchStart_.x, place.y - touchStart_.y) < dragDistance)
        return true;
    if (!dragging_ && !isFirstResponder()) {
        if (!becomeFirstResponder())
            return true;
        touch_->begin(touchStart_, 1);
    }
    dragging_ = true;
    // Above and below it is the same line.
    touch_->drag({place.x, input().flow.lineHeight() / 2});
    return true;
}

void UITextField::endTrackingWithTouch(const Ref<UITouch>& touch, const Ref<UIEvent>&) {
    if (!touch || dragging_)
        return;
    const Point place = placeOf(touch);
    if (!bounds().contains(touch->locationInView(ref(this))))
        return;
    const bool first = !isFirstResponder();
    if (first && !becomeFirstResponder())
        return;
    if (first)
        touch_->begin(place, touch->tapCount());
    touch_->tap(place);
}

void UITextField::cancelTrackingWithEvent(const Ref<UIEvent>&) {
    if (dragging_ && isFirstResponder())
        touch_->cancel();
    dragging_ = false;
}

}  // namespace zn
