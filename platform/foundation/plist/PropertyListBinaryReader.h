#pragma once

#include <string_view>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// What becomes of a real of four bytes.
enum class ShortReal : bool { Float, Double };

/// An immutable value whose containers are shared where the list shares them; absent for bytes that
/// are no binary property list, that nest deeper than 512 or that would unfold to millions of
/// objects.
Value readBinaryPropertyList(std::string_view bytes, ShortReal shortReal);

}  // namespace zn
