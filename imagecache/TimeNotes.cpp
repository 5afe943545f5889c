#include "imagecache/TimeNotes.h"

#include <algorithm>

namespace zn {
namespace {

bool later(const TimeNotes::Note& left, const TimeNotes::Note& right) {
    return left.time != right.time ? left.time > right.time : left.place > right.place;
}

}  // namespace

bool TimeNotes::firstIsInHeap() const {
    return inOrder_.empty() || (!heap_.empty() && later(inOrder_.front(), heap_.front()));
}

const TimeNotes::Note& TimeNotes::first() const {
    return firstIsInHeap() ? heap_.front() : inOrder_.front();
}

void TimeNotes::add(const Note& note) {
    if (inOrder_.empty() || !later(inOrder_.back(), note)) {
        inOrder_.push_back(note);
        return;
    }
    heap_.push_back(note);
    std::push_heap(heap_.begin(), heap_.end(), later);
}

void TimeNotes::removeFirst() {
    if (!firstIsInHeap())
        return inOrder_.pop_front();
    std::pop_heap(heap_.begin(), heap_.end(), later);
    heap_.pop_back();
}

void TimeNotes::clear() {
    inOrder_.clear();
    heap_.clear();
}

}  // namespace zn
