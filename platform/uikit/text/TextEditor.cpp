#include "platform/uikit/text/TextEditor.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/text/TextBreaks.h"

namespace zn {

void TextEditor::setText(std::string_view text) {
    marked_.reset();
    history_.clear();
    exchange(0, text_.size(), text);
    anchor_ = focus_ = text_.size();
}

NSRange TextEditor::selection() const {
    const auto [start, end] = std::minmax(anchor_, focus_);
    return {start, end - start};
}

std::string_view TextEditor::selectedText() const {
    const NSRange range = selection();
    return std::string_view(text_).substr(range.location, range.length);
}

void TextEditor::select(std::size_t anchor, std::size_t focus) {
    unmarkText();
    anchor_ = graphemeStart(text_, anchor);
    focus_ = graphemeStart(text_, focus);
    history_.close();
}

NSRange TextEditor::clipped(NSRange range) const {
    const std::size_t start = graphemeStart(text_, std::min(range.location, text_.size()));
    const std::size_t room = text_.size() - start;
    const std::size_t end = graphemeStart(text_, start + std::min(range.length, room));
    return {start, end - start};
}

std::size_t TextEditor::paragraphEdge(std::size_t position, Direction direction) const {
    if (direction == Direction::Forward)
        return std::min(text_.find_first_of("\r\n", position), text_.size());
    const std::size_t before =
        position == 0 ? text_.npos : text_.find_last_of("\r\n", position - 1);
    return before == text_.npos ? 0 : before + 1;
}

std::size_t TextEditor::positionFrom(std::size_t position, Direction direction, Unit unit) const {
    const bool forward = direction == Direction::Forward;
    switch (unit) {
        case Unit::Character:
            return forward ? nextGrapheme(text_, position) : previousGrapheme(text_, position);
        case Unit::Word:
            return forward ? nextWordEnd(text_, position) : previousWordStart(text_, position);
        case Unit::Paragraph:
            return paragraphEdge(position, direction);
        case Unit::Document:
            return forward ? text_.size() : 0;
    }
    return position;
}

NSRange TextEditor::rangeToDelete(Direction direction, Unit unit) const {
    if (anchor_ != focus_)
        return selection();
    const auto [start, end] = std::minmax({focus_, positionFrom(focus_, direction, unit)});
    return {start, end - start};
}

void TextEditor::move(Direction direction, Unit unit, Extend extend) {
    if (extend == Extend::Yes) {
        select(anchor_, positionFrom(focus_, direction, unit));
        return;
    }
    const NSRange range = selection();
    const std::size_t edge =
        direction == Direction::Forward ? range.location + range.length : range.location;
    const bool collapses = range.length > 0 && unit == Unit::Character;
    const std::size_t target = collapses ? edge : positionFrom(edge, direction, unit);
    select(target, target);
}

void TextEditor::exchange(std::size_t location, std::size_t length, std::string_view replacement) {
    const Change change{location, length, replacement.size()};
    text_.replace(location, length, replacement);
    anchor_ = focus_ = location + replacement.size();
    if (changed)
        changed(change);
}

void TextEditor::replace(NSRange range, std::string_view replacement, TextHistory::Kind kind) {
    unmarkText();
    range = clipped(range);
    if (range.length == 0 && replacement.empty())
        return;
    history_.add({range.location, text_.substr(range.location, range.length),
                  std::string(replacement), selection()},
                 kind);
    exchange(range.location, range.length, replacement);
}

void TextEditor::setMarkedText(std::string_view text, NSRange selectedInMarked) {
    if (!marked_) {
        if (text.empty())
            return;
        const NSRange range = selection();
        composition_ = {range.location, std::string(selectedText()), {}, range};
        marked_ = range;
    }
    const std::size_t start = marked_->location;
    exchange(start, marked_->length, text);
    marked_ = NSRange{start, text.size()};
    const std::size_t from = std::min(selectedInMarked.location, text.size());
    anchor_ = start + from;
    focus_ = anchor_ + std::min(selectedInMarked.length, text.size() - from);
    if (text.empty())
        unmarkText();
}

void TextEditor::unmarkText() {
    if (!marked_)
        return;
    composition_.inserted = text_.substr(marked_->location, marked_->length);
    marked_.reset();
    if (composition_.inserted != composition_.removed)
        history_.add(std::exchange(composition_, {}), TextHistory::Kind::Single);
}

bool TextEditor::undo() {
    unmarkText();
    const auto edit = history_.undo();
    if (!edit)
        return false;
    exchange(edit->location, edit->inserted.size(), edit->removed);
    anchor_ = edit->selection.location;
    focus_ = anchor_ + edit->selection.length;
    return true;
}

bool TextEditor::redo() {
    unmarkText();
    const auto edit = history_.redo();
    if (!edit)
        return false;
    exchange(edit->location, edit->removed.size(), edit->inserted);
    return true;
}

}  // namespace zn
