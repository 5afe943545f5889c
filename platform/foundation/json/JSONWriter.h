#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "zarnic/platform/foundation/NSError.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

enum class JSONLayout : std::uint8_t {
    Compact,
    /// One item or member on a line, two spaces to a level.
    Pretty,
    /// `Pretty` after every space and line break is taken out, those within texts included.
    Stripped,
};

/// An array or dictionary of what JSON knows, no deeper than it may be.
bool isWritableJSON(const Value& value);

/// Writes one JSON text.
class JSONWriter {
public:
    explicit JSONWriter(JSONLayout layout) : layout_(layout) {}

    /// False when a text is not UTF-8. Throws `NSInvalidArgumentException` for what
    /// `isWritableJSON` refuses, whatever its texts.
    bool write(const Value& value);
    std::string_view text() const noexcept { return {bytes_.get(), size_}; }
    Ref<NSError> error() const;

private:
    void writeValue(const Value& value);
    void writeArray(const Array& array);
    void writeDictionary(const Dictionary& dictionary);
    void writeText(std::string_view text);
    void writeSpecial(char character);
    std::size_t copyPlain(std::string_view text, std::uint64_t& beyondASCII);
    template <class Integer>
    void writeInteger(Integer number);
    template <class Real>
    void writeReal(Real number);
    void writeDouble(double number);

    void open(char bracket);
    void close(char bracket, bool empty);
    void startItem(bool first);
    void breakLine();
    void put(char character) {
        *room(1) = character;
        ++size_;
    }
    void put(std::string_view characters);
    /// Room for so many bytes more.
    char* room(std::size_t count) {
        if (capacity_ - size_ < count)
            grow(count);
        return bytes_.get() + size_;
    }
    void grow(std::size_t count);

    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    const JSONLayout layout_;
    std::size_t depth_ = 0;
    bool allUTF8_ = true;
    /// Reallocated, so that a large text moves by its pages instead of its bytes.
    std::unique_ptr<char, Free> bytes_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace zn
