#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/json/JSONShapes.h"
#include "platform/foundation/objects/ValueBlocks.h"
#include "zarnic/platform/foundation/NSJSONSerialization.h"

namespace zn {

/// Reads one UTF-8 JSON text. Finished values wait on a stack until the array or object around them
/// ends and knows how many they are. Throws `JSONFault`.
class JSONReader {
public:
    /// What `AllowFragments` allows is a value that is no array or object.
    JSONReader(std::string_view text, NSJSONReadingOptions options);

    Value read();

private:
    /// The value that begins with the character at the cursor.
    void readValue(char first);
    void readArray();
    void readObject();
    bool readKey(JSONKeys& keys);
    void readText();
    void readNumber();
    void readWord(std::string_view word, Value value);

    /// The text that begins here, after its quotation mark, and ends before the next; its bytes
    /// hold until the next text is read.
    std::string_view text();
    /// Up to what a text stops at.
    std::string_view plainText();
    std::string_view textWithEscapes(const char* start);
    void appendEscape();
    char32_t hexadecimalUnit();
    char32_t escapedCharacter();
    void requireUTF8(const char* start, const char* end) const;

    void enter();
    std::span<Value> valuesFrom(std::size_t base) noexcept;
    void replaceFrom(std::size_t base, Value value);
    void skipSpace() noexcept;
    void skipLongSpace() noexcept;
    /// The character at the cursor, after white space; a problem when the text is over.
    char next(const char* problem);
    bool atEnd() const noexcept { return cursor_ == end_; }
    [[noreturn]] void fail(const char* problem) const { fail(cursor_, problem); }
    [[noreturn]] void fail(const char* place, const char* problem) const;

    const char* const start_;
    const char* const end_;
    const char* cursor_;
    const NSJSONReadingOptions options_;
    const Mutability form_;
    std::size_t depth_ = 0;
    ValuePool pool_;
    std::vector<Value> values_;
    std::string unescaped_;
    JSONShapes shapes_;
};

}  // namespace zn
