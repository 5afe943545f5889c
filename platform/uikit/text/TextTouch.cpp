#include "platform/uikit/text/TextTouch.h"

#include <algorithm>

#include "platform/foundation/text/TextBreaks.h"
#include "platform/uikit/text/TextInputState.h"

namespace zn {

void TextTouch::begin(Point place, int taps) {
    const TextEditor& editor = input_.state_->editor;
    unit_ = taps >= 3 ? Unit::Paragraph : taps == 2 ? Unit::Word : Unit::Character;
    before_ = {editor.anchor(), editor.focus()};
    const std::size_t position = input_.state_->flow.placeAt(place).position;
    origin_ = spanAt(input_.state_->realPosition(position));
    if (selectsWhole())
        select(origin_.start, origin_.end, false);
}

TextTouch::Span TextTouch::spanAt(std::size_t position) const {
    const TextEditor& editor = input_.state_->editor;
    // What is typed unseen has no words.
    if (unit_ != Unit::Character && input_.state_->secure)
        return {0, editor.text().size()};
    if (unit_ == Unit::Word) {
        const TextPiece word = wordAt(editor.text(), position);
        return {word.start, word.end};
    }
    if (unit_ == Unit::Paragraph)
        return {editor.positionFrom(position, TextEditor::Direction::Backward,
                                    TextEditor::Unit::Paragraph),
                editor.positionFrom(position, TextEditor::Direction::Forward,
                                    TextEditor::Unit::Paragraph)};
    return {position, position};
}

void TextTouch::drag(Point place) {
    const TextPlace shown = input_.state_->flow.placeAt(place);
    const Span span = spanAt(input_.state_->realPosition(shown.position));
    if (span.start < origin_.start)
        select(origin_.end, span.start, false);
    else
        select(origin_.start, std::max(span.end, origin_.end),
               unit_ == Unit::Character && shown.atLineEnd);
}

void TextTouch::tap(Point place) {
    const TextPlace shown = input_.state_->flow.placeAt(place);
    const std::size_t position = input_.state_->realPosition(shown.position);
    if (!selectsWhole())
        select(position, position, shown.atLineEnd);
}

void TextTouch::cancel() {
    select(before_.start, before_.end, false);
}

void TextTouch::select(std::size_t anchor, std::size_t focus, bool atLineEnd) {
    UITextInput::State& state = *input_.state_;
    state.editor.select(anchor, focus);
    state.atLineEnd = atLineEnd;
    state.column.reset();
    input_.refresh();
    input_.selectionMoved();
}

}  // namespace zn
