#pragma once

#include <cstddef>
#include <vector>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// A list that holds its objects weakly: an entry whose object is gone stays, counts, and reads as
/// absent. An index out of range throws `NSInvalidArgumentException`.
class ZN_EXPORT NSPointerArray final : public NSObject {
    ZN_OBJECT(NSPointerArray, NSObject)
public:
    NSPointerArray();
    ~NSPointerArray() override;

    static Ref<NSPointerArray> weakObjectsPointerArray();

    std::size_t count() const { return entries_.size(); }
    /// An object, the null object, or absent.
    Value pointerAtIndex(std::size_t index) const;
    /// Objects, the null object and absent values only; throws `NSInvalidArgumentException` for
    /// another kind, which nothing would hold.
    void addPointer(const Value& pointer);
    void removePointerAtIndex(std::size_t index);

private:
    struct Entry {
        WeakRef<NSObject> object;
        bool null = false;
    };
    void require(std::size_t index) const;

    std::vector<Entry> entries_;
};

}  // namespace zn
