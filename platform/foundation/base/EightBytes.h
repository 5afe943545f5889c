#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zn {

/// Eight bytes at once. Of each question the answer is the high bit of each byte it holds for; the
/// lowest answer is exact, those above may be wrong.
struct EightBytes {
    static constexpr std::uint64_t each = 0x0101010101010101;
    static constexpr std::uint64_t high = 0x8080808080808080;

    /// The first byte becomes the lowest whatever the machine's order.
    static EightBytes at(const char* bytes) noexcept {
        std::uint64_t word;
        std::memcpy(&word, bytes, sizeof word);
        if constexpr (std::endian::native == std::endian::big)
            word = __builtin_bswap64(word);
        return {word};
    }

    /// Fewer than eight, and letters after them.
    static EightBytes upTo(const char* bytes, std::size_t count) noexcept {
        char padded[8] = {'a', 'a', 'a', 'a', 'a', 'a', 'a', 'a'};
        for (std::size_t i = 0; i < count; ++i)
            padded[i] = bytes[i];
        return at(padded);
    }
    void store(char* bytes) const noexcept {
        std::uint64_t ordered = word;
        if constexpr (std::endian::native == std::endian::big)
            ordered = __builtin_bswap64(ordered);
        std::memcpy(bytes, &ordered, sizeof ordered);
    }

    std::uint64_t equal(char character) const noexcept {
        const std::uint64_t differences = word ^ (each * static_cast<unsigned char>(character));
        return (differences - each) & ~differences & high;
    }
    /// Quotation marks, backslashes and control characters: what a JSON text stops at. To flip the
    /// second bit brings the quotation mark next to the control characters.
    std::uint64_t textStops() const noexcept {
        const std::uint64_t quotesAndControls = (word ^ each * 2) - each * (' ' + 1);
        const std::uint64_t backslashes = (word ^ each * '\\') - each;
        return (quotesAndControls | backslashes) & ~word & high;
    }
    std::uint64_t beyondASCII() const noexcept { return word & high; }
    bool isASCII() const noexcept { return beyondASCII() == 0; }
    /// The index of the first byte that a question held for.
    static int first(std::uint64_t answers) noexcept { return std::countr_zero(answers) / 8; }

    std::uint64_t word;
};

}  // namespace zn
