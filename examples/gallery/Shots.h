#pragma once

#include "Options.h"

namespace gallery {

/// Draws the chosen pages to `out/gallery/NAME.png`, and a sheet of all of them; prints the paths.
/// Returns the program's exit status.
int drawShots(const Options& options);

}  // namespace gallery
