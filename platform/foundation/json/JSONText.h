#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace zn {

/// What the bytes of a JSON text mean.
struct JSONEncoding {
    std::size_t markLength = 0;
    /// Bytes of a unit: 1 is UTF-8, 2 UTF-16, 4 UTF-32.
    std::size_t unitLength = 1;
    bool bigEndian = false;

    /// By the byte-order mark, else by the zeros of the first characters, one of which at least is
    /// ASCII in every JSON text.
    static JSONEncoding of(std::string_view bytes) noexcept;
};

/// Ends the reading of a text that is no JSON.
struct JSONFault final : std::exception {
    JSONFault(std::size_t place, const char* problem) : offset(place), text(problem) {}
    const char* what() const noexcept override { return text; }

    /// Bytes before the fault, in UTF-8.
    std::size_t offset;
    const char* text;
};

/// Appends UTF-16 or UTF-32 bytes, without their mark, as UTF-8. Throws `JSONFault`, with the
/// length of the text so far as its offset, for what is neither.
void appendUnits(std::string& text, std::string_view bytes, const JSONEncoding& encoding);

/// Bytes that the UTF-8 text takes in the encoding.
std::size_t encodedLength(std::string_view utf8, const JSONEncoding& encoding) noexcept;

}  // namespace zn
