#include "zarnic/platform/foundation/NSKeyedArchiver.h"

#include "platform/foundation/archives/ContainerFiller.h"
#include "platform/foundation/archives/KeyedArchive.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"
#include "zarnic/platform/foundation/NSString.h"
#include "zarnic/platform/foundation/ValueFiles.h"

namespace zn {
namespace {

Value referenceTo(std::size_t index) {
    return Dictionary{{archive::referenceKey, index}}.copy();
}

std::size_t indexIn(const Value& reference) {
    return static_cast<std::size_t>(reference.dictionary()[archive::referenceKey].longLongValue());
}

[[noreturn]] void refuse(const std::string& reason) {
    throw NSException(NSInvalidArgumentException, reason);
}

/// Containers and objects are the same only when they are one; everything else when it is equal.
bool isSameForm(const Value& stored, const Value& value) {
    return stored.kind() == value.kind() && (value.isData() || value.isNumber()) && stored == value;
}

}  // namespace

std::string archive::escaped(std::string_view key) {
    return std::string(key.starts_with('$') ? "$" : "").append(key);
}

NSKeyedArchiver::NSKeyedArchiver() : objects_{archive::absentMark}, current_(top_) {}

NSKeyedArchiver::~NSKeyedArchiver() = default;

Value NSKeyedArchiver::archivedDataWithRootObject(const Value& root) {
    const auto archiver = make<NSKeyedArchiver>();
    archiver->encodeObject(root, archive::rootKey);
    return archiver->encodedData();
}

bool NSKeyedArchiver::archiveRootObject(const Value& root, std::string_view path) {
    return writeToFile(archivedDataWithRootObject(root), path, true);
}

void NSKeyedArchiver::encodeObject(const Value& value, std::string_view key) {
    requireOpen();
    if (!isValidUTF8(key))
        refuse("a key must be UTF-8");
    const std::string name = archive::escaped(key);
    // A walk may encode the same value again; its first form serves.
    const Value& earlier = current_[name];
    if (!earlier.absent() && isSameForm(objects_[indexIn(earlier)], value))
        return;
    const State outer = std::exchange(state_, State::Encoding);
    try {
        current_.set(name, referenceTo(indexOf(value)));
        // What waits is encoded by the outermost call only, so that depth costs no stack.
        if (outer == State::Open)
            encodeWaiting();
    } catch (...) {
        state_ = State::Broken;
        throw;
    }
    state_ = outer;
}

Value NSKeyedArchiver::decodeObjectForKey(std::string_view) {
    refuse("an archiver does not read");
}

bool NSKeyedArchiver::containsValueForKey(std::string_view) const {
    refuse("an archiver does not read");
}

Value NSKeyedArchiver::encodedData() {
    requireOpen();
    state_ = State::Ended;
    const Dictionary list{{archive::versionKey, archive::version},
                          {archive::archiverKey, archive::archiverName},
                          {archive::topKey, top_},
                          {archive::objectsKey, objects_}};
    return NSPropertyListSerialization::dataWithPropertyList(list, NSPropertyListFormat::Binary);
}

void NSKeyedArchiver::requireOpen() const {
    if (state_ == State::Broken)
        refuse("the archive is broken: something in it could not be archived");
    if (state_ == State::Ended)
        refuse("the archive has ended");
}

void NSKeyedArchiver::encodeWaiting() {
    while (!waiting_.empty()) {
        const Waiting next = std::move(waiting_.front());
        waiting_.pop_front();
        objects_.replace(next.index, next.value.isObject() ? objectForm(*next.value.object())
                                                           : containerForm(next.value));
    }
    current_ = top_;
}

Value NSKeyedArchiver::objectForm(const NSObject& object) {
    current_ = Dictionary{{archive::classKey, classReference(object)}};
    dynamic_cast<const NSCoding&>(object).encodeWithCoder(ref(static_cast<NSCoder*>(this)));
    // A class may have caught what one of its values threw.
    requireOpen();
    return current_;
}

std::size_t NSKeyedArchiver::indexOf(const Value& value) {
    if (value.absent())
        return 0;
    if (value.isString()) {
        const auto [place, isNew] = texts_.try_emplace(std::string(value.string()), 0);
        if (isNew)
            place->second = append(textForm(value.string()));
        return place->second;
    }
    const auto object = value.object();
    const void* identity = object ? object.get() : ContainerFiller::identity(value);
    if (identity == nullptr)
        return append(value.isNull() ? Dictionary{{archive::classKey, classReference("NSNull")}}
                                     : value);
    const auto [place, isNew] = places_.try_emplace(identity, 0);
    if (isNew)
        place->second = store(value);
    return place->second;
}

/// Something with an identity, for the first time.
std::size_t NSKeyedArchiver::store(const Value& value) {
    kept_.push_back(value);
    if (const auto date = value.object<NSDate>())
        return append(dateForm(date->timeIntervalSince1970()));
    const auto object = value.object();
    if (object && dynamic_cast<const NSCoding*>(object.get()) == nullptr)
        refuse(object->description() + " is no NSCoding and cannot be archived");
    const std::size_t index = append(archive::absentMark);
    waiting_.push_back({index, value});
    return index;
}

std::size_t NSKeyedArchiver::append(const Value& stored) {
    objects_.add(stored);
    return objects_.count() - 1;
}

Value NSKeyedArchiver::containerForm(const Value& container) {
    Array keys;
    Array items;
    if (container.isArray())
        return Dictionary{
            {archive::itemsKey, references(container.array())},
            {archive::classKey,
             classReference(container.array().isMutable() ? "NSMutableArray" : "NSArray")}};
    const Dictionary entries = container.dictionary();
    for (const auto& [key, value] : entries) {
        keys.add(key);
        items.add(value);
    }
    return Dictionary{{archive::keysKey, references(keys)},
                      {archive::itemsKey, references(items)},
                      {archive::classKey, classReference(entries.isMutable() ? "NSMutableDictionary"
                                                                             : "NSDictionary")}};
}

Value NSKeyedArchiver::references(const Array& values) {
    Array result;
    result.reserve(values.count());
    for (const Value& value : values)
        result.add(referenceTo(indexOf(value)));
    return result;
}

Value NSKeyedArchiver::textForm(std::string_view text) {
    if (isValidUTF8(text))
        return text;
    return Dictionary{{archive::bytesKey, Value::data(std::as_bytes(std::span(text)))},
                      {archive::classKey, classReference("NSString")}};
}

Value NSKeyedArchiver::dateForm(double since1970) {
    const double since2001 = since1970 - archive::secondsFrom1970To2001;
    Dictionary form{{archive::timeKey, since2001}, {archive::classKey, classReference("NSDate")}};
    if (since2001 + archive::secondsFrom1970To2001 != since1970)
        form.set(archive::exactTimeKey, since1970);
    return form;
}

Value NSKeyedArchiver::classReference(const NSObject& object) {
    const Class& type = object.runtimeClass();
    if (Class::named(type.name()) != &type)
        refuse("two classes are called " + type.name() + "; only the first can be archived");
    return classReference(type.name(), &type);
}

Value NSKeyedArchiver::classReference(std::string_view name, const Class* type) {
    return referenceTo(classIndex(name, type));
}

/// The superclasses are for those who read archives without the program.
std::size_t NSKeyedArchiver::classIndex(std::string_view name, const Class* type) {
    const auto known = classes_.find(name);
    if (known != classes_.end())
        return known->second;
    Array names{name};
    for (const Class* each = type == nullptr ? nullptr : type->superclass(); each != nullptr;
         each = each->superclass())
        names.add(each->name());
    const std::size_t index =
        append(Dictionary{{archive::classNameKey, name}, {archive::classesKey, names}});
    classes_.emplace(name, index);
    return index;
}

}  // namespace zn
