#pragma once

#include <memory>
#include <vector>

#include "zarnic/platform/layers/CALayer.h"

namespace zn {

/// What a shape layer draws, beside what every layer has.
struct ShapeStyle {
    CGPath path;
    CGColor fill{0, 0, 0, 1, CGColor::Space::Gray};
    CGColor stroke;
    double lineWidth = 1;
    CGLineCap cap = CGLineCap::Butt;
    CGLineJoin join = CGLineJoin::Miter;
    std::vector<double> dash;
    double dashPhase = 0;
    double strokeStart = 0;
    double strokeEnd = 1;
};

/// What a gradient layer fills its bounds with.
struct GradientStyle {
    std::vector<CGColor> colors;
    std::vector<double> locations;
    Point start{0.5, 0};
    Point end{0.5, 1};
};

/// Everything that decides how one layer looks, without the tree. The model has one, the committed
/// tree another; big parts are shared and never changed in place.
struct LayerState {
    Rect bounds;
    Point position;
    Point anchorPoint{0.5, 0.5};
    double zPosition = 0;
    AffineTransform transform;

    double opacity = 1;
    bool hidden = false;
    bool masksToBounds = false;
    bool shouldRasterize = false;

    CGColor backgroundColor;
    double cornerRadius = 0;
    double borderWidth = 0;
    CGColor borderColor{0, 0, 0, 1, CGColor::Space::Gray};

    CGColor shadowColor{0, 0, 0, 1, CGColor::Space::Gray};
    Size shadowOffset{0, -3};
    double shadowRadius = 3;
    double shadowOpacity = 0;
    std::shared_ptr<const CGPath> shadowPath;

    Ref<CGImage> contents;
    double contentsScale = 1;
    CAContentsGravity contentsGravity = CAContentsGravity::Resize;
    Rect contentsCenter{0, 0, 1, 1};
    /// The size of the bounds that the contents were drawn for; absent for contents that were set.
    std::optional<Size> drawnSize;

    std::shared_ptr<const ShapeStyle> shape;
    std::shared_ptr<const GradientStyle> gradient;

    /// Own coordinates to the superlayer's.
    AffineTransform toSuperlayer() const;
    /// Whether a shadow would show.
    bool castsShadow() const;
    bool hasBackground() const { return backgroundColor.alpha > 0; }
    bool hasBorder() const { return borderWidth > 0 && borderColor.alpha > 0; }
    bool visible() const { return !hidden && opacity > 0; }
};

/// Bit set: how one state of a layer differs from another.
namespace LayerChange {
inline constexpr unsigned None = 0;
/// What the layer itself draws, and how it cuts what is below it.
inline constexpr unsigned Content = 1;
/// Where the layer and all below it are.
inline constexpr unsigned Placement = 2;
/// How the layer with all below it goes onto what is behind.
inline constexpr unsigned Composition = 4;
}  // namespace LayerChange

unsigned compare(const LayerState& before, const LayerState& after);

}  // namespace zn
