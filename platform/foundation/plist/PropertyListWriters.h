#pragma once

#include <optional>
#include <string>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// The bytes of a property list; nothing for a value that is none (see `PropertyListGraph`).
std::optional<std::string> binaryPropertyList(const Value& value);
/// Nothing also for what this form cannot say: texts with a zero in them, dates outside the years
/// 0 to 9999 and lists that would unfold to more than 4 GiB.
std::optional<std::string> xmlPropertyList(const Value& value);

}  // namespace zn
