#include "platform/foundation/json/JSONWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <new>

#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSJSONSerialization.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

/// The longest a number, an escape or a word gets, and some.
constexpr std::size_t smallRoom = 32;

[[noreturn]] void refuse(const char* reason) {
    throw NSException(NSInvalidArgumentException, reason);
}

/// As `%g` chooses between its two forms, but with as many digits as it takes to read the same
/// number again.
std::chars_format formOf(double magnitude) {
    return magnitude != 0 && (magnitude < 1e-4 || magnitude >= 1e17) ? std::chars_format::scientific
                                                                     : std::chars_format::fixed;
}

bool isWritableItem(const Value& value, std::size_t depth) {
    const bool shallow = depth < NSJSONSerialization::maximumDepth;
    const auto isWritable = [depth](const Value& item) { return isWritableItem(item, depth + 1); };
    if (value.isArray())
        return shallow && std::ranges::all_of(value.array(), isWritable);
    if (value.isDictionary()) {
        const auto dictionary = value.dictionary();
        return shallow && std::all_of(dictionary.begin(), dictionary.end(),
                                      [&](const auto& entry) { return isWritable(entry.second); });
    }
    if (value.isNumber())
        return std::isfinite(value.doubleValue());
    return value.isString() || value.isNull();
}

}  // namespace

bool isWritableJSON(const Value& value) {
    return (value.isArray() || value.isDictionary()) && isWritableItem(value, 0);
}

bool JSONWriter::write(const Value& value) {
    if (!value.isArray() && !value.isDictionary())
        refuse("JSON is written of an array or a dictionary only");
    writeValue(value);
    return allUTF8_;
}

Ref<NSError> JSONWriter::error() const {
    return NSError::errorWithDomain(
        NSCocoaErrorDomain, NSPropertyListWriteInvalidError,
        {{NSDebugDescriptionErrorKey, "A text is not UTF-8 and cannot be written as JSON."}});
}

void JSONWriter::writeValue(const Value& value) {
    switch (value.kind()) {
        case Value::Kind::Null:
            return put("null");
        case Value::Kind::Boolean:
            return put(value.boolValue() ? "true" : "false");
        case Value::Kind::Integer:
        case Value::Kind::Character:
            return writeInteger(value.longLongValue());
        case Value::Kind::Unsigned:
            return writeInteger(value.unsignedLongLongValue());
        case Value::Kind::Float:
            return writeReal(value.floatValue());
        case Value::Kind::Double:
            return writeDouble(value.doubleValue());
        case Value::Kind::String:
            return writeText(value.string());
        case Value::Kind::Array:
            return writeArray(value.array());
        case Value::Kind::Dictionary:
            return writeDictionary(value.dictionary());
        default:
            refuse("JSON has no place for data and objects");
    }
}

void JSONWriter::writeArray(const Array& array) {
    open('[');
    bool first = true;
    for (const auto& item : array) {
        startItem(std::exchange(first, false));
        writeValue(item);
    }
    close(']', first);
}

void JSONWriter::writeDictionary(const Dictionary& dictionary) {
    open('{');
    bool first = true;
    for (const auto& [key, value] : dictionary) {
        startItem(std::exchange(first, false));
        writeText(key);
        put(layout_ == JSONLayout::Pretty ? " : " : ":");
        writeValue(value);
    }
    close('}', first);
}

template <class Integer>
void JSONWriter::writeInteger(Integer number) {
    char* place = room(smallRoom);
    size_ += static_cast<std::size_t>(std::to_chars(place, place + smallRoom, number).ptr - place);
}

template <class Real>
void JSONWriter::writeReal(Real number) {
    if (!std::isfinite(number))
        refuse("JSON has no infinite numbers, and none that are not a number");
    const auto form = formOf(std::abs(static_cast<double>(number)));
    char* place = room(smallRoom);
    size_ +=
        static_cast<std::size_t>(std::to_chars(place, place + smallRoom, number, form).ptr - place);
}

/// A number of at most 15 digits has no shorter text than those digits, and is read again as the
/// same double; up to six of them are looked for after the point.
void JSONWriter::writeDouble(double number) {
    const double magnitude = std::abs(number);
    const double millionths = std::nearbyint(magnitude * 1e6);
    if (magnitude < 1e-4 || magnitude >= 1e9 || millionths / 1e6 != magnitude)
        return writeReal(number);
    const auto digits = static_cast<std::uint64_t>(millionths);
    if (number < 0)
        put('-');
    writeInteger(digits / 1'000'000);
    auto fraction = static_cast<std::uint32_t>(digits % 1'000'000);
    if (fraction == 0)
        return;
    char* place = room(smallRoom);
    place[0] = '.';
    std::size_t length = 1;
    for (std::uint32_t unit = 100'000; fraction != 0; unit /= 10) {
        place[length++] = static_cast<char>('0' + fraction / unit);
        fraction %= unit;
    }
    size_ += length;
}

void JSONWriter::open(char bracket) {
    if (++depth_ > NSJSONSerialization::maximumDepth)
        refuse("too many arrays and dictionaries within each other for JSON");
    put(bracket);
}

void JSONWriter::close(char bracket, bool empty) {
    --depth_;
    if (empty && layout_ == JSONLayout::Pretty)
        put('\n');
    breakLine();
    put(bracket);
}

void JSONWriter::startItem(bool first) {
    if (!first)
        put(',');
    breakLine();
}

void JSONWriter::breakLine() {
    if (layout_ != JSONLayout::Pretty)
        return;
    const std::size_t length = 1 + 2 * depth_;
    char* place = room(length);
    place[0] = '\n';
    std::fill_n(place + 1, length - 1, ' ');
    size_ += length;
}

void JSONWriter::put(std::string_view characters) {
    std::ranges::copy(characters, room(characters.size()));
    size_ += characters.size();
}

void JSONWriter::grow(std::size_t count) {
    const std::size_t wanted = std::max<std::size_t>({256, capacity_ * 2, size_ + count});
    auto* larger = static_cast<char*>(std::realloc(bytes_.get(), wanted));
    if (larger == nullptr)
        throw std::bad_alloc();
    static_cast<void>(bytes_.release());
    bytes_.reset(larger);
    capacity_ = wanted;
}

}  // namespace zn
