#pragma once

#include <cstdint>
#include <deque>
#include <vector>

namespace zn {

/// Notes in the order of their times, of equal times in that of their places. Those that come in
/// order, as nearly all do, are taken without a search.
class TimeNotes {
public:
    struct Note {
        double time;
        std::uint64_t place;
        std::uint32_t slot;
    };

    std::size_t count() const { return inOrder_.size() + heap_.size(); }
    bool empty() const { return inOrder_.empty() && heap_.empty(); }
    /// The earliest; there must be one.
    const Note& first() const;
    void add(const Note& note);
    void removeFirst();
    void clear();

private:
    bool firstIsInHeap() const;

    std::deque<Note> inOrder_;
    std::vector<Note> heap_;
};

}  // namespace zn
