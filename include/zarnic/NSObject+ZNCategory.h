#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "zarnic/platform/foundation/NSCoder.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// False for what counts as null: an absent value, the null object, an empty text, empty data and
/// a null reference. True for everything else, empty arrays and dictionaries included.
ZN_EXPORT bool zn_NotNull(const Value& value);
inline bool zn_NotNull(std::string_view text) {
    return !text.empty();
}
inline bool zn_NotNull(const std::string& text) {
    return !text.empty();
}
inline bool zn_NotNull(const char* text) {
    return text != nullptr && *text != '\0';
}
inline bool zn_NotNull(const std::optional<std::string>& text) {
    return text && !text->empty();
}
template <class T>
bool zn_NotNull(const Ref<T>& object) {
    return object != nullptr;
}

/// Writes the receiver's stored fields into the coder, by name: those that its own class published,
/// once for each class up to the root, and none of its superclasses. Left out are the names in
/// `zn_ignoredNames` and what is absent or null. For a model class's `encodeWithCoder`.
ZN_EXPORT void zn_encode(const Ref<const NSObject>& receiver, const Ref<NSCoder>& coder);

/// Sets the receiver's stored fields, its superclasses' too, from the coder. Left as they are: the
/// names in `zn_ignoredNames` and what the coder does not have. Throws `NSInvalidArgumentException`
/// when a field cannot take the value. For a model class's `initWithCoder`.
ZN_EXPORT void zn_decode(const Ref<NSObject>& receiver, const Ref<NSCoder>& coder);

/// A new instance of the receiver's class with the values of the stored fields, those of the
/// superclasses too: containers and objects are shared, not copied. The names in `zn_ignoredNames`,
/// and what is absent or null, stay as the new instance has them. Null for a class that cannot be
/// made without arguments. There are no memory zones here, so none is given.
ZN_EXPORT Ref<NSObject> zn_copyWithZone(const Ref<const NSObject>& receiver);
template <class T>
requires(!std::is_const_v<T> &&
         !std::is_same_v<T, NSObject>) Ref<T> zn_copyWithZone(const Ref<T>& receiver) {
    return as<T>(zn_copyWithZone(Ref<const NSObject>(receiver)));
}

/// How many references own the receiver, the caller's included; 0 for none.
template <class T>
std::int64_t zn_GetRetainCount(const Ref<T>& receiver) {
    return receiver.use_count();
}

/// An immutable copy of an array or dictionary in which, at every depth of arrays and dictionaries,
/// empty texts stand for what counts as null (see `zn_NotNull`); any other receiver itself. Throws
/// `NSInvalidArgumentException` for containers nested deeper than 1,024.
ZN_EXPORT Value zn_checkNull(const Value& receiver);

/// The declared properties of the receiver's own class, not those of its superclasses, as an
/// immutable dictionary. What is absent becomes null; numbers, texts and dictionaries stay; any
/// other object becomes its own such dictionary, which for data, dates and whatever declares
/// nothing is empty. Of an array only the elements of the receiver's class stay, as dictionaries.
/// Absent for an absent receiver. Throws `NSInvalidArgumentException` for objects nested deeper
/// than 1,024.
ZN_EXPORT Value zn_ObjectToDictionary(const Value& receiver);

/// Fills a model from a dictionary whose keys are matched to the names of the declared properties,
/// inherited ones included, without regard to case; of keys that differ only in case the last
/// counts. `className` is the name of a class, of which a new instance is made, or the object
/// itself. Null when the first is no dictionary or no class has the name.
///
/// What is absent or null leaves its property alone. A dictionary becomes an instance of the
/// property's declared class, or stays one (immutable or mutable, as declared). An array becomes a
/// new one, in which dictionaries become instances of this call's `className`, since the type of
/// the elements is not known, and nulls are dropped. So with an object for `className` each
/// dictionary in an array fills that object, and the array holds it.
///
/// Throws `NSRangeException` for a dictionary and a property without a declared class, and
/// `NSInvalidArgumentException` for a value that the property cannot take and for nests deeper than
/// 1,024.
ZN_EXPORT Ref<NSObject> ZN_DictionaryToObject(const Value& dictionary, const Value& className);
/// The same for a class that the program knows: `ZN_DictionaryToObject<User>(dictionary)`.
template <class T>
Ref<T> ZN_DictionaryToObject(const Value& dictionary) {
    static const Value className = T::staticClass().name();
    return std::dynamic_pointer_cast<T>(ZN_DictionaryToObject(dictionary, className));
}

/// A new mutable dictionary with the keys in small letters, by full Unicode mapping; those of
/// nested dictionaries stay. Of keys that become equal the last counts. Absent when it is no
/// dictionary.
ZN_EXPORT Value ZN_GetLowcaseKeyDictionary(const Value& dictionary);

/// The receiver, an array or a dictionary, as pretty-printed UTF-8 JSON. Absent for an absent
/// receiver, and, with a line in the log, when a text is not UTF-8. Throws
/// `NSInvalidArgumentException` for what JSON cannot hold (see `NSJSONSerialization`).
ZN_EXPORT Value zn_convertToJsonData(const Value& receiver);
/// That text without its spaces and line breaks, those within texts included: `{"k":"a b"}` becomes
/// `{"k":"ab"}`.
ZN_EXPORT std::optional<std::string> zn_convertToJsonString(const Value& receiver);
/// The array or dictionary of a JSON text, mutable at every depth. Absent for an empty text, and,
/// with a line in the log, for one that cannot be read.
ZN_EXPORT Value ZN_ConvertToObject(std::string_view json);

}  // namespace zn
