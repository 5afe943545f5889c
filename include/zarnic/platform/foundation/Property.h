#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "zarnic/platform/foundation/Boxing.h"
#include "zarnic/platform/foundation/Class.h"

namespace zn {

/// The way to one typed member of an object, boxed. The object must be of the class that published
/// the member, or of a subclass.
struct Accessor {
    Value (*get)(const NSObject& object) = nullptr;
    /// Whether the member could take the value; if not it is unchanged. Null when read-only.
    bool (*set)(NSObject& object, const Value& value) = nullptr;
};

/// A stored field of a class. One that stores a property `title` is called `_title`, whatever the
/// C++ member is called.
class ZN_EXPORT Field {
public:
    Field(std::string name, std::string type, Accessor accessor);

    const std::string& name() const { return name_; }
    /// In the platform's encoding: `q`, `d`, `@"NSString"`.
    const std::string& type() const { return type_; }

    Value get(const NSObject& object) const { return accessor_.get(object); }
    /// Throws `NSInvalidArgumentException` when the member cannot take the value.
    void set(NSObject& object, const Value& value) const;

private:
    std::string name_;
    std::string type_;
    Accessor accessor_;
};

/// A declared property of a class.
class ZN_EXPORT Property {
public:
    /// `marks` are the attributes between the type and the field, `field` the name of the stored
    /// field or empty.
    Property(std::string name, std::string type, std::string_view marks, std::string_view field,
             Accessor accessor);

    const std::string& name() const { return name_; }
    /// The name in small letters, by full Unicode mapping.
    const std::string& lowercaseName() const { return lowercaseName_; }
    const std::string& type() const { return type_; }
    /// In the platform's encoding: the type, then marks, then the stored field:
    /// `T@"NSString",C,N,V_title`.
    const std::string& attributes() const { return attributes_; }
    /// The class name of an object-typed property, as its attributes have it; else nothing.
    std::optional<std::string_view> declaredClassName() const;
    bool readOnly() const { return accessor_.set == nullptr; }

    Value get(const NSObject& object) const { return accessor_.get(object); }
    /// Throws `NSInvalidArgumentException` when the property cannot take the value or is read-only.
    void set(NSObject& object, const Value& value) const;

private:
    std::string name_;
    std::string lowercaseName_;
    std::string type_;
    std::string attributes_;
    Accessor accessor_;
};

/// What one registration line publishes: a stored field, a declared property, or a property with
/// the field that stores it. Made by the macros below.
class ZN_EXPORT Member {
public:
    /// `Owner::*place`, a data member.
    template <class Owner, auto place>
    static Member field(std::string_view name);
    template <class Owner, auto place>
    static Member property(std::string_view name);
    /// A property that nothing stores: what member functions of `Owner` get and set.
    template <class Owner, auto getter, auto setter>
    static Member computed(std::string_view name);
    template <class Owner, auto getter>
    static Member readOnly(std::string_view name);

    /// Declares another class than the C++ type tells: `NSMutableArray` for an array,
    /// `NSMutableDictionary` for a dictionary, any for a `Value`.
    Member as(std::string_view className);
    /// Reads and writes a stored property by these member functions instead; its field is still
    /// reached directly.
    template <class Owner, auto getter, auto setter>
    Member through();

    /// Appends what it publishes.
    void moveTo(std::vector<Field>& fields, std::vector<Property>& properties);

private:
    Member(std::string_view name, std::string type, std::string marks);

    std::string name_;
    std::string type_;
    std::string marks_;
    std::optional<Accessor> field_;
    std::optional<Accessor> property_;
};

namespace detail {

template <class Owner, auto place>
using MemberType = std::remove_cvref_t<decltype(std::declval<Owner&>().*place)>;
template <class Owner, auto getter>
using GetterType = std::remove_cvref_t<decltype((std::declval<const Owner&>().*getter)())>;

template <class Owner, auto place>
Accessor stored() {
    using T = MemberType<Owner, place>;
    return {[](const NSObject& object) {
                return Value(Boxing<T>::box(static_cast<const Owner&>(object).*place));
            },
            [](NSObject& object, const Value& value) {
                return Boxing<T>::unbox(value, static_cast<Owner&>(object).*place);
            }};
}

template <class Owner, auto getter>
Accessor gotten() {
    return {[](const NSObject& object) {
                return Value(Boxing<GetterType<Owner, getter>>::box(
                    (static_cast<const Owner&>(object).*getter)()));
            },
            nullptr};
}

template <class Owner, auto getter, auto setter>
Accessor gottenAndSet() {
    using T = GetterType<Owner, getter>;
    return {gotten<Owner, getter>().get, [](NSObject& object, const Value& value) {
                T taken{};
                if (!Boxing<T>::unbox(value, taken))
                    return false;
                (static_cast<Owner&>(object).*setter)(std::move(taken));
                return true;
            }};
}

}  // namespace detail

template <class Owner, auto place>
Member Member::field(std::string_view name) {
    using Type = Boxing<detail::MemberType<Owner, place>>;
    Member member(name, Type::type(), Type::marks);
    member.field_ = detail::stored<Owner, place>();
    return member;
}

template <class Owner, auto place>
Member Member::property(std::string_view name) {
    Member member = field<Owner, place>(name);
    member.property_ = member.field_;
    return member;
}

template <class Owner, auto getter, auto setter>
Member Member::computed(std::string_view name) {
    Member member = readOnly<Owner, getter>(name);
    member.property_ = detail::gottenAndSet<Owner, getter, setter>();
    return member;
}

template <class Owner, auto getter>
Member Member::readOnly(std::string_view name) {
    using Type = Boxing<detail::GetterType<Owner, getter>>;
    Member member(name, Type::type(), Type::marks);
    member.property_ = detail::gotten<Owner, getter>();
    return member;
}

template <class Owner, auto getter, auto setter>
Member Member::through() {
    property_ = detail::gottenAndSet<Owner, getter, setter>();
    return *this;
}

}  // namespace zn

/// In a class body, instead of `ZN_OBJECT`: gives a model class its runtime class, findable by name
/// from the program's start, and publishes its members, one line for each:
///
///     class User : public zn::NSObject {
///         ZN_MODEL(User, zn::NSObject,
///                  ZN_PROPERTY(userName),
///                  ZN_PROPERTY(address),
///                  ZN_FIELD(visits))
///     public:
///         std::string userName;
///         zn::Ref<Address> address;
///         int visits = 0;
///     };
///
/// The order of the lines is the declaration order of the walks. A class that lives in a static
/// library is there when something of its object file is used.
#define ZN_MODEL(Type, Super, ...)                                                           \
public:                                                                                      \
    static constexpr const char* staticClassName() {                                         \
        return #Type;                                                                        \
    }                                                                                        \
    static const ::zn::Class& staticClass() {                                                \
        static const ::zn::Class& theClass = ::zn::Class::define(                            \
            #Type, &Super::staticClass(), ::zn::detail::classFactory<Type>(), zn_members()); \
        return theClass;                                                                     \
    }                                                                                        \
    const ::zn::Class& runtimeClass() const override {                                       \
        return staticClass();                                                                \
    }                                                                                        \
                                                                                             \
private:                                                                                     \
    static std::vector<::zn::Member> zn_members() {                                          \
        using Self [[maybe_unused]] = Type;                                                  \
        return {__VA_ARGS__};                                                                \
    }                                                                                        \
    [[maybe_unused]] inline static const ::zn::Class& zn_registeredClass = staticClass();    \
                                                                                             \
public:

/// A property stored in the data member of its name. `.as("NSMutableDictionary")` declares another
/// class, `.through<Self, &Self::title, &Self::setTitle>()` other ways to read and write it.
#define ZN_PROPERTY(member) ::zn::Member::property<Self, &Self::member>(#member)
/// A property stored in a data member of another name: `ZN_PROPERTY_IN(title, title_)`.
#define ZN_PROPERTY_IN(name, member) ::zn::Member::property<Self, &Self::member>(#name)
/// A property that two member functions get and set: `ZN_ACCESSORS(area, area, setArea)`.
#define ZN_ACCESSORS(name, getter, setter) \
    ::zn::Member::computed<Self, &Self::getter, &Self::setter>(#name)
/// A property that a member function gets and nothing sets.
#define ZN_READONLY(name, getter) ::zn::Member::readOnly<Self, &Self::getter>(#name)
/// A data member that is stored and is no property.
#define ZN_FIELD(member) ::zn::Member::field<Self, &Self::member>(#member)
