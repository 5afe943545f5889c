#pragma once

#include <string>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// The count and one line for each item; what any array in a log line looks like, whatever the
/// locale:
///
///     2 (
///     	1,␠
///     	2,␠
///     )
///
/// where ␠ is a space at the end of the line.
ZN_EXPORT std::string descriptionWithLocale(const Array& array, const Value& locale = {});

}  // namespace zn
