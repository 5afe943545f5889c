#pragma once

#include <optional>
#include <vector>

#include "platform/drawing/canvas/Picture.h"
#include "platform/layers/painting/LayerPlacement.h"
#include "platform/layers/tree/CommittedLayer.h"

namespace zn {

/// What scrolling does to pixels: those of a part of the screen go along, and only what appears at
/// the edges is painted.
struct ContentShift {
    PixelRect box;
    PixelOffset offset;

    /// Where the pixels of a part of the box go, without those that leave it.
    PixelRect moved(const PixelRect& rect) const;
    /// The parts of the box that no pixel of it comes to.
    std::vector<PixelRect> exposed() const;
    void apply(Picture& screen) const;
};

/// A layer on the way down to another one, with its place.
struct PlacedLayer {
    const CommittedLayer* layer;
    const LayerPlacement* placement;
};
using LayerPath = std::vector<PlacedLayer>;

/// The shift that shows the last layer of the path, which cuts what is below it, with a new origin
/// of its bounds: when that is all that changed from `before`, it is a way in whole pixels, and
/// everything that is seen through the layer goes along or is of one colour.
std::optional<ContentShift> contentShift(const LayerPath& path, const LayerState& before,
                                         const PixelRect& clip);

/// What lies over the last layer of the path, inside the rectangle.
std::vector<PixelRect> overlaysOf(const LayerPath& path, const PixelRect& rect);

}  // namespace zn
