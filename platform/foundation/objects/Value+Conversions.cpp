#include "platform/foundation/text/NumberText.h"
#include "zarnic/platform/foundation/NSString.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {
namespace {

bool isReal(Value::Kind kind) {
    return kind == Value::Kind::Float || kind == Value::Kind::Double;
}

}  // namespace

bool Value::boolValue() const noexcept {
    return isString() ? zn::boolValue(string()) : unsignedLongLongValue() != 0;
}

std::int32_t Value::intValue() const noexcept {
    if (isReal(kind_))
        return saturated<std::int32_t>(payload<double>());
    return isString() ? zn::intValue(string()) : static_cast<std::int32_t>(longLongValue());
}

std::int64_t Value::longLongValue() const noexcept {
    if (isReal(kind_))
        return saturated<std::int64_t>(payload<double>());
    if (isString())
        return zn::longLongValue(string());
    return isNumber() ? payload<std::int64_t>() : 0;
}

std::uint64_t Value::unsignedLongLongValue() const noexcept {
    // Negative reals keep the bits of the integer, as negative integers do.
    if (isReal(kind_) && payload<double>() >= 0)
        return saturated<std::uint64_t>(payload<double>());
    return isString() ? zn::unsignedLongLongValue(string())
                      : static_cast<std::uint64_t>(longLongValue());
}

double Value::doubleValue() const noexcept {
    if (isReal(kind_))
        return payload<double>();
    if (isString())
        return zn::doubleValue(string());
    if (kind_ == Kind::Unsigned)
        return static_cast<double>(payload<std::uint64_t>());
    return isNumber() ? static_cast<double>(payload<std::int64_t>()) : 0;
}

float Value::floatValue() const noexcept {
    if (kind_ == Kind::Unsigned)
        return static_cast<float>(payload<std::uint64_t>());
    if (isNumber() && !isReal(kind_))
        return static_cast<float>(payload<std::int64_t>());
    return static_cast<float>(doubleValue());
}

std::string Value::stringValue() const {
    switch (kind_) {
        case Kind::Integer:
        case Kind::Boolean:
        case Kind::Character:
            return std::to_string(payload<std::int64_t>());
        case Kind::Unsigned:
            return std::to_string(payload<std::uint64_t>());
        case Kind::Float:
            return realText(payload<double>(), 7);
        case Kind::Double:
            return realText(payload<double>(), 16);
        default:
            return std::string(string());
    }
}

}  // namespace zn
