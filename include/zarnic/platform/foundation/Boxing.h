#pragma once

#include <concepts>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// How members of a type are published: their type and their marks in the platform's encoding of
/// property attributes, and the way into a `Value` and back. `unbox` gives false, and leaves the
/// member alone, for a value that the type cannot take. A specialisation makes a further type
/// publishable.
template <class T>
struct Boxing {
    static_assert(sizeof(T) == 0,
                  "published are numbers, enumerations, bool, std::string, Value, Array, "
                  "Dictionary, std::vector<std::byte>, Ref, WeakRef, std::optional of these, and, "
                  "with NSValue.h, geometry");
};

namespace detail {

template <class T>
concept Scalar = std::is_arithmetic_v<T> || std::is_enum_v<T>;

/// The letter of an integer of so many bytes.
constexpr char integerCode(std::size_t size, bool isSigned) {
    const char code = size == 1 ? 'c' : size == 2 ? 's' : size == 4 ? 'i' : 'q';
    return isSigned ? code : static_cast<char>(code - 'a' + 'A');
}

template <Scalar T>
constexpr char typeCode() {
    if constexpr (std::is_enum_v<T>)
        return typeCode<std::underlying_type_t<T>>();
    else if constexpr (std::same_as<T, bool>)
        return 'B';
    else if constexpr (std::is_floating_point_v<T>)
        return sizeof(T) == sizeof(float) ? 'f' : 'd';
    else
        return integerCode(sizeof(T), std::is_signed_v<T> || std::same_as<T, char>);
}

template <Scalar T>
T scalarOf(const Value& value) {
    if constexpr (std::is_enum_v<T>)
        return static_cast<T>(scalarOf<std::underlying_type_t<T>>(value));
    else if constexpr (std::same_as<T, bool>)
        return value.boolValue();
    else if constexpr (std::same_as<T, float>)
        return value.floatValue();
    else if constexpr (std::is_floating_point_v<T>)
        return static_cast<T>(value.doubleValue());
    else if constexpr (std::same_as<T, std::int32_t>)
        return value.intValue();
    else if constexpr (std::is_unsigned_v<T> && sizeof(T) == sizeof(std::uint64_t))
        return static_cast<T>(value.unsignedLongLongValue());
    else
        return static_cast<T>(value.longLongValue());
}

/// What objects leave to a member that holds nothing.
inline bool isNothing(const Value& value) {
    return value.absent() || value.isNull();
}

inline std::string quotedType(const char* className) {
    return '@' + ('"' + std::string(className) + '"');
}

}  // namespace detail

/// Numbers take numbers and texts, which are read as the platform reads them (see `Value`); wider
/// integers keep their low bits.
template <detail::Scalar T>
struct Boxing<T> {
    static constexpr const char* marks = "";
    static std::string type() { return std::string(1, detail::typeCode<T>()); }
    static Value box(T number) {
        if constexpr (std::is_enum_v<T>)
            return static_cast<std::underlying_type_t<T>>(number);
        else if constexpr (std::is_floating_point_v<T> && !std::same_as<T, float>)
            return static_cast<double>(number);
        else
            return number;
    }
    static bool unbox(const Value& value, T& number) {
        if (!value.isNumber() && !value.isString())
            return false;
        number = detail::scalarOf<T>(value);
        return true;
    }
};

/// Texts take texts and the text of numbers; nothing empties them.
template <>
struct ZN_EXPORT Boxing<std::string> {
    static constexpr const char* marks = "C";
    static std::string type() { return detail::quotedType("NSString"); }
    static Value box(const std::string& text) { return text; }
    static bool unbox(const Value& value, std::string& text);
};

/// Data takes data; nothing empties it.
template <>
struct ZN_EXPORT Boxing<std::vector<std::byte>> {
    static constexpr const char* marks = "C";
    static std::string type() { return detail::quotedType("NSData"); }
    static Value box(const std::vector<std::byte>& data) { return Value::data(data); }
    static bool unbox(const Value& value, std::vector<std::byte>& data);
};

/// Takes everything as it is.
template <>
struct Boxing<Value> {
    static constexpr const char* marks = "&";
    static std::string type() { return "@"; }
    static Value box(const Value& value) { return value; }
    static bool unbox(const Value& value, Value& member) {
        member = value;
        return true;
    }
};

/// Containers are shared, not copied, both ways; nothing becomes a new empty one.
template <>
struct ZN_EXPORT Boxing<Array> {
    static constexpr const char* marks = "&";
    static std::string type() { return detail::quotedType("NSArray"); }
    static Value box(const Array& array) { return array; }
    static bool unbox(const Value& value, Array& array);
};

template <>
struct ZN_EXPORT Boxing<Dictionary> {
    static constexpr const char* marks = "&";
    static std::string type() { return detail::quotedType("NSDictionary"); }
    static Value box(const Dictionary& dictionary) { return dictionary; }
    static bool unbox(const Value& value, Dictionary& dictionary);
};

/// References take objects of their class; nothing makes them null.
template <class T>
struct Boxing<Ref<T>> {
    static constexpr const char* marks = "&";
    static std::string type() { return detail::quotedType(T::staticClassName()); }
    static Value box(const Ref<T>& object) { return object; }
    static bool unbox(const Value& value, Ref<T>& object) {
        Ref<T> taken = value.object<T>();
        if (taken == nullptr && !detail::isNothing(value))
            return false;
        object = std::move(taken);
        return true;
    }
};

template <class T>
struct Boxing<WeakRef<T>> {
    static constexpr const char* marks = "W";
    static std::string type() { return Boxing<Ref<T>>::type(); }
    static Value box(const WeakRef<T>& object) { return object.lock(); }
    static bool unbox(const Value& value, WeakRef<T>& object) {
        Ref<T> taken;
        if (!Boxing<Ref<T>>::unbox(value, taken))
            return false;
        object = taken;
        return true;
    }
};

/// Absent while empty; nothing empties it. An optional number is a number object.
template <class T>
struct Boxing<std::optional<T>> {
    static constexpr const char* marks = detail::Scalar<T> ? "&" : Boxing<T>::marks;
    static std::string type() {
        if constexpr (detail::Scalar<T>)
            return detail::quotedType("NSNumber");
        else
            return Boxing<T>::type();
    }
    static Value box(const std::optional<T>& member) {
        return member ? Boxing<T>::box(*member) : Value();
    }
    static bool unbox(const Value& value, std::optional<T>& member) {
        if (detail::isNothing(value)) {
            member.reset();
            return true;
        }
        T taken{};
        if (!Boxing<T>::unbox(value, taken))
            return false;
        member = std::move(taken);
        return true;
    }
};

}  // namespace zn
