#pragma once

#include "platform/layers/screen/ContentShift.h"
#include "platform/layers/tree/CommittedLayer.h"
#include "zarnic/platform/layers/Compositor.h"

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
    /// Moves the pixels of what was scrolled; where they are.
    std::vector<PixelRect> shiftContent();
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
    /// To be done before the damage, which is of the picture after them, is painted.
    std::vector<ContentShift> shifts;
    Statistics statistics;
};

}  // namespace zn
