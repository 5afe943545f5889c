#include "zarnic/ZNBufMemoryDictionary.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "imagecache/KeyIndex.h"
#include "imagecache/TimeNotes.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

constexpr std::size_t fewNotes = 64;

/// What is no time comes after all that are.
double timeOf(const ZNBufMemoryModel& entry) {
    const double time = entry.lastCallTime();
    return std::isnan(time) ? std::numeric_limits<double>::infinity() : time;
}

/// Where an entry stands in the order of keys; given once, 0 to nobody.
using Place = std::uint64_t;

struct Slot {
    std::string key;
    KeyIndex::Hash hash = 0;
    Place place = 0;
    Ref<ZNBufMemoryModel> entry;
};

}  // namespace

/// Each entry has at least one note, of a time that it had once: by now it may have a later one, or
/// be gone. Slots are used again.
struct ZNBufMemoryDictionary::State {
    std::optional<KeyIndex::Number> find(std::string_view key) const;
    KeyIndex::Number takeSlot(std::string_view key);
    Ref<ZNBufMemoryModel> release(KeyIndex::Number number);
    void note(KeyIndex::Number number);
    void noteAllAgain();
    bool settleFirstNote();

    KeyIndex index;
    std::vector<Slot> slots;
    std::vector<KeyIndex::Number> freeSlots;
    TimeNotes notes;
    std::uint64_t knownSetBacks = 0;
    Place nextPlace = 1;
};

std::optional<KeyIndex::Number> ZNBufMemoryDictionary::State::find(std::string_view key) const {
    return index.find(KeyIndex::hashOf(key),
                      [&](KeyIndex::Number number) { return slots[number].key == key; });
}

KeyIndex::Number ZNBufMemoryDictionary::State::takeSlot(std::string_view key) {
    if (freeSlots.empty()) {
        freeSlots.push_back(static_cast<KeyIndex::Number>(slots.size()));
        slots.emplace_back();
    }
    const KeyIndex::Number number = freeSlots.back();
    Slot& slot = slots[number];
    slot.key = key;
    slot.hash = KeyIndex::hashOf(key);
    index.add(slot.hash, number);
    slot.place = nextPlace++;
    freeSlots.pop_back();
    return number;
}

Ref<ZNBufMemoryModel> ZNBufMemoryDictionary::State::release(KeyIndex::Number number) {
    freeSlots.push_back(number);
    Slot& slot = slots[number];
    index.remove(slot.hash, number);
    slot.place = 0;
    return std::move(slot.entry);
}

void ZNBufMemoryDictionary::State::note(KeyIndex::Number number) {
    if (notes.count() >= 2 * index.count() + fewNotes)
        noteAllAgain();
    notes.add({timeOf(*slots[number].entry), slots[number].place, number});
}

void ZNBufMemoryDictionary::State::noteAllAgain() {
    notes.clear();
    for (KeyIndex::Number number = 0; number < slots.size(); ++number) {
        if (slots[number].entry)
            notes.add({timeOf(*slots[number].entry), slots[number].place, number});
    }
}

/// Whether the first note is true. One of an entry that is gone goes; one of an entry that was used
/// since goes to where it belongs now.
bool ZNBufMemoryDictionary::State::settleFirstNote() {
    const TimeNotes::Note first = notes.first();
    const Slot& slot = slots[first.slot];
    if (slot.place == first.place && timeOf(*slot.entry) == first.time)
        return true;
    notes.removeFirst();
    if (slot.place == first.place)
        note(first.slot);
    return false;
}

ZNBufMemoryDictionary::ZNBufMemoryDictionary() : state_(std::make_unique<State>()) {}

ZNBufMemoryDictionary::~ZNBufMemoryDictionary() = default;

std::size_t ZNBufMemoryDictionary::count() const {
    return state_->index.count();
}

Ref<ZNBufMemoryModel> ZNBufMemoryDictionary::objectForKey(std::string_view key) const {
    const auto found = state_->find(key);
    return found ? state_->slots[*found].entry : nullptr;
}

std::vector<std::string> ZNBufMemoryDictionary::allKeys() const {
    std::vector<const Slot*> used;
    for (const Slot& slot : state_->slots) {
        if (slot.entry)
            used.push_back(&slot);
    }
    std::ranges::sort(used, {}, &Slot::place);
    std::vector<std::string> keys(used.size());
    std::ranges::transform(used, keys.begin(), &Slot::key);
    return keys;
}

void ZNBufMemoryDictionary::setObjectForKey(Ref<ZNBufMemoryModel> entry, std::string_view key) {
    if (!entry)
        throw NSException(NSInvalidArgumentException, "a dictionary holds no null object");
    const auto found = state_->find(key);
    const KeyIndex::Number number = found ? *found : state_->takeSlot(key);
    // The former entry dies last: its image may be large, and what it calls may come back here.
    std::swap(state_->slots[number].entry, entry);
    state_->note(number);
}

void ZNBufMemoryDictionary::removeObjectForKey(std::string_view key) {
    if (const auto found = state_->find(key))
        state_->release(*found);
}

void ZNBufMemoryDictionary::removeAllObjects() {
    const auto former = std::exchange(state_->slots, {});
    state_->index.clear();
    state_->freeSlots.clear();
    state_->notes.clear();
}

Ref<ZNBufMemoryModel> ZNBufMemoryDictionary::takeOldestBefore(double time) {
    if (const auto setBacks = ZNBufMemoryModel::setBacks().load(std::memory_order_acquire);
        setBacks != state_->knownSetBacks) {
        state_->knownSetBacks = setBacks;
        state_->noteAllAgain();
    }
    TimeNotes& notes = state_->notes;
    while (!notes.empty() && !state_->settleFirstNote()) {
    }
    if (notes.empty() || !(notes.first().time < time))
        return nullptr;
    const KeyIndex::Number oldest = notes.first().slot;
    notes.removeFirst();
    return state_->release(oldest);
}

}  // namespace zn
