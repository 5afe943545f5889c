#include "zarnic/platform/drawing/NSValue.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>

#include "zarnic/platform/foundation/NSException.h"

namespace zn {

namespace {

constexpr const char* kindKey = "NS.kind";
constexpr const char* numbersKey = "NS.numbers";

template <class T>
T valueOr(const NSValue::Structure& structure) {
    const T* value = std::get_if<T>(&structure);
    return value != nullptr ? *value : T{};
}

using Numbers = std::array<double, 6>;

Numbers numbers(Point point) {
    return {point.x, point.y};
}

Numbers numbers(Size size) {
    return {size.width, size.height};
}

Numbers numbers(const Rect& rect) {
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

Numbers numbers(const EdgeInsets& insets) {
    return {insets.top, insets.left, insets.bottom, insets.right};
}

Numbers numbers(const AffineTransform& transform) {
    return {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty};
}

}  // namespace

// Archives name the class before anybody uses it.
ZN_REGISTER_CLASS(NSValue);

NSValue::NSValue(Structure structure) : structure_(structure) {}

Ref<NSValue> NSValue::valueWithCGPoint(Point point) {
    return make<NSValue>(point);
}

Ref<NSValue> NSValue::valueWithCGSize(Size size) {
    return make<NSValue>(size);
}

Ref<NSValue> NSValue::valueWithCGRect(const Rect& rect) {
    return make<NSValue>(rect);
}

Ref<NSValue> NSValue::valueWithUIEdgeInsets(const EdgeInsets& insets) {
    return make<NSValue>(insets);
}

Ref<NSValue> NSValue::valueWithCGAffineTransform(const AffineTransform& transform) {
    return make<NSValue>(transform);
}

Point NSValue::pointValue() const {
    return valueOr<Point>(structure_);
}

Size NSValue::sizeValue() const {
    return valueOr<Size>(structure_);
}

Rect NSValue::rectValue() const {
    return valueOr<Rect>(structure_);
}

EdgeInsets NSValue::edgeInsetsValue() const {
    return valueOr<EdgeInsets>(structure_);
}

AffineTransform NSValue::affineTransformValue() const {
    return valueOr<AffineTransform>(structure_);
}

bool NSValue::isEqual(const NSObject& other) const {
    const auto* value = dynamic_cast<const NSValue*>(&other);
    return value != nullptr && value->structure_ == structure_;
}

std::size_t NSValue::hash() const {
    std::size_t result = structure_.index();
    const Numbers all = std::visit([](const auto& value) { return numbers(value); }, structure_);
    for (const double number : all)
        result = result * 31 + std::hash<double>{}(number);
    return result;
}

std::string NSValue::description() const {
    // One pattern for each kind, in the order of the variant; the unused numbers are left over.
    static constexpr const char* patterns[] = {
        "NSPoint: {%g, %g}",
        "NSSize: {%g, %g}",
        "NSRect: {{%g, %g}, {%g, %g}}",
        "UIEdgeInsets: {%g, %g, %g, %g}",
        "CGAffineTransform: {{%g, %g, %g, %g}, {%g, %g}}",
    };
    const Numbers n = std::visit([](const auto& value) { return numbers(value); }, structure_);
    char text[160];
    std::snprintf(text, sizeof text, patterns[structure_.index()], n[0], n[1], n[2], n[3], n[4],
                  n[5]);
    return text;
}

void NSValue::encodeWithCoder(const Ref<NSCoder>& coder) const {
    const Numbers all = std::visit([](const auto& value) { return numbers(value); }, structure_);
    Array archived;
    for (const double number : all)
        archived.add(number);
    coder->encodeObject(structure_.index(), kindKey);
    coder->encodeObject(archived, numbersKey);
}

void NSValue::initWithCoder(const Ref<NSCoder>& coder) {
    const Value kind = coder->decodeObjectForKey(kindKey);
    const Value archived = coder->decodeObjectForKey(numbersKey);
    Numbers n{};
    if (!kind.isNumber() || !archived.isArray() || archived.array().count() != n.size())
        throw NSException(NSInvalidUnarchiveOperationException, "a structure without numbers");
    std::ranges::transform(archived.array(), n.begin(), &Value::doubleValue);
    const Structure structures[] = {
        Point{n[0], n[1]}, Size{n[0], n[1]}, Rect(n[0], n[1], n[2], n[3]),
        EdgeInsets{n[0], n[1], n[2], n[3]}, AffineTransform{n[0], n[1], n[2], n[3], n[4], n[5]}};
    const std::uint64_t index = kind.unsignedLongLongValue();
    if (index >= std::size(structures))
        throw NSException(NSInvalidUnarchiveOperationException, "an unknown kind of structure");
    structure_ = structures[index];
}

}  // namespace zn
