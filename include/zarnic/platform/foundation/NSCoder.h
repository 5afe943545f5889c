#pragma once

#include <string_view>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// Writes and reads the values of one object by key. Keys of different objects do not meet.
class ZN_EXPORT NSCoder : public NSObject {
    ZN_OBJECT(NSCoder, NSObject)
public:
    /// A later value of a key replaces the earlier one. An absent value makes the key present.
    virtual void encodeObject(const Value& value, std::string_view key) = 0;
    /// Absent for a key that is not there.
    virtual Value decodeObjectForKey(std::string_view key) = 0;
    virtual bool containsValueForKey(std::string_view key) const = 0;
};

/// What an object must be to be archived:
///
///     class Note : public zn::NSObject, public zn::NSCoding { ... };
///
/// A model class (see `Property.h`) may leave both to `zn_encode` and `zn_decode`.
class ZN_EXPORT NSCoding {
public:
    virtual ~NSCoding();
    virtual void encodeWithCoder(const Ref<NSCoder>& coder) const = 0;
    /// Fills a new instance, whose `init()` has run. Objects that refer to each other in a circle,
    /// and those nested very deep, may get each other before they are filled.
    virtual void initWithCoder(const Ref<NSCoder>& coder) = 0;
};

}  // namespace zn
