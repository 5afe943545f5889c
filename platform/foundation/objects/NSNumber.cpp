#include "zarnic/platform/foundation/NSNumber.h"

namespace zn {

NSNumber::NSNumber(const Value& number) : value_(number.isNumber() ? number : Value(0)) {}

Ref<NSNumber> NSNumber::numberWithBool(bool number) {
    return make<NSNumber>(number);
}

Ref<NSNumber> NSNumber::numberWithUnsignedLongLong(std::uint64_t number) {
    return make<NSNumber>(number);
}

bool NSNumber::isEqual(const NSObject& other) const {
    const auto* number = dynamic_cast<const NSNumber*>(&other);
    return number != nullptr && number->value_ == value_;
}

}  // namespace zn
