#pragma once

#include <vector>

#include "platform/drawing/canvas/Canvas.h"
#include "platform/layers/painting/LayerPlacement.h"

namespace zn {

/// A part of the contents and where it is stretched to, in the placement's box space.
struct ContentsPart {
    PixelPart source;
    Rect destination;
};

/// Where the contents go, by gravity.
Rect contentsBox(const LayerState& state, const LayerPlacement& placement);
/// One part, or nine when only the centre is to be stretched.
std::vector<ContentsPart> contentsParts(const LayerState& state, const LayerPlacement& placement);

}  // namespace zn
