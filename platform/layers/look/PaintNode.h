#pragma once

#include <memory>

#include "platform/drawing/canvas/Picture.h"
#include "platform/layers/look/LayerState.h"
#include "platform/layers/look/PixelGeometry.h"

namespace zn {

/// A transition under way on a layer.
struct TransitionFrame {
    CATransitionType type;
    CATransitionSubtype subtype;
    double progress;
    /// What the layer showed before, over its bounds.
    std::shared_ptr<const Picture> before;
};

/// Where a layer of the committed tree drew last, in device pixels, before anything above it clips.
struct LayerReach {
    /// The layer's own background, contents and border.
    PixelRect own;
    /// With the sublayers, without the shadow.
    PixelRect body;
    /// Everything.
    PixelRect all;
};

/// A layer as the painter sees it: of the model or of the committed tree.
class PaintNode {
public:
    virtual ~PaintNode() = default;
    virtual const LayerState& look() const = 0;
    virtual std::size_t childCount() const = 0;
    virtual const PaintNode& child(std::size_t index) const = 0;
    virtual const PaintNode* maskNode() const = 0;
    virtual const TransitionFrame* transition() const { return nullptr; }
    /// Null when it is not known.
    virtual const LayerReach* reach() const { return nullptr; }
    /// Names the layer's picture without its place: equal numbers mean equal pixels, 0 nothing.
    virtual std::uint64_t identity() const { return 0; }
    virtual std::uint64_t version() const { return 0; }
};

}  // namespace zn
