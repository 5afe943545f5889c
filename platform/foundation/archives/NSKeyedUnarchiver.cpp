#include "zarnic/platform/foundation/NSKeyedUnarchiver.h"

#include "platform/foundation/archives/ContainerFiller.h"
#include "platform/foundation/archives/KeyedArchive.h"
#include "platform/foundation/files/FileBytes.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

/// Deeper, objects are made at once and filled when the outer ones are.
constexpr int maximumDepth = 128;

constexpr std::int64_t NSCoderReadCorruptError = 4864;

[[noreturn]] void refuse(const std::string& reason) {
    throw NSException(NSInvalidUnarchiveOperationException, reason);
}

Array arrayIn(const Dictionary& form, const char* key) {
    const Value& value = form[key];
    if (!value.isArray())
        refuse(std::string("no array under ") + key);
    return value.array();
}

Value dateIn(const Dictionary& form) {
    const Value& exact = form[archive::exactTimeKey];
    if (exact.isNumber())
        return NSDate::dateWithTimeIntervalSince1970(exact.doubleValue());
    const Value& time = form[archive::timeKey];
    if (!time.isNumber())
        refuse("a date without a time");
    return NSDate::dateWithTimeIntervalSince1970(time.doubleValue() +
                                                 archive::secondsFrom1970To2001);
}

Value textIn(const Dictionary& form) {
    const Value& bytes = form[archive::bytesKey];
    if (bytes.isData()) {
        const auto span = bytes.bytes();
        return std::string_view(reinterpret_cast<const char*>(span.data()), span.size());
    }
    const Value& text = form[archive::textKey];
    if (!text.isString())
        refuse("a text without content");
    return text;
}

Value dataIn(const Dictionary& form) {
    const Value& data = form[archive::dataKey];
    if (!data.isData())
        refuse("data without content");
    return data;
}

/// One level of objects, left also when an object cannot use its values.
class Level {
public:
    Level(int& depth, Dictionary& current) : depth_(depth), current_(current), outer_(current) {
        ++depth_;
    }
    ~Level() {
        --depth_;
        current_ = outer_;
    }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

private:
    int& depth_;
    Dictionary& current_;
    Dictionary outer_;
};

}  // namespace

NSKeyedUnarchiver::NSKeyedUnarchiver(std::span<const std::byte> data) {
    const Value list = NSPropertyListSerialization::propertyListWithData(data);
    const Dictionary parts = list.isDictionary() ? list.dictionary() : Dictionary();
    const Value& objects = parts[archive::objectsKey];
    const Value& top = parts[archive::topKey];
    if (parts[archive::versionKey] != archive::version || !objects.isArray() || !top.isDictionary())
        throw NSException(NSInvalidArgumentException, "the data is no keyed archive");
    objects_ = objects.array();
    top_ = top.dictionary();
    current_ = top_;
    slots_.resize(objects_.count());
}

NSKeyedUnarchiver::~NSKeyedUnarchiver() = default;

Value NSKeyedUnarchiver::unarchiveObjectWithData(std::span<const std::byte> data) {
    return make<NSKeyedUnarchiver>(data)->decodeObjectForKey(archive::rootKey);
}

Value NSKeyedUnarchiver::unarchiveObjectWithFile(std::string_view path) {
    const auto bytes = fileBytes(path);
    return bytes ? unarchiveObjectWithData(std::as_bytes(std::span(*bytes))) : Value();
}

Value NSKeyedUnarchiver::unarchiveTopLevelObjectWithData(std::span<const std::byte> data,
                                                         Ref<NSError>* error) {
    try {
        return unarchiveObjectWithData(data);
    } catch (const NSException& exception) {
        if (error != nullptr)
            *error = NSError::errorWithDomain(
                NSCocoaErrorDomain, NSCoderReadCorruptError,
                Dictionary{{NSDebugDescriptionErrorKey, exception.reason()}});
        return {};
    }
}

Value NSKeyedUnarchiver::decodeObjectForKey(std::string_view key) {
    const Value reference = current_[archive::escaped(key)];
    if (reference.absent())
        return {};
    if (depth_ > 0)
        return read(reference);
    try {
        Value value = read(reference);
        fillWaiting();
        containersMade_.clear();
        return value;
    } catch (...) {
        abandon();
        throw;
    }
}

bool NSKeyedUnarchiver::containsValueForKey(std::string_view key) const {
    return current_.contains(archive::escaped(key));
}

void NSKeyedUnarchiver::encodeObject(const Value&, std::string_view) {
    throw NSException(NSInvalidArgumentException, "an unarchiver does not write");
}

/// The value that the reference stands for: made when it is met first, shared afterwards.
Value NSKeyedUnarchiver::read(const Value& reference) {
    const Value index =
        reference.isDictionary() ? reference.dictionary()[archive::referenceKey] : Value();
    if (index.kind() != Value::Kind::Integer)
        refuse("a value that is no reference");
    const auto place = static_cast<std::size_t>(index.longLongValue());
    if (place >= slots_.size())
        refuse("a reference beyond the end");
    if (!slots_[place].read) {
        slots_[place].read = true;
        slots_[place].value = place == 0 ? Value() : start(place, objects_[place]);
    }
    return slots_[place].value;
}

/// The value, which in the case of containers and objects is still to be filled.
Value NSKeyedUnarchiver::start(std::size_t index, const Value& form) {
    if (form.isString() || form.isNumber() || form.isData() || form.object<NSDate>())
        return form;
    if (!form.isDictionary())
        refuse("an object without a class");
    return startOfClass(index, form.dictionary());
}

Value NSKeyedUnarchiver::startOfClass(std::size_t index, const Dictionary& form) {
    const std::string_view name = classNameOf(form);
    Value& value = slots_[index].value;
    if (name == "NSArray" || name == "NSMutableArray")
        value =
            ContainerFiller::array(name == "NSArray" ? Mutability::Immutable : Mutability::Mutable);
    else if (name == "NSDictionary" || name == "NSMutableDictionary")
        value = ContainerFiller::dictionary(name == "NSDictionary" ? Mutability::Immutable
                                                                   : Mutability::Mutable);
    else if (Value plain = startPlain(name, form); !plain.absent())
        return plain;
    else
        value = startObject(name);
    if (!value.isObject())
        containersMade_.push_back(value);
    Value started = value;
    fillOrWait(index);
    return started;
}

/// The values that are archived as objects but have no fields; absent for other classes.
Value NSKeyedUnarchiver::startPlain(std::string_view className, const Dictionary& form) {
    if (className == "NSNull")
        return Value::null();
    if (className == "NSDate")
        return dateIn(form);
    if (className == "NSString" || className == "NSMutableString")
        return textIn(form);
    return className == "NSData" || className == "NSMutableData" ? dataIn(form) : Value();
}

Value NSKeyedUnarchiver::startObject(std::string_view className) {
    const Class* type = Class::named(className);
    const Ref<NSObject> object = type == nullptr ? nullptr : type->create();
    if (dynamic_cast<NSCoding*>(object.get()) == nullptr)
        refuse("no class " + std::string(className) + " that can be unarchived");
    return object;
}

std::string_view NSKeyedUnarchiver::classNameOf(const Dictionary& form) const {
    const Value& reference = form[archive::classKey];
    const Value index =
        reference.isDictionary() ? reference.dictionary()[archive::referenceKey] : Value();
    const auto place = static_cast<std::size_t>(index.longLongValue());
    if (!index.isNumber() || place >= objects_.count() || !objects_[place].isDictionary())
        refuse("an object without a class");
    const Value& name = objects_[place].dictionary()[archive::classNameKey];
    if (!name.isString())
        refuse("a class without a name");
    return name.string();
}

void NSKeyedUnarchiver::fillOrWait(std::size_t index) {
    if (depth_ >= maximumDepth)
        waiting_.push_back(index);
    else
        fill(index);
}

void NSKeyedUnarchiver::fill(std::size_t index) {
    const Value value = slots_[index].value;
    const Dictionary form = objects_[index].dictionary();
    const Level level(depth_, current_);
    if (value.isArray()) {
        fillArray(value.array(), form);
    } else if (value.isDictionary()) {
        fillDictionary(value.dictionary(), form);
    } else {
        current_ = form;
        dynamic_cast<NSCoding&>(*value.object()).initWithCoder(ref(static_cast<NSCoder*>(this)));
    }
}

void NSKeyedUnarchiver::fillArray(const Array& array, const Dictionary& form) {
    for (const Value& reference : arrayIn(form, archive::itemsKey)) {
        Value item = read(reference);
        if (item.absent())
            refuse("an array with nothing in it");
        ContainerFiller::add(array, std::move(item));
    }
}

void NSKeyedUnarchiver::fillDictionary(const Dictionary& dictionary, const Dictionary& form) {
    const Array keys = arrayIn(form, archive::keysKey);
    const Array items = arrayIn(form, archive::itemsKey);
    if (keys.count() != items.count())
        refuse("a dictionary with more keys than values, or less");
    for (std::size_t index = 0; index < keys.count(); ++index) {
        const Value key = read(keys[index]);
        Value item = read(items[index]);
        if (!key.isString() || item.absent())
            refuse("a dictionary with a key that is no text, or no value");
        ContainerFiller::set(dictionary, key.string(), std::move(item));
    }
}

void NSKeyedUnarchiver::fillWaiting() {
    while (!waiting_.empty()) {
        const std::size_t index = waiting_.front();
        waiting_.pop_front();
        fill(index);
    }
}

/// After an error: ends the circles through the containers that this call made, and the archive.
void NSKeyedUnarchiver::abandon() {
    for (const Value& container : std::exchange(containersMade_, {}))
        ContainerFiller::clear(container);
    waiting_.clear();
    slots_.clear();
}

}  // namespace zn
