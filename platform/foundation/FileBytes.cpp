#include "platform/foundation/FileBytes.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zn {

std::optional<std::string> fileBytes(std::string_view path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return std::nullopt;
    std::ifstream file(std::string(path), std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return file.bad() ? std::nullopt : std::optional(std::move(bytes));
}

}  // namespace zn
