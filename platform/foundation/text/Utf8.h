#pragma once

#include <cstddef>
#include <string_view>

namespace zn {

/// What stands for bytes that are not UTF-8.
inline constexpr char32_t invalidCharacter = 0xFFFFFFFF;

/// The character at the position, which moves past it; `position` must be inside the text.
char32_t nextCharacter(std::string_view text, std::size_t& position) noexcept;

/// The length of the longest beginning that is UTF-8.
std::size_t validLength(std::string_view text) noexcept;

std::string_view withoutLeadingWhitespace(std::string_view text) noexcept;

}  // namespace zn
