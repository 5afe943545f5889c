#pragma once

#include "platform/layers/painting/LayerPainter.h"

namespace zn {

/// Narrows the painter's clip for a scope.
class LayerPainter::ClipScope {
public:
    explicit ClipScope(LayerPainter& painter)
        : painter_(painter), saved_(painter.canvas_), outer_(painter.clip_) {}
    /// Begins with what the layer can touch, where that is known: groups are no larger.
    ClipScope(LayerPainter& painter, const PaintNode& node) : ClipScope(painter) {
        if (painter.space_.reachesKnown && node.reach())
            cut(node.reach()->all);
    }
    ~ClipScope() { painter_.clip_ = outer_; }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;

    void cut(const PixelRect& rect) {
        painter_.clip_ = intersection(painter_.clip_, rect);
        painter_.canvas_.clipRect(toRect(painter_.clip_));
    }
    bool empty() const { return isEmpty(painter_.clip_); }

private:
    LayerPainter& painter_;
    Canvas::Saved saved_;
    PixelRect outer_;
};

}  // namespace zn
