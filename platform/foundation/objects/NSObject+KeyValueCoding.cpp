#include <span>

#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSObject.h"
#include "zarnic/platform/foundation/Property.h"

namespace zn {
namespace {

enum class First : bool { AsItIs, Capital };

/// How a name is made of a key: `isKey`, `_key`.
struct Pattern {
    std::string_view prefix;
    First first;
};

// The orders in which the platform looks.
constexpr Pattern getters[] = {
    {"get", First::Capital}, {"", First::AsItIs}, {"is", First::Capital}, {"_", First::AsItIs}};
constexpr Pattern setters[] = {{"", First::AsItIs}, {"_", First::AsItIs}};
constexpr Pattern storage[] = {
    {"_", First::AsItIs}, {"_is", First::Capital}, {"", First::AsItIs}, {"is", First::Capital}};

char capital(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool isMadeOf(std::string_view name, const Pattern& pattern, std::string_view key) {
    if (name.size() != pattern.prefix.size() + key.size() || !name.starts_with(pattern.prefix))
        return false;
    name.remove_prefix(pattern.prefix.size());
    const char first = pattern.first == First::Capital ? capital(key[0]) : key[0];
    return name[0] == first && name.substr(1) == key.substr(1);
}

/// The first member, along the patterns and up the classes, that `fits` and has such a name.
template <class T, class Fits>
const T* find(const Class& type, std::span<const T> (Class::*members)() const,
              std::span<const Pattern> patterns, std::string_view key, const Fits& fits) {
    if (key.empty())
        return nullptr;
    for (const Pattern& pattern : patterns)
        for (const Class* each = &type; each != nullptr; each = each->superclass())
            for (const T& member : (each->*members)())
                if (isMadeOf(member.name(), pattern, key) && fits(member))
                    return &member;
    return nullptr;
}

const Property* propertyToRead(const Class& type, std::string_view key) {
    return find(type, &Class::properties, getters, key, [](const Property&) { return true; });
}

const Property* propertyToWrite(const Class& type, std::string_view key) {
    return find(type, &Class::properties, setters, key,
                [](const Property& property) { return !property.readOnly(); });
}

const Field* fieldForKey(const Class& type, std::string_view key) {
    return find(type, &Class::fields, storage, key, [](const Field&) { return true; });
}

[[noreturn]] void throwUndefined(const NSObject& object, std::string_view key) {
    throw NSException(NSUndefinedKeyException,
                      object.description() + " is not key value coding-compliant for the key " +
                          std::string(key));
}

}  // namespace

Value NSObject::valueForKey(std::string_view key) const {
    const Class& type = runtimeClass();
    if (const Property* property = propertyToRead(type, key))
        return property->get(*this);
    if (const Field* field = fieldForKey(type, key))
        return field->get(*this);
    return valueForUndefinedKey(key);
}

void NSObject::setValueForKey(const Value& value, std::string_view key) {
    const Class& type = runtimeClass();
    if (const Property* property = propertyToWrite(type, key))
        property->set(*this, value);
    else if (const Field* field = fieldForKey(type, key))
        field->set(*this, value);
    else
        setValueForUndefinedKey(value, key);
}

Value NSObject::valueForUndefinedKey(std::string_view key) const {
    throwUndefined(*this, key);
}

void NSObject::setValueForUndefinedKey(const Value&, std::string_view key) {
    throwUndefined(*this, key);
}

std::vector<std::string> NSObject::zn_ignoredNames() const {
    return {};
}

}  // namespace zn
