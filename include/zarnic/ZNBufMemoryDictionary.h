#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "zarnic/ZNBufMemoryModel.h"

namespace zn {

/// The entries of the memory cache by key, in the order in which the keys came. It finds the entry
/// that was unused for longest without looking at all of them, whoever wrote the times. Where
/// several threads use it, its lock is held (`ObjectLock`).
class ZN_EXPORT ZNBufMemoryDictionary final : public NSObject {
    ZN_OBJECT(ZNBufMemoryDictionary, NSObject)
public:
    ZNBufMemoryDictionary();
    ~ZNBufMemoryDictionary() override;

    std::size_t count() const { return index_.size(); }
    /// Null for a key that is not there.
    Ref<ZNBufMemoryModel> objectForKey(std::string_view key) const;
    /// In enumeration order.
    std::vector<std::string> allKeys() const;

    /// A new key goes to the end; an old one keeps its place. Throws `NSInvalidArgumentException`
    /// for null.
    void setObjectForKey(Ref<ZNBufMemoryModel> entry, std::string_view key);
    void removeObjectForKey(std::string_view key);
    void removeAllObjects();

    /// The entry with the smallest time before this one, of equal ones the first in enumeration
    /// order, which is removed; null when there is none.
    Ref<ZNBufMemoryModel> takeOldestBefore(double time);

private:
    /// Where an entry stands in the order of keys; given once.
    using Place = std::uint64_t;
    struct Slot;
    /// A time that an entry had once: by now it may have a later one, or be gone.
    struct Note {
        double time;
        Place place;
        Slot* slot;
    };
    static bool later(const Note& left, const Note& right);

    Slot& takeSlot(std::string_view key);
    Ref<ZNBufMemoryModel> release(Slot& slot);
    void addNote(Slot& slot);
    void dropFirstNote();
    void noteAllAgain();
    bool settleFirstNote();

    std::unordered_map<std::string_view, Slot*> index_;
    /// Each stays where it is and is used again.
    std::deque<Slot> slots_;
    std::vector<Slot*> freeSlots_;
    /// A heap, the earliest time first; at least one note for each entry.
    std::vector<Note> notes_;
    std::uint64_t knownSetBacks_ = 0;
    Place nextPlace_ = 1;
};

}  // namespace zn
