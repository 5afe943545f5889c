#include <algorithm>
#include <map>

#include "platform/uikit/text/TextInputState.h"

namespace zn {
namespace {

using Usage = UIKeyboardHIDUsage;
using Direction = TextEditor::Direction;
using Extend = TextEditor::Extend;
using Unit = TextEditor::Unit;

bool has(const UIKey& key, unsigned flags) {
    return (key.modifierFlags & flags) != 0;
}

/// Control as on this system's other programs, Command as on the platform's own keyboards.
bool commands(const UIKey& key) {
    return has(key, UIKeyModifierFlags::Control | UIKeyModifierFlags::Command);
}

bool wider(const UIKey& key) {
    return commands(key) || has(key, UIKeyModifierFlags::Alternate);
}

}  // namespace

bool UITextInput::pressKey(const UIKey& key) {
    const Ref<UIView> self = ref(&inputOwner());
    switch (key.keyCode) {
        case Usage::ReturnOrEnter:
        case Usage::KeypadEnter:
            insertText("\n");
            return true;
        case Usage::DeleteOrBackspace:
            deleteOne(false, wider(key));
            return true;
        case Usage::DeleteForward:
            deleteForwardOrCut(key);
            return true;
        case Usage::Tab:
            if (state_->lines == Lines::One || wider(key))
                return false;
            insertText("\t");
            return true;
        default:
            return pressMovingKey(key) || pressShortcut(key);
    }
}

void UITextInput::deleteForwardOrCut(const UIKey& key) {
    if (has(key, UIKeyModifierFlags::Shift))
        cut();
    else
        deleteOne(true, wider(key));
}

bool UITextInput::pressShortcut(const UIKey& key) {
    const bool shift = has(key, UIKeyModifierFlags::Shift);
    if (key.keyCode == Usage::Insert && (shift || commands(key))) {
        shift ? paste() : copy();
        return true;
    }
    using Command = void (UITextInput::*)();
    static const std::map<std::string, Command> shortcuts{
        {"a", &UITextInput::selectAll}, {"c", &UITextInput::copy}, {"x", &UITextInput::cut},
        {"v", &UITextInput::paste},     {"z", &UITextInput::undo}, {"y", &UITextInput::redo},
    };
    const auto found = shortcuts.find(key.charactersIgnoringModifiers);
    if (!commands(key) || found == shortcuts.end())
        return false;
    const bool again = shift && found->first == "z";
    (this->*(again ? &UITextInput::redo : found->second))();
    return true;
}

bool UITextInput::pressMovingKey(const UIKey& key) {
    const bool all = commands(key);
    switch (key.keyCode) {
        case Usage::LeftArrow:
        case Usage::RightArrow:
            moveSideways(key);
            return true;
        case Usage::UpArrow:
        case Usage::DownArrow:
            moveLines(key, key.keyCode == Usage::UpArrow ? -1 : 1);
            return true;
        case Usage::PageUp:
        case Usage::PageDown: {
            const double lines = inputOwner().bounds().height() / state_->flow.lineHeight();
            const double page = std::max(1.0, lines - 1);
            moveLines(key, key.keyCode == Usage::PageUp ? -page : page);
            return true;
        }
        case Usage::Home:
        case Usage::End: {
            const bool end = key.keyCode == Usage::End;
            const std::size_t last = state_->editor.text().size();
            const TextPlace line = end ? state_->flow.lineEnd(state_->focus())
                                       : state_->flow.lineStart(state_->focus());
            moveTo(key, all ? (end ? last : 0) : state_->realPosition(line.position),
                   !all && end && line.atLineEnd);
            return true;
        }
        default:
            return false;
    }
}

void UITextInput::moveSideways(const UIKey& key) {
    const bool right = key.keyCode == Usage::RightArrow;
    const bool forward = right != state_->flow.runsRightToLeft(state_->focus());
    const bool extends = has(key, UIKeyModifierFlags::Shift);
    const Unit unit = !wider(key) ? Unit::Character : state_->secure ? Unit::Document : Unit::Word;
    state_->editor.move(forward ? Direction::Forward : Direction::Backward, unit,
                        extends ? Extend::Yes : Extend::No);
    state_->atLineEnd = false;
    state_->column.reset();
    refresh();
    selectionMoved();
}

void UITextInput::moveLines(const UIKey& key, double lines) {
    const Rect caret = state_->caret();
    const double column = state_->column.value_or(caret.minX());
    const double y = caret.midY() + lines * state_->flow.lineHeight();
    TextPlace place = state_->flow.placeAt({column, y});
    // Beyond the first line and the last there is only the text's end.
    if (y < 0)
        place = {0, false};
    else if (y > state_->flow.size().height)
        place = {state_->shownPosition(state_->editor.text().size()), false};
    moveTo(key, state_->realPosition(place.position), place.atLineEnd);
    state_->column = column;
}

void UITextInput::moveTo(const UIKey& key, std::size_t position, bool atLineEnd) {
    const bool extends = has(key, UIKeyModifierFlags::Shift);
    state_->editor.select(extends ? state_->editor.anchor() : position, position);
    state_->atLineEnd = atLineEnd;
    state_->column.reset();
    refresh();
    selectionMoved();
}

}  // namespace zn
