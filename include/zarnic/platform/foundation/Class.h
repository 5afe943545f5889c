#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

class Field;
class Member;
class Property;

/// A runtime class: its name, its superclass, how to make an instance, its published methods, and
/// the members that a model class publishes (see `Property.h`). Classes live for ever; compare them
/// by address. Safe from any thread.
class ZN_EXPORT Class {
public:
    using Factory = std::function<Ref<NSObject>()>;
    using Method = std::function<void(NSObject& receiver, const Ref<NSObject>& sender)>;

    /// A new class. Of several with one name the first is found by it; the others work as well but
    /// are known to their own instances only.
    static Class& define(std::string_view name, const Class* superclass, Factory factory);
    static Class& define(std::string_view name, const Class* superclass, Factory factory,
                         std::vector<Member> members);

    /// The class of this name that was defined first, or null.
    static const Class* named(std::string_view name);

    const std::string& name() const;
    /// Null for the root class only.
    const Class* superclass() const;
    bool isSubclassOf(const Class& other) const;

    /// A new instance, or null for a class that cannot be made without arguments.
    Ref<NSObject> create() const;

    void addMethod(std::string_view name, Method method);
    /// Looks here, then in the superclasses. Null when nobody publishes it.
    const Method* method(std::string_view name) const;

    /// The stored fields that this very class published, not its superclasses', in their order.
    std::span<const Field> fields() const;
    /// Its declared properties, likewise.
    std::span<const Property> properties() const;
    /// Look here, then in the superclasses. Null when nobody publishes it.
    const Field* field(std::string_view name) const;
    const Property* property(std::string_view name) const;

private:
    struct Data;
    explicit Class(Data* data);
    Data* data_;
};

namespace detail {
template <class T>
Class::Factory classFactory() {
    if constexpr (std::is_default_constructible_v<T> && !std::is_abstract_v<T>)
        return [] { return Ref<NSObject>(make<T>()); };
    else
        return {};
}
}  // namespace detail

}  // namespace zn

/// In a class body: gives the class its runtime class. `ZN_OBJECT(Detail, zn::ZNViewController)`.
#define ZN_OBJECT(Type, Super)                                                                     \
public:                                                                                            \
    static constexpr const char* staticClassName() {                                               \
        return #Type;                                                                              \
    }                                                                                              \
    static const ::zn::Class& staticClass() {                                                      \
        static const ::zn::Class& theClass =                                                       \
            ::zn::Class::define(#Type, &Super::staticClass(), ::zn::detail::classFactory<Type>()); \
        return theClass;                                                                           \
    }                                                                                              \
    const ::zn::Class& runtimeClass() const override {                                             \
        return staticClass();                                                                      \
    }

/// In a source file: makes the class findable by name before its first instance exists.
#define ZN_REGISTER_CLASS(Type) \
    [[maybe_unused]] static const ::zn::Class& zn_registered_##Type = Type::staticClass()
