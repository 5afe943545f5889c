#include "zarnic/platform/foundation/Value.h"

#include "platform/foundation/objects/ValueBlocks.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {

/// A text or data too long for the value itself; the bytes follow the head.
struct Value::Bytes final : detail::Counted {
    explicit Bytes(std::string_view bytes) : size(bytes.size()) {
        std::memcpy(static_cast<void*>(this + 1), bytes.data(), bytes.size());
    }
    static Bytes* create(std::string_view bytes, ValuePool* pool = nullptr) {
        return ValuePool::create<Bytes>(pool, bytes.size(), bytes);
    }
    std::string_view view() const { return {reinterpret_cast<const char*>(this + 1), size}; }

    std::size_t size;
};

struct Value::Object final : detail::Counted {
    explicit Object(Ref<const NSObject> held) : object(std::move(held)) {}

    Ref<const NSObject> object;
};

Value::Value(bool boolean) noexcept {
    setPayload<std::int64_t>(Kind::Boolean, boolean);
}

Value::Value(char character) noexcept {
    setPayload<std::int64_t>(Kind::Character, static_cast<signed char>(character));
}

Value::Value(IntegerTag, std::uint64_t bits, bool isUnsigned) noexcept {
    setPayload(isUnsigned ? Kind::Unsigned : Kind::Integer, bits);
}

Value::Value(float number) noexcept {
    setPayload<double>(Kind::Float, static_cast<double>(number));
}

Value::Value(double number) noexcept {
    setPayload(Kind::Double, number);
}

Value::Value(const char* text) {
    if (text != nullptr)
        setBytes(Kind::String, text);
}

Value::Value(std::string_view text) {
    setBytes(Kind::String, text);
}

Value::Value(const std::string& text) {
    setBytes(Kind::String, text);
}

Value::Value(const Array& array) noexcept {
    array.storage_->retain();
    setBlock(Kind::Array, array.storage_);
}

Value::Value(const Dictionary& dictionary) noexcept {
    dictionary.storage_->retain();
    setBlock(Kind::Dictionary, dictionary.storage_);
}

Value::Value(ObjectTag, Ref<const NSObject> object) {
    if (object)
        setBlock(Kind::Object, new Object(std::move(object)));
}

Value Value::null() noexcept {
    Value result;
    result.kind_ = Kind::Null;
    return result;
}

Value Value::data(std::span<const std::byte> bytes) {
    Value result;
    result.setBytes(Kind::Data, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    return result;
}

void Value::setBytes(Kind kind, std::string_view bytes) {
    if (bytes.size() > inlineCapacity) {
        setBlock(kind, Bytes::create(bytes));
        return;
    }
    if (!bytes.empty())
        std::memcpy(payload_, bytes.data(), bytes.size());
    length_ = static_cast<std::uint8_t>(bytes.size());
    kind_ = kind;
}

std::string_view Value::rawBytes() const noexcept {
    if (length_ == sharedLength)
        return static_cast<Bytes*>(payload<detail::Counted*>())->view();
    return {reinterpret_cast<const char*>(payload_), length_};
}

void Value::release() noexcept {
    auto* block = payload<detail::Counted*>();
    if (isArray() || isDictionary())
        releaseContainer(static_cast<Container*>(block));
    else if (!block->release())
        return;
    else if (isObject())
        delete static_cast<Object*>(block);
    else
        ValuePool::free(block);
}

Value ValueBlocks::text(std::string_view text, ValuePool& pool) {
    if (text.size() <= Value::inlineCapacity)
        return text;
    Value result;
    result.setBlock(Value::Kind::String, Value::Bytes::create(text, &pool));
    return result;
}

std::string_view Value::string() const noexcept {
    return isString() ? rawBytes() : std::string_view{};
}

std::span<const std::byte> Value::bytes() const noexcept {
    if (!isData())
        return {};
    return std::as_bytes(std::span(rawBytes()));
}

Array Value::array() const {
    if (!isArray())
        throw NSException(NSInvalidArgumentException, "the value is not an array");
    retain();
    return Array(static_cast<Array::Storage*>(payload<detail::Counted*>()));
}

Dictionary Value::dictionary() const {
    if (!isDictionary())
        throw NSException(NSInvalidArgumentException, "the value is not a dictionary");
    retain();
    return Dictionary(static_cast<Dictionary::Storage*>(payload<detail::Counted*>()));
}

Ref<NSObject> Value::object() const {
    if (!isObject())
        return nullptr;
    const auto* block = static_cast<Object*>(payload<detail::Counted*>());
    return std::const_pointer_cast<NSObject>(block->object);
}

Value Value::copy() const {
    if (isArray())
        return array().copy();
    return isDictionary() ? Value(dictionary().copy()) : *this;
}

Value Value::mutableCopy() const {
    if (isArray())
        return array().mutableCopy();
    return isDictionary() ? Value(dictionary().mutableCopy()) : *this;
}

}  // namespace zn
