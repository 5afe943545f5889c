#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/uikit/text/TextHistory.h"

namespace zn {

/// A text with its selection, the part that an input method is composing, and its history: all of
/// editing that needs no view. Positions are bytes of UTF-8, kept inside the text and between
/// graphemes. Main thread only.
class ZN_EXPORT TextEditor {
public:
    enum class Direction { Backward, Forward };
    enum class Unit { Character, Word, Paragraph, Document };
    enum class Extend { No, Yes };

    /// A part of the text was replaced.
    struct Change {
        std::size_t location;
        std::size_t removed;
        std::size_t inserted;
    };
    /// Told of each change, after it, before the selection moves.
    std::function<void(const Change&)> changed;

    const std::string& text() const { return text_; }
    /// All of it is new: the caret at the end, nothing to undo.
    void setText(std::string_view text);

    NSRange selection() const;
    /// Where the selection began, and the end that moves with the caret.
    std::size_t anchor() const { return anchor_; }
    std::size_t focus() const { return focus_; }
    /// The position is kept to a grapheme's beginning. Ends a composition.
    void select(std::size_t anchor, std::size_t focus);
    std::string_view selectedText() const;

    /// Where a step of the unit leads from a position.
    std::size_t positionFrom(std::size_t position, Direction direction, Unit unit) const;
    /// What is deleted: the selection when there is one, else a step of the unit.
    NSRange rangeToDelete(Direction direction, Unit unit) const;
    /// Moves the caret; without `extend` a selection first collapses to its end in that direction.
    void move(Direction direction, Unit unit, Extend extend);

    /// Replaces a part of the text and puts the caret behind what came in.
    void replace(NSRange range, std::string_view replacement, TextHistory::Kind kind);

    /// The part being composed, which takes the place of the selection; an empty text ends it. The
    /// selection inside it is relative to it. The history has one step for the whole composition.
    void setMarkedText(std::string_view text, NSRange selectedInMarked);
    /// The composed text stays.
    void unmarkText();
    const std::optional<NSRange>& markedRange() const { return marked_; }

    bool canUndo() const { return history_.canUndo(); }
    bool canRedo() const { return history_.canRedo(); }
    /// False when there is nothing to undo. What came back is selected, or the caret is there.
    bool undo();
    bool redo();

    /// The range cut to the text and to graphemes.
    NSRange clipped(NSRange range) const;

private:
    void exchange(std::size_t location, std::size_t length, std::string_view replacement);
    std::size_t paragraphEdge(std::size_t position, Direction direction) const;

    std::string text_;
    std::size_t anchor_ = 0;
    std::size_t focus_ = 0;
    std::optional<NSRange> marked_;
    /// What the composition took the place of.
    TextEdit composition_{};
    TextHistory history_;
};

}  // namespace zn
