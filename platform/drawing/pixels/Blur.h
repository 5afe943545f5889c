#pragma once

#include <cairo.h>

namespace zn {

/// How far, in pixels, a Gaussian of this standard deviation spreads.
double blurReach(double sigma);

/// Blurs an alpha-only (A8) image surface in place. Pixels beyond its border count as 0.
void blurAlpha(cairo_surface_t* surface, double sigma);

}  // namespace zn
