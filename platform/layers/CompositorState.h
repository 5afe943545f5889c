#pragma once

#include "platform/layers/CommittedLayer.h"
#include "platform/layers/DamageRegion.h"
#include "zarnic/platform/Compositor.h"

namespace zn {

struct Compositor::State {
    State(Ref<CALayer> rootLayer, double pixelScale);
    ~State();
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    /// Brings what is to be shown to the moment and notes the damage, without painting.
    void refresh(double now);
    /// What a layer shows now, over its bounds.
    std::shared_ptr<const Picture> capture(const CommittedLayer& layer) const;
    void paint(const PixelRect& rect);
    /// Whether the model's layer is seen here.
    bool shows(const CALayer& layer) const;

    PixelRect wholeScreen() const { return {0, 0, screen.width(), screen.height()}; }
    AffineTransform toPixels() const { return AffineTransform::scale(scale, scale); }

    Ref<CALayer> root;
    double scale;
    /// An animation changes something of this moment's picture.
    bool moving = false;
    Picture screen;
    DamageRegion damage;
    Statistics statistics;
};

}  // namespace zn
