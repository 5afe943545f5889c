#include "platform/uikit/text/TextHistory.h"

#include <utility>

namespace zn {
namespace {

constexpr std::size_t mostSteps = 1000;

bool isBlank(char character) {
    return character == ' ' || character == '\t';
}

/// Whether a text typed after the other one begins a new word, or a new line.
bool beginsAnew(const std::string& typed, const std::string& next) {
    if (typed.empty() || next.empty())
        return false;
    return next.front() == '\n' || typed.back() == '\n' ||
           (isBlank(typed.back()) && !isBlank(next.front()));
}

}  // namespace

void TextHistory::add(TextEdit edit, Kind kind) {
    undone_.clear();
    if (joins(edit, kind)) {
        join(edit);
        return;
    }
    done_.push_back(std::move(edit));
    if (done_.size() > mostSteps)
        done_.pop_front();
    kind_ = kind;
    open_ = kind != Kind::Single;
}

bool TextHistory::joins(const TextEdit& edit, Kind kind) const {
    if (!open_ || kind != kind_ || done_.empty())
        return false;
    const TextEdit& last = done_.back();
    if (kind == Kind::Typing)
        return edit.removed.empty() && edit.location == last.location + last.inserted.size() &&
               !beginsAnew(last.inserted, edit.inserted);
    return edit.inserted.empty() && last.inserted.empty() &&
           (edit.location + edit.removed.size() == last.location || edit.location == last.location);
}

void TextHistory::join(const TextEdit& edit) {
    TextEdit& last = done_.back();
    last.inserted += edit.inserted;
    if (edit.location < last.location) {
        last.removed.insert(0, edit.removed);
        last.location = edit.location;
    } else {
        last.removed += edit.removed;
    }
}

void TextHistory::clear() {
    done_.clear();
    undone_.clear();
    open_ = false;
}

std::optional<TextEdit> TextHistory::undo() {
    if (done_.empty())
        return std::nullopt;
    open_ = false;
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    return undone_.back();
}

std::optional<TextEdit> TextHistory::redo() {
    if (undone_.empty())
        return std::nullopt;
    open_ = false;
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    return done_.back();
}

}  // namespace zn
