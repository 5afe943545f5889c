#include "platform/foundation/json/JSONReader.h"

#include "platform/foundation/base/EightBytes.h"
#include "platform/foundation/json/JSONText.h"

namespace zn {
namespace {

/// How a run of bytes of a text ended.
struct Run {
    const char* end;
    /// The first byte beyond ASCII, or somewhat before it; null when there is none.
    const char* beyond;
};

/// To the first quotation mark, backslash or control character, or to the end.
Run scanned(const char* cursor, const char* end) noexcept {
    const char* beyond = nullptr;
    for (; end - cursor >= 8; cursor += 8) {
        const auto bytes = EightBytes::at(cursor);
        const std::uint64_t stops = bytes.textStops();
        const std::uint64_t before = stops ^ (stops - 1);
        if ((bytes.beyondASCII() & before) != 0 && beyond == nullptr)
            beyond = cursor;
        if (stops != 0)
            return {cursor + EightBytes::first(stops), beyond};
    }
    for (; cursor != end; ++cursor) {
        const auto byte = static_cast<unsigned char>(*cursor);
        if (byte == '"' || byte == '\\' || byte < ' ')
            break;
        if (byte >= 0x80 && beyond == nullptr)
            beyond = cursor;
    }
    return {cursor, beyond};
}

bool isSpace(char character) noexcept {
    return character == ' ' || character == '\n' || character == '\r' || character == '\t';
}

}  // namespace

inline void JSONReader::skipSpace() noexcept {
    // Above the space there is no white space.
    if (!atEnd() && static_cast<unsigned char>(*cursor_) <= ' ')
        skipLongSpace();
}

inline char JSONReader::next(const char* problem) {
    skipSpace();
    if (atEnd())
        fail(problem);
    return *cursor_;
}

JSONReader::JSONReader(std::string_view text, NSJSONReadingOptions options)
    : start_(text.data()),
      end_(text.data() + text.size()),
      cursor_(start_),
      options_(options),
      form_(contains(options, NSJSONReadingOptions::MutableContainers) ? Mutability::Mutable
                                                                       : Mutability::Immutable) {}

Value JSONReader::read() {
    const char first = next("No value");
    if (first != '[' && first != '{' && !contains(options_, NSJSONReadingOptions::AllowFragments))
        fail("Text begins with no array or object, and fragments are not allowed");
    readValue(first);
    skipSpace();
    if (!atEnd())
        fail("Garbage after the value");
    return std::move(values_.back());
}

void JSONReader::readValue(char first) {
    switch (first) {
        case '{':
            return readObject();
        case '[':
            return readArray();
        case '"':
            return readText();
        case 't':
            return readWord("true", true);
        case 'f':
            return readWord("false", false);
        case 'n':
            return readWord("null", Value::null());
        default:
            return readNumber();
    }
}

void JSONReader::readArray() {
    enter();
    const std::size_t base = values_.size();
    // A comma before the closing bracket is accepted on purpose, as on the platform.
    for (char first = 0; (first = next("Unfinished array")) != ']';) {
        readValue(first);
        const char after = next("Unfinished array");
        if (after == ']')
            break;
        if (after != ',')
            fail("Expected a comma or the end of the array");
        ++cursor_;
    }
    ++cursor_, --depth_;
    replaceFrom(base, ValueBlocks::array(valuesFrom(base), form_, pool_));
}

void JSONReader::readObject() {
    enter();
    const std::size_t base = values_.size();
    JSONKeys keys(shapes_);
    while (next("Unfinished object") != '}') {
        const bool isNew = readKey(keys);
        if (next("Unfinished object") != ':')
            fail("Expected a colon after the key");
        ++cursor_;
        readValue(next("Unexpected end of the text"));
        // Of members with the same key the first counts, as on the platform.
        if (!isNew)
            values_.pop_back();
        const char after = next("Unfinished object");
        if (after == '}')
            break;
        if (after != ',')
            fail("Expected a comma or the end of the object");
        ++cursor_;
    }
    ++cursor_, --depth_;
    replaceFrom(base, ValueBlocks::dictionary(keys.table(), valuesFrom(base), form_, pool_));
}

bool JSONReader::readKey(JSONKeys& keys) {
    if (*cursor_ != '"')
        fail("Expected a text as key");
    ++cursor_;
    if (const std::size_t length = keys.addExpected({cursor_, end_}); length != 0) {
        cursor_ += length;
        return true;
    }
    return keys.add(text());
}

inline std::string_view JSONReader::text() {
    const char* start = cursor_;
    const std::string_view plain = plainText();
    if (!atEnd() && *cursor_ == '"') {
        ++cursor_;
        return plain;
    }
    return textWithEscapes(start);
}

std::string_view JSONReader::plainText() {
    const char* start = cursor_;
    const Run run = scanned(start, end_);
    if (run.beyond != nullptr)
        requireUTF8(run.beyond, run.end);
    cursor_ = run.end;
    return {start, run.end};
}

void JSONReader::readText() {
    ++cursor_;
    values_.push_back(ValueBlocks::text(text(), pool_));
}

void JSONReader::readWord(std::string_view word, Value value) {
    if (!std::string_view(cursor_, end_).starts_with(word))
        fail("Unknown word");
    cursor_ += word.size();
    values_.push_back(std::move(value));
}

void JSONReader::enter() {
    if (depth_ == NSJSONSerialization::maximumDepth)
        fail("Too many arrays and objects within each other");
    ++depth_, ++cursor_;
}

std::span<Value> JSONReader::valuesFrom(std::size_t base) noexcept {
    return std::span(values_).subspan(base);
}

void JSONReader::replaceFrom(std::size_t base, Value value) {
    values_.resize(base);
    values_.push_back(std::move(value));
}

void JSONReader::skipLongSpace() noexcept {
    while (!atEnd() && isSpace(*cursor_))
        ++cursor_;
}

void JSONReader::fail(const char* place, const char* problem) const {
    throw JSONFault(static_cast<std::size_t>(place - start_), problem);
}

}  // namespace zn
