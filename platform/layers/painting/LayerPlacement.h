#pragma once

#include "platform/layers/look/PaintNode.h"

namespace zn {

/// Where painting happens.
struct PaintSpace {
    /// Pixels a point of a layer that nothing scales.
    double scale = 1;
    /// The layers' known reaches are of this space.
    bool reachesKnown = false;
    /// Something moves: shadows may follow a layer without being blurred anew for every fraction of
    /// a pixel.
    bool moving = false;
};

/// Where a layer lies among the pixels. Upright layers at their natural scale have all edges on
/// whole pixels: neighbours meet without a seam, and contents are copied rather than resampled.
struct LayerPlacement {
    LayerPlacement(const LayerState& state, const AffineTransform& parentToPixels, double scale);

    /// The same layer shifted in its own coordinates.
    LayerPlacement movedBy(const LayerState& state, Point offset, double scale) const;

    /// Own coordinates to pixels, as computed; what the sublayers are placed by.
    AffineTransform exact;
    bool aligned;
    /// Own coordinates to pixels, moved to whole pixels when aligned.
    AffineTransform toPixels;
    /// The bounds: in pixels when aligned, else in own coordinates.
    Rect box;
    /// The space that the box is in, to pixels.
    AffineTransform boxToPixels;
    /// Units of that space a point.
    double unit;

    PixelRect pixelBox() const { return enclosing(boxToPixels.apply(box)); }
    /// How much one point is enlarged on the whole.
    double pixelsPerPoint() const;
    /// A distance in own coordinates, in pixels; whole ones when aligned.
    Point distance(Size offset) const;

private:
    struct Exact {
        AffineTransform toPixels;
    };
    LayerPlacement(const Rect& bounds, const Exact& transform, double scale);
};

/// What the layer itself can touch, without sublayers and shadow.
PixelRect ownReach(const LayerState& state, const LayerPlacement& placement);
/// With the sublayers below it.
LayerReach reachOf(const PaintNode& node, const LayerPlacement& placement, const PaintSpace& space);
/// The silhouette of everything is the rounded box of the layer itself.
bool isPlainBox(const PaintNode& node, const LayerPlacement& placement, const PaintSpace& space);
/// The part of the box that its rounded corners do not touch holds the rectangle.
bool clearOfCorners(const LayerPlacement& placement, double cornerRadius, const PixelRect& rect);

}  // namespace zn
