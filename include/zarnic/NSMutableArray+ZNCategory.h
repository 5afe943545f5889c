#pragma once

#include <cstddef>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// Moves an item; the others close up. Does nothing when the indexes are equal or one of them is
/// not below the count. Throws as `Array` does when the array is immutable.
ZN_EXPORT void zn_moveObjectFromIndex(Array array, std::size_t from, std::size_t to);

}  // namespace zn
