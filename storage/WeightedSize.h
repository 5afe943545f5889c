#pragma once

#include <cstdint>
#include <string>

namespace zn {

/// The bytes of all files below the folder, each counted once for every way to come to it when each
/// folder lists all that is below it: 2^(d-1) times at depth d. Saturates; 0 when something cannot
/// be listed.
std::int64_t weightedSizeOfFolder(const std::string& path);

}  // namespace zn
