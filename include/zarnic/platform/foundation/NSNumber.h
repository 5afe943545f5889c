#pragma once

#include <cstdint>
#include <string>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// A number as an object, for where the platform wants one: the object of a notification, the
/// sender of an action. Everywhere else a number is a plain `Value`. Immutable.
class ZN_EXPORT NSNumber final : public NSObject {
    ZN_OBJECT(NSNumber, NSObject)
public:
    /// A value that is no number counts as the integer 0.
    explicit NSNumber(const Value& number);

    static Ref<NSNumber> numberWithBool(bool number);
    static Ref<NSNumber> numberWithUnsignedLongLong(std::uint64_t number);

    const Value& value() const { return value_; }
    bool boolValue() const { return value_.boolValue(); }
    std::uint64_t unsignedLongLongValue() const { return value_.unsignedLongLongValue(); }

    /// By value, whatever the kinds.
    bool isEqual(const NSObject& other) const override;
    std::size_t hash() const override { return value_.hash(); }
    std::string description() const override { return value_.description(); }

private:
    Value value_;
};

}  // namespace zn
