#pragma once

#include <vector>

#include "zarnic/platform/drawing/CGImage.h"

namespace zn {

/// For each device pixel of [first, end), the row or column of an image under its centre: the image
/// has `count` of them, begins at `origin` and takes `scale` pixels for each.
std::vector<std::size_t> nearestSamples(int first, int end, double origin, double scale,
                                        std::size_t count);

/// The image stretched over this many pixels, without smoothing: what drawing it with no
/// interpolation over a new context of the size gives. Null for sides that no context has.
Ref<CGImage> stretchedSharply(const CGImage& image, double width, double height);

}  // namespace zn
