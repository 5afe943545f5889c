#pragma once

#include <vector>

#include "platform/drawing/canvas/Canvas.h"
#include "platform/layers/painting/LayerPlacement.h"

namespace zn {

/// Paints a tree of layers onto a canvas, no more than the canvas's clip asks for.
class LayerPainter {
public:
    /// `limits` is all of the picture that there is, in pixels: shadows are made for it whole, so
    /// that they can be kept.
    LayerPainter(Canvas& canvas, const PaintSpace& space, const PixelRect& limits);

    void paint(const PaintNode& node, const AffineTransform& parentToPixels) {
        paintLayer(node, parentToPixels, 1);
    }
    /// Begins with the last layer of the path, which runs down from the root and covers the whole
    /// clip: nothing behind it is painted.
    void paintAbove(const std::vector<const PaintNode*>& path,
                    const AffineTransform& parentToPixels);
    /// The layer's own picture over its bounds, as if nothing were around it: neither its opacity
    /// nor shadow nor mask.
    void paintInside(const PaintNode& node, const LayerPlacement& placement);

    std::size_t painted() const { return painted_; }
    std::size_t covered() const { return covered_; }

private:
    /// Whether the body's own edges are rounded, or something around it rounds them.
    enum class Corners { Round, Cut };
    class ClipScope;

    void paintLayer(const PaintNode& node, const AffineTransform& parentToPixels, double alpha);
    void paintMasked(const PaintNode& node, const LayerPlacement& placement, double alpha);
    void paintGrouped(const PaintNode& node, const LayerPlacement& placement, double alpha);
    void paintRasterized(const PaintNode& node, const LayerPlacement& placement, double alpha);
    void paintComposed(const PaintNode& node, const LayerPlacement& placement, double alpha);
    void paintClipped(const PaintNode& node, const LayerPlacement& placement, double alpha);
    void paintRounded(const PaintNode& node, const LayerPlacement& placement, double alpha);
    void paintBody(const PaintNode& node, const LayerPlacement& placement, double alpha,
                   Corners corners);
    void paintPath(const std::vector<const PaintNode*>& path, std::size_t depth,
                   const AffineTransform& parentToPixels);
    void paintTransition(const PaintNode& node, const LayerPlacement& placement, double alpha);
    void paintFade(const PaintNode& node, const LayerPlacement& placement, double alpha);
    void paintSlide(const PaintNode& node, const LayerPlacement& placement);
    void paintMoved(const PaintNode& node, const LayerPlacement& placement, Point offset);
    void paintBefore(const TransitionFrame& frame, const LayerPlacement& placement, Point offset,
                     double alpha);

    void paintBackground(const LayerState& state, const LayerPlacement& placement, double alpha,
                         Corners corners);
    void paintGradient(const LayerState& state, const LayerPlacement& placement, double alpha,
                       Corners corners);
    void paintContents(const LayerState& state, const LayerPlacement& placement, double alpha);
    void paintContentsPart(const Ref<CGImage>& image, const PixelPart& part,
                           const Rect& destination, const LayerPlacement& placement, double alpha);
    void paintShape(const LayerState& state, const LayerPlacement& placement, double alpha);
    void paintBorder(const LayerState& state, const LayerPlacement& placement, double alpha,
                     Corners corners);

    void paintShadow(const PaintNode& node, const LayerPlacement& placement, double alpha);
    void paintBoxShadow(const Rect& box, double radius, double sigma, const CGColor& color);
    void paintSilhouetteShadow(const PaintNode& node, const LayerPlacement& placement, Point offset,
                               double sigma, const CGColor& color);

    bool reaches(const PixelRect& rect) const;
    bool reaches(const PaintNode& node) const;

    Canvas& canvas_;
    PaintSpace space_;
    PixelRect limits_;
    PixelRect clip_;
    std::size_t painted_ = 0;
    std::size_t covered_ = 0;
};

/// How many things the layer itself paints, its shadow included.
int ownPieceCount(const LayerState& state);
/// The sublayers that show, back to front.
std::vector<const PaintNode*> paintOrder(const PaintNode& node);

}  // namespace zn
