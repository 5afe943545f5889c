#include "zarnic/platform/uikit/UITextInput.h"

#include <algorithm>

#include "platform/foundation/text/TextBreaks.h"
#include "platform/uikit/text/TextInputState.h"
#include "zarnic/platform/uikit/UIPasteboard.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

using Direction = TextEditor::Direction;
using Kind = TextHistory::Kind;
using Unit = TextEditor::Unit;

UITextInput::UITextInput(Lines lines) : state_(std::make_unique<State>(*this, lines)) {}

UITextInput::~UITextInput() = default;

bool UITextInput::hasText() const {
    return !state_->editor.text().empty();
}

void UITextInput::replaceAllText(std::string_view text) {
    state_->editor.setText(text);
    contentChanged();
    refresh();
}

/// After the caret may have moved.
void UITextInput::refresh() {
    if (state_->editing && state_->editor.selection().length == 0)
        state_->canvas->showCaret(state_->caret());
    else
        state_->canvas->hideCaret();
    state_->markChanged();
}

void UITextInput::editedByUser() {
    const Ref<UIView> self = ref(&inputOwner());
    state_->atLineEnd = false;
    state_->column.reset();
    contentChanged();
    refresh();
    selectionMoved();
    textEdited();
}

void UITextInput::edit(NSRange range, std::string_view text, Step step) {
    if (!acceptsEdits())
        return;
    const Ref<UIView> self = ref(&inputOwner());
    range = state_->editor.clipped(range);
    const std::string kept = state_->fitting(text);
    if ((range.length == 0 && kept.empty()) || !shouldChange(range, kept))
        return;
    const Kind joined = kept.empty() ? Kind::Deleting : Kind::Typing;
    state_->editor.replace(range, kept, step == Step::Alone ? Kind::Single : joined);
    editedByUser();
}

void UITextInput::insertText(std::string_view text) {
    if (text == "\n" || text == "\r" || text == "\r\n") {
        unmarkText();
        returnPressed();
        return;
    }
    if (state_->editor.markedRange()) {
        setMarkedText(text, {text.size(), 0});
        unmarkText();
        return;
    }
    edit(selectedRange(), text);
}

void UITextInput::setMarkedText(std::string_view text, NSRange selected) {
    const auto marked = state_->editor.markedRange();
    const NSRange range = marked ? *marked : state_->editor.selection();
    if (!acceptsEdits() || (!marked && text.empty()) || !shouldChange(range, text))
        return;
    state_->editor.setMarkedText(text, selected);
    editedByUser();
}

void UITextInput::unmarkText() {
    if (!state_->editor.markedRange())
        return;
    state_->editor.unmarkText();
    refresh();
}

void UITextInput::deleteBackward() {
    deleteOne(false, false);
}

void UITextInput::deleteOne(bool forward, bool word) {
    unmarkText();
    // What is typed unseen has no words.
    const Unit unit = !word ? Unit::Character : state_->secure ? Unit::Document : Unit::Word;
    edit(state_->editor.rangeToDelete(forward ? Direction::Forward : Direction::Backward, unit),
         {});
}

Rect UITextInput::caretRectOnScreen() const {
    const Ref<UIWindow> window = state_->canvas->window();
    if (!window)
        return {};
    return window->convertRectToWindow(state_->canvas->convertRectToView(state_->caret(), window),
                                       nullptr);
}

NSRange UITextInput::selectedRange() const {
    return state_->editor.selection();
}

void UITextInput::setSelectedRange(NSRange range) {
    range = state_->editor.clipped(range);
    state_->editor.select(range.location, range.end());
    state_->atLineEnd = false;
    state_->column.reset();
    refresh();
    selectionMoved();
}

std::optional<NSRange> UITextInput::markedTextRange() const {
    return state_->editor.markedRange();
}

std::string UITextInput::textInRange(NSRange range) const {
    range = state_->editor.clipped(range);
    return state_->editor.text().substr(range.location, range.length);
}

void UITextInput::replaceRange(NSRange range, std::string_view text) {
    edit(range, text, Step::Alone);
}

void UITextInput::select() {
    const TextPiece word = wordAt(state_->editor.text(), state_->editor.focus());
    setSelectedRange({word.start, word.end - word.start});
}

void UITextInput::selectAll() {
    setSelectedRange({0, state_->editor.text().size()});
}

void UITextInput::copy() {
    const auto selected = state_->editor.selectedText();
    if (!selected.empty() && !state_->secure)
        UIPasteboard::generalPasteboard()->setString(selected);
}

void UITextInput::cut() {
    if (state_->secure || !acceptsEdits())
        return;
    copy();
    edit(selectedRange(), {}, Step::Alone);
}

void UITextInput::paste() {
    unmarkText();
    if (const auto pasted = UIPasteboard::generalPasteboard()->string(); pasted && !pasted->empty())
        edit(selectedRange(), *pasted, Step::Alone);
}

bool UITextInput::canUndo() const {
    return state_->editor.canUndo() || state_->editor.markedRange();
}

bool UITextInput::canRedo() const {
    return state_->editor.canRedo();
}

void UITextInput::undo() {
    if (acceptsEdits() && state_->editor.undo())
        editedByUser();
}

void UITextInput::redo() {
    if (acceptsEdits() && state_->editor.redo())
        editedByUser();
}

std::size_t UITextInput::closestPositionToPoint(Point point) const {
    const Ref<UIView> view = ref(&const_cast<UITextInput*>(this)->inputOwner());
    const Point place = state_->canvas->convertPointFromView(point, view);
    return state_->realPosition(state_->flow.placeAt(place).position);
}

Rect UITextInput::caretRectForPosition(std::size_t position) const {
    const Ref<UIView> view = ref(&const_cast<UITextInput*>(this)->inputOwner());
    const NSRange kept = state_->editor.clipped({position, 0});
    return state_->canvas->convertRectToView(
        state_->flow.caretAt({state_->shownPosition(kept.location), false}), view);
}

std::vector<Rect> UITextInput::selectionRectsForRange(NSRange range) const {
    const Ref<UIView> view = ref(&const_cast<UITextInput*>(this)->inputOwner());
    range = state_->shownRange(state_->editor.clipped(range));
    std::vector<Rect> boxes = state_->flow.boxesBetween(range, {0, state_->flow.size().height});
    for (Rect& box : boxes)
        box = state_->canvas->convertRectToView(box, view);
    return boxes;
}

UIKeyboardType UITextInput::keyboardType() const {
    return state_->keyboardType;
}

void UITextInput::setKeyboardType(UIKeyboardType type) {
    state_->keyboardType = type;
}

UIReturnKeyType UITextInput::returnKeyType() const {
    return state_->returnKeyType;
}

void UITextInput::setReturnKeyType(UIReturnKeyType type) {
    state_->returnKeyType = type;
}

bool UITextInput::secureTextEntry() const {
    return state_->secure;
}

void UITextInput::setSecureTextEntry(bool secure) {
    state_->secure = secure;
    state_->layOut();
    contentChanged();
    refresh();
}

Ref<UIView> UITextInput::inputView() const {
    return state_->inputView;
}

void UITextInput::setInputView(const Ref<UIView>& view) {
    state_->inputView = view;
}

Ref<UIView> UITextInput::inputAccessoryView() const {
    return state_->accessoryView;
}

void UITextInput::setInputAccessoryView(const Ref<UIView>& view) {
    state_->accessoryView = view;
}

}  // namespace zn
