#pragma once

#include <memory>
#include <string>
#include <string_view>
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

    std::size_t count() const;
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
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace zn
