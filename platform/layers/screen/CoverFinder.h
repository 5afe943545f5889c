#pragma once

#include <vector>

#include "platform/layers/painting/LayerPlacement.h"

namespace zn {

/// The topmost layer that hides everything behind it inside the rectangle, as the path of layers
/// down to it; empty when there is none.
std::vector<const PaintNode*> findCover(const PaintNode& root, const AffineTransform& toPixels,
                                        const PaintSpace& space, const PixelRect& rect);

}  // namespace zn
