#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zn {

/// A UUID (version 4, RFC 4122; upper case) made from the keyed hash of the application's
/// identifier under the machine id, so that it tells nothing about either. Absent unless the
/// machine id is one: 32 hexadecimal digits, not all zero.
std::optional<std::string> vendorIdentifier(std::string_view machineId,
                                            std::string_view applicationIdentifier);

}  // namespace zn
