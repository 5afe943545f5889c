#pragma once

#include "platform/layers/CommittedLayer.h"
#include "platform/layers/DamageRegion.h"
#include "platform/layers/LayerPlacement.h"

namespace zn {

/// Brings what is shown of a committed tree to a moment, and collects where that makes a
/// difference. Goes only where something was touched.
class DamagePass {
public:
    DamagePass(DamageRegion& damage, double scale, double now)
        : damage_(damage), space_{scale, true, false}, now_(now) {}

    /// `moved`: something above is at another place, so this layer is.
    void visit(CommittedLayer& layer, const AffineTransform& parentToPixels, const PixelRect& clip,
               bool moved = false);

private:
    struct Before {
        LayerReach reach;
        bool visible;
        bool inTransition;
    };
    void hide(CommittedLayer& layer, const LayerState& next, const Before& before,
              const PixelRect& clip);
    bool visitBelow(CommittedLayer& layer, const LayerPlacement& placement, const PixelRect& clip,
                    bool moved);
    void damage(const PixelRect& rect, const PixelRect& clip);

    DamageRegion& damage_;
    PaintSpace space_;
    double now_;
};

}  // namespace zn
