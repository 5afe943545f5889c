#include "zarnic/ZNBufMemoryDictionary.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "zarnic/platform/NSException.h"

namespace zn {
namespace {

constexpr std::size_t fewNotes = 64;

/// What is no time comes after all that are.
double timeOf(const ZNBufMemoryModel& entry) {
    const double time = entry.lastCallTime();
    return std::isnan(time) ? std::numeric_limits<double>::infinity() : time;
}

}  // namespace

struct ZNBufMemoryDictionary::Slot {
    std::string key;
    Ref<ZNBufMemoryModel> entry;
    /// 0 while the slot is free.
    Place place = 0;
};

ZNBufMemoryDictionary::ZNBufMemoryDictionary() = default;

ZNBufMemoryDictionary::~ZNBufMemoryDictionary() = default;

Ref<ZNBufMemoryModel> ZNBufMemoryDictionary::objectForKey(std::string_view key) const {
    const auto found = index_.find(key);
    return found == index_.end() ? nullptr : found->second->entry;
}

std::vector<std::string> ZNBufMemoryDictionary::allKeys() const {
    std::vector<const Slot*> used;
    for (const auto& [key, slot] : index_)
        used.push_back(slot);
    std::ranges::sort(used, {}, &Slot::place);
    std::vector<std::string> keys;
    for (const Slot* slot : used)
        keys.push_back(slot->key);
    return keys;
}

void ZNBufMemoryDictionary::setObjectForKey(Ref<ZNBufMemoryModel> entry, std::string_view key) {
    if (!entry)
        throw NSException(NSInvalidArgumentException, "a dictionary holds no null object");
    const auto found = index_.find(key);
    Slot& slot = found == index_.end() ? takeSlot(key) : *found->second;
    // The former entry dies last: its image may be large, and what it calls may come back here.
    std::swap(slot.entry, entry);
    addNote(slot);
}

ZNBufMemoryDictionary::Slot& ZNBufMemoryDictionary::takeSlot(std::string_view key) {
    if (freeSlots_.empty())
        freeSlots_.push_back(&slots_.emplace_back());
    Slot& slot = *freeSlots_.back();
    slot.key = key;
    index_.emplace(slot.key, &slot);
    slot.place = nextPlace_++;
    freeSlots_.pop_back();
    return slot;
}

void ZNBufMemoryDictionary::removeObjectForKey(std::string_view key) {
    if (const auto found = index_.find(key); found != index_.end())
        release(*found->second);
}

Ref<ZNBufMemoryModel> ZNBufMemoryDictionary::release(Slot& slot) {
    freeSlots_.push_back(&slot);
    index_.erase(slot.key);
    slot.place = 0;
    return std::move(slot.entry);
}

void ZNBufMemoryDictionary::removeAllObjects() {
    const auto former = std::exchange(slots_, {});
    index_.clear();
    freeSlots_.clear();
    notes_.clear();
}

Ref<ZNBufMemoryModel> ZNBufMemoryDictionary::takeOldestBefore(double time) {
    if (const auto setBacks = ZNBufMemoryModel::setBacks().load(std::memory_order_acquire);
        setBacks != knownSetBacks_) {
        knownSetBacks_ = setBacks;
        noteAllAgain();
    }
    while (!notes_.empty() && !settleFirstNote()) {
    }
    if (notes_.empty() || !(notes_.front().time < time))
        return nullptr;
    Slot& oldest = *notes_.front().slot;
    dropFirstNote();
    return release(oldest);
}

/// Whether the first note is true. One of an entry that is gone goes; one of an entry that was used
/// since goes to where it belongs now.
bool ZNBufMemoryDictionary::settleFirstNote() {
    const Note first = notes_.front();
    if (first.slot->place != first.place) {
        dropFirstNote();
        return false;
    }
    if (timeOf(*first.slot->entry) == first.time)
        return true;
    dropFirstNote();
    addNote(*first.slot);
    return false;
}

bool ZNBufMemoryDictionary::later(const Note& left, const Note& right) {
    return left.time != right.time ? left.time > right.time : left.place > right.place;
}

void ZNBufMemoryDictionary::addNote(Slot& slot) {
    if (notes_.size() >= 2 * index_.size() + fewNotes)
        noteAllAgain();
    notes_.push_back({timeOf(*slot.entry), slot.place, &slot});
    std::push_heap(notes_.begin(), notes_.end(), later);
}

void ZNBufMemoryDictionary::dropFirstNote() {
    std::pop_heap(notes_.begin(), notes_.end(), later);
    notes_.pop_back();
}

void ZNBufMemoryDictionary::noteAllAgain() {
    notes_.clear();
    for (const auto& [key, slot] : index_)
        notes_.push_back({timeOf(*slot->entry), slot->place, slot});
    std::make_heap(notes_.begin(), notes_.end(), later);
}

}  // namespace zn
