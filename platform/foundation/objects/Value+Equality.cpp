#include <algorithm>
#include <cmath>
#include <functional>

#include "zarnic/platform/foundation/Value.h"

namespace zn {
namespace {

constexpr double twoToThe63 = 0x1p63;
constexpr double twoToThe64 = 0x1p64;

/// A number reduced to the one form that all equal numbers share.
struct PlainNumber {
    enum class Form : std::uint8_t { Integer, Unsigned, Real };

    explicit PlainNumber(const Value& value) {
        const auto kind = value.kind();
        if (kind == Value::Kind::Float || kind == Value::Kind::Double)
            reduce(value.doubleValue());
        else
            bits = value.unsignedLongLongValue(),
            form = kind == Value::Kind::Unsigned ? Form::Unsigned : Form::Integer;
    }
    bool operator==(const PlainNumber&) const = default;

    Form form = Form::Real;
    std::uint64_t bits = 0;

private:
    void reduce(double number) {
        if (std::trunc(number) == number && number >= -twoToThe63 && number < twoToThe63)
            form = Form::Integer,
            bits = static_cast<std::uint64_t>(static_cast<std::int64_t>(number));
        else if (std::trunc(number) == number && number >= twoToThe63 && number < twoToThe64)
            form = Form::Unsigned, bits = static_cast<std::uint64_t>(number);
        else if (!std::isnan(number))  // Every NaN is one value: the real with no bits.
            std::memcpy(&bits, &number, sizeof bits);
    }
};

/// Compares containers without recursion: nests may be deeper than the stack.
class Comparison {
public:
    bool equal(const Value& left, const Value& right) {
        if (!sameSurface(left, right))
            return false;
        while (!open_.empty()) {
            const auto [first, second] = open_.back();
            open_.pop_back();
            if (!(first->isArray() ? sameItems(first->array(), second->array())
                                   : sameEntries(first->dictionary(), second->dictionary())))
                return false;
        }
        return true;
    }

private:
    /// Whether the values may be equal; containers are put aside for their contents.
    bool sameSurface(const Value& left, const Value& right) {
        if (left.isNumber() && right.isNumber())
            return PlainNumber(left) == PlainNumber(right);
        if (left.kind() != right.kind())
            return false;
        switch (left.kind()) {
            case Value::Kind::String:
                return left.string() == right.string();
            case Value::Kind::Data:
                return std::ranges::equal(left.bytes(), right.bytes());
            case Value::Kind::Object:
                return left.object() == right.object() || left.object()->isEqual(*right.object());
            case Value::Kind::Array:
            case Value::Kind::Dictionary:
                open_.emplace_back(&left, &right);
                return true;
            default:
                return true;
        }
    }

    bool sameItems(const Array& left, const Array& right) {
        if (left.identical(right))
            return true;
        return left.count() == right.count() &&
               std::equal(left.begin(), left.end(), right.begin(),
                          [this](const Value& a, const Value& b) { return sameSurface(a, b); });
    }

    bool sameEntries(const Dictionary& left, const Dictionary& right) {
        if (left.identical(right))
            return true;
        if (left.count() != right.count())
            return false;
        for (const auto& [key, value] : left) {
            if (!sameSurface(value, right[key]))
                return false;
        }
        return true;
    }

    std::vector<std::pair<const Value*, const Value*>> open_;
};

}  // namespace

bool operator==(const Value& left, const Value& right) {
    return Comparison().equal(left, right);
}

std::size_t Value::hash() const noexcept {
    if (isNumber())
        return std::hash<std::uint64_t>{}(PlainNumber(*this).bits);
    if (isString() || isData())
        return std::hash<std::string_view>{}(rawBytes());
    if (isArray())
        return array().count();
    if (isDictionary())
        return dictionary().count();
    return isObject() ? object()->hash() : 0;
}

}  // namespace zn
