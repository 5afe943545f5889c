#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "zarnic/platform/uikit/UIKeyInput.h"

namespace zn {

/// One replacement of a part of a text, with what it needs to be undone.
struct TextEdit {
    std::size_t location;
    std::string removed;
    std::string inserted;
    /// What was selected before it.
    NSRange selection;
};

/// What can be undone and redone. Edits that follow one another join to one step: typing up to the
/// beginning of the next word, and deleting in one direction. The oldest steps go when there are
/// more than 1000.
class ZN_EXPORT TextHistory {
public:
    enum class Kind { Typing, Deleting, Single };

    void add(TextEdit edit, Kind kind);
    /// The next edit begins a step of its own.
    void close() { open_ = false; }
    void clear();

    bool canUndo() const { return !done_.empty(); }
    bool canRedo() const { return !undone_.empty(); }
    /// The step to take back, and the step to do again; absent when there is none.
    std::optional<TextEdit> undo();
    std::optional<TextEdit> redo();

private:
    bool joins(const TextEdit& edit, Kind kind) const;
    void join(const TextEdit& edit);

    std::deque<TextEdit> done_;
    std::vector<TextEdit> undone_;
    Kind kind_ = Kind::Single;
    bool open_ = false;
};

}  // namespace zn
