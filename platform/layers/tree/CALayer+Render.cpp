#include <cmath>

#include "platform/drawing/canvas/Canvas.h"
#include "platform/layers/painting/LayerPainter.h"
#include "platform/layers/tree/LayerNode.h"
#include "platform/layers/tree/LayerWalk.h"

namespace zn {

void CALayer::renderInContext(const Ref<CGContext>& context) {
    if (!context)
        return;
    layoutIfNeeded();
    displayTree(*this);
    AffineTransform space = context->ctm();
    double scale = std::sqrt(std::abs(space.a * space.d - space.b * space.c));
    auto undo = node_->state.toSuperlayer().inverted();
    if (!(scale > 0) || !undo)
        return;
    // Layers are laid out on the grid of the context's pixels, and what remains of its transform
    // (a flip, a turn, a part of a pixel) is left to the canvas.
    Canvas canvas(*context, AffineTransform::scale(1 / scale, 1 / scale));
    PaintSpace pixels{scale, false, false};
    LayerPainter painter(canvas, pixels, enclosing(canvas.clipBox()));
    painter.paint(*node_, undo->concat(AffineTransform::scale(scale, scale)));
}

}  // namespace zn
