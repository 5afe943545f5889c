#include "zarnic/platform/foundation/NSUserDefaults.h"

#include <cstdlib>

#include "platform/foundation/bundle/DefaultsState.h"
#include "platform/foundation/bundle/Folders.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"

namespace zn {
namespace {

/// A copy that nobody else can change, as it will come back from the file.
Value kept(const Value& value) {
    const Value bytes =
        NSPropertyListSerialization::dataWithPropertyList(value, NSPropertyListFormat::Binary);
    Value copy = NSPropertyListSerialization::propertyListWithData(bytes.bytes());
    if (copy.absent())
        throw NSException(NSInvalidArgumentException,
                          "user defaults keep texts, data, numbers, dates, and containers of them");
    return copy;
}

Value ofKind(const Value& value, Value::Kind kind) {
    return value.kind() == kind ? value : Value();
}

}  // namespace

Ref<NSUserDefaults> NSUserDefaults::standardUserDefaults() {
    // Kept for good: threads may use it while the program ends.
    static const auto* shared = [] {
        // The pool may not have come to the last changes then.
        std::atexit([] { standardUserDefaults()->state_->writeChanges(); });
        return new Ref<NSUserDefaults>(make<NSUserDefaults>(userDefaultsPath()));
    }();
    return *shared;
}

NSUserDefaults::NSUserDefaults(std::string path)
    : state_(std::make_shared<State>(std::move(path))) {}

NSUserDefaults::~NSUserDefaults() = default;

Value NSUserDefaults::objectForKey(std::string_view key) const {
    return state_->find(key);
}

std::optional<std::string> NSUserDefaults::stringForKey(std::string_view key) const {
    const Value value = objectForKey(key);
    return value.isString() || value.isNumber() ? std::optional(value.stringValue()) : std::nullopt;
}

Value NSUserDefaults::arrayForKey(std::string_view key) const {
    return ofKind(objectForKey(key), Value::Kind::Array);
}

Value NSUserDefaults::dictionaryForKey(std::string_view key) const {
    return ofKind(objectForKey(key), Value::Kind::Dictionary);
}

Value NSUserDefaults::dataForKey(std::string_view key) const {
    return ofKind(objectForKey(key), Value::Kind::Data);
}

std::int64_t NSUserDefaults::integerForKey(std::string_view key) const {
    return objectForKey(key).longLongValue();
}

bool NSUserDefaults::boolForKey(std::string_view key) const {
    return objectForKey(key).boolValue();
}

float NSUserDefaults::floatForKey(std::string_view key) const {
    return objectForKey(key).floatValue();
}

double NSUserDefaults::doubleForKey(std::string_view key) const {
    return objectForKey(key).doubleValue();
}

Dictionary NSUserDefaults::dictionaryRepresentation() const {
    return state_->all();
}

void NSUserDefaults::setObject(const Value& value, std::string_view key) {
    state_->change(key, value.absent() ? Value() : kept(value));
}

void NSUserDefaults::removeObjectForKey(std::string_view key) {
    state_->change(key, {});
}

void NSUserDefaults::registerDefaults(const Dictionary& defaults) {
    state_->addRegistered(kept(defaults).dictionary());
}

bool NSUserDefaults::synchronize() {
    return state_->synchronize();
}

}  // namespace zn
