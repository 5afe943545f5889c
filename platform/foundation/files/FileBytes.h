#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zn {

/// The whole of a regular file (or a link to one); nothing when it cannot be read.
std::optional<std::string> fileBytes(std::string_view path);

}  // namespace zn
