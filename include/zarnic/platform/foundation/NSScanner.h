#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/NSCharacterSet.h"

namespace zn {

/// Reads a text piece by piece. Before every scan the characters to be skipped are passed over; a
/// scan that fails gives nothing and leaves the location where it was before the skipping. The text
/// is not copied: it must outlive the scanner, as must every piece that is kept.
class ZN_EXPORT NSScanner {
public:
    explicit NSScanner(std::string_view text) noexcept : text_(text) {}
    /// A temporary text would be gone before the first scan.
    explicit NSScanner(std::string&&) = delete;
    explicit NSScanner(const char* text) noexcept : text_(text) {}

    std::string_view string() const noexcept { return text_; }
    /// Bytes from the beginning of the text.
    std::size_t scanLocation() const noexcept { return location_; }
    /// Throws `NSRangeException` beyond the end of the text.
    void setScanLocation(std::size_t location);
    /// Default white space and newlines.
    const NSCharacterSet& charactersToBeSkipped() const;
    void setCharactersToBeSkipped(NSCharacterSet characters) { skipped_ = std::move(characters); }
    /// Also when only characters to be skipped are left.
    bool isAtEnd() const;

    /// The longest piece without, or of, characters of the set; never an empty one.
    std::optional<std::string_view> scanUpToCharactersFromSet(const NSCharacterSet& characters);
    std::optional<std::string_view> scanCharactersFromSet(const NSCharacterSet& characters);
    /// ASCII hexadecimal digits of either case, as many as there are, after an optional `0x`. Out
    /// of range gives the largest number.
    std::optional<std::uint32_t> scanHexInt();

private:
    enum class Wanted : bool { Outside, Inside };
    std::size_t end(std::size_t from, const NSCharacterSet& set, Wanted wanted) const;
    std::optional<std::string_view> scan(const NSCharacterSet& set, Wanted wanted);

    std::string_view text_;
    std::size_t location_ = 0;
    std::optional<NSCharacterSet> skipped_;
};

}  // namespace zn
