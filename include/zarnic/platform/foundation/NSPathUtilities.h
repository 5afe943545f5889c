#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

/// The kinds of folders that an application has.
enum class NSSearchPathDirectory : std::int64_t {
    Library = 5,
    Document = 9,
    Caches = 13,
    ApplicationSupport = 14,
};

inline constexpr std::uint64_t NSUserDomainMask = 1;
inline constexpr std::uint64_t NSAllDomainsMask = 0xFFFF;

/// The application's folder of a kind (see `NSSearchPathDirectory`), made on first use; nothing for
/// another kind or a mask without the user's domain. With `ZARNIC_HOME` set, everything lies under
/// it; else under the XDG folders of the application's identifier.
ZN_EXPORT std::vector<std::string> NSSearchPathForDirectoriesInDomains(
    std::int64_t directory, std::uint64_t domainMask = NSUserDomainMask);

}  // namespace zn
