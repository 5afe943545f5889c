#include <array>

#include "model/ModelPlan.h"
#include "model/Nesting.h"
#include "platform/foundation/archives/ContainerFiller.h"
#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

/// So many empty values, without an allocation when they are few.
template <class T>
class Row {
public:
    explicit Row(std::size_t count) : count_(count), many_(count > few_.size() ? count : 0) {}
    std::span<T> values() {
        return many_.empty() ? std::span(few_).first(count_) : std::span(many_);
    }

private:
    std::size_t count_;
    std::array<T, 12> few_{};
    std::vector<T> many_;
};

Value cleaned(const Value& value) {
    if (value.isArray() || value.isDictionary())
        return zn_checkNull(value);
    return zn_NotNull(value) ? value : Value("");
}

Value dictionaryOf(const NSObject& object);

/// On purpose only the elements of the receiver's class, or a subclass of it.
Value arrayOf(const Array& elements, const Class& type) {
    Array converted;
    for (const Value& element : elements) {
        const auto object = element.object();
        if (object && object->runtimeClass().isSubclassOf(type))
            converted.add(dictionaryOf(*object));
    }
    return converted;
}

/// What stands in the dictionary for a property's value; `type` is the receiver's class.
Value entryOf(Value value, const Class& type) {
    if (value.absent() || value.isNull())
        return Value::null();
    if (value.isArray())
        return arrayOf(value.array(), type);
    if (value.isNumber() || value.isString() || value.isDictionary())
        return value;
    return zn_ObjectToDictionary(value);
}

Value dictionaryOf(const NSObject& object) {
    const Nesting nesting;
    const Class& type = object.runtimeClass();
    const ModelPlan& plan = ModelPlan::of(type);
    // On purpose only the properties of the object's own class.
    const auto& sources = plan.sources();
    Row<Value> row(sources.size());
    const auto values = row.values();
    for (std::size_t index = 0; index < sources.size(); ++index)
        values[index] = entryOf(sources[index]->get(object), type);
    return ContainerFiller::immutableDictionary(plan.sourceNames(), values);
}

/// The elements for a property: models of the class that the whole call was given, since the type
/// of the elements is not known.
Array elementsOf(const Array& given, const Value& className) {
    Array elements;
    elements.reserve(given.count());
    for (const Value& element : given) {
        Value made =
            element.isDictionary() ? Value(ZN_DictionaryToObject(element, className)) : element;
        if (!made.absent() && !made.isNull())
            elements.add(std::move(made));
    }
    return elements;
}

Value nestedOf(const Value& dictionary, const ModelPlan::Target& target) {
    if (!target.className)
        throw NSException(NSRangeException, "the property " + target.property->name() +
                                                " has no class to make of a dictionary");
    if (*target.className == "NSDictionary")
        return dictionary.copy();
    if (*target.className == "NSMutableDictionary")
        return dictionary.mutableCopy();
    return ZN_DictionaryToObject(dictionary, *target.className);
}

void set(NSObject& object, const Property& property, const Value& value) {
    if (property.readOnly())
        object.setValueForKey(value, property.name());
    else
        property.set(object, value);
}

void fill(NSObject& object, const ModelPlan::Target& target, const Value& value,
          const Value& className) {
    if (value.isArray())
        set(object, *target.property, elementsOf(value.array(), className));
    else if (value.isDictionary())
        set(object, *target.property, nestedOf(value, target));
    else if (!value.isNull())
        set(object, *target.property, value);
}

void fillAll(NSObject& object, const Dictionary& dictionary, const Value& className) {
    auto& spellings = Spellings::of(object.runtimeClass());
    const ModelPlan& plan = spellings.plan();
    Row<const Value*> row(plan.lowercaseNames().count());
    const auto byName = row.values();
    ContainerFiller::forEach(dictionary,
                             [&](std::size_t position, std::string_view key, const Value& value) {
                                 const std::size_t name = spellings.find(position, key);
                                 if (name != KeyTable::notFound)
                                     byName[name] = &value;
                             });
    for (const ModelPlan::Target& target : plan.targets())
        if (const Value* value = byName[target.name])
            fill(object, target, *value, className);
}

}  // namespace

Value zn_checkNull(const Value& receiver) {
    if (!receiver.isArray() && !receiver.isDictionary())
        return receiver;
    const Nesting nesting;
    if (receiver.isArray()) {
        Array items;
        items.reserve(receiver.array().count());
        for (const Value& item : receiver.array())
            items.add(cleaned(item));
        return items.copy();
    }
    const Dictionary given = receiver.dictionary();
    Dictionary entries = given.mutableCopy();
    for (const auto& [key, value] : given)
        entries.set(key, cleaned(value));
    return entries.copy();
}

Value zn_ObjectToDictionary(const Value& receiver) {
    if (receiver.absent())
        return {};
    const auto object = receiver.object();
    return object ? dictionaryOf(*object) : Value(Dictionary().copy());
}

Ref<NSObject> ZN_DictionaryToObject(const Value& dictionary, const Value& className) {
    if (!dictionary.isDictionary())
        return nullptr;
    const Nesting nesting;
    Ref<NSObject> object = className.object();
    if (className.isString()) {
        const Class* type = Class::named(className.string());
        object = type == nullptr ? nullptr : type->create();
    }
    if (object)
        fillAll(*object, dictionary.dictionary(), className);
    return object;
}

Value ZN_GetLowcaseKeyDictionary(const Value& dictionary) {
    if (!dictionary.isDictionary())
        return {};
    Dictionary result;
    for (const auto& [key, value] : dictionary.dictionary())
        result.set(lowercaseString(key), value);
    return result;
}

}  // namespace zn
