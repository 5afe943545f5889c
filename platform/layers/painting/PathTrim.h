#pragma once

#include "zarnic/platform/drawing/UIBezierPath.h"

namespace zn {

/// The part of a path between two fractions of its length, subpaths one after the other. 0 to 1
/// gives the path itself, a start that is not before the end nothing.
CGPath trimmedPath(const CGPath& path, double start, double end);

}  // namespace zn
