#pragma once

#include "zarnic/platform/layers/CALayer.h"

namespace zn {

/// Lays out what needs it, parents first, until nothing does; bounded.
void layoutTree(CALayer& top);
/// Draws the contents that need it, except where nobody can see them.
void displayTree(CALayer& top);

}  // namespace zn
