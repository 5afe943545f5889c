#pragma once

#include "platform/layers/look/DamageRegion.h"
#include "platform/layers/screen/ContentShift.h"

namespace zn {

/// Brings what is shown of a committed tree to a moment, and collects where that makes a
/// difference. Goes only where something was touched. Where content scrolls, the pixels are to be
/// shifted before anything is painted.
class DamagePass {
public:
    DamagePass(DamageRegion& damage, std::vector<ContentShift>& shifts, double scale, double now)
        : damage_(damage), shifts_(shifts), space_{scale, true, false}, now_(now) {}

    void visit(CommittedLayer& root, const AffineTransform& toPixels, const PixelRect& screen) {
        visit(root, toPixels, screen, {});
    }

private:
    /// What the layers above did to the place of one.
    struct Motion {
        /// It is at another place than its pixels are.
        bool moved = false;
        /// Its pixels went along so far.
        PixelOffset shift;
        friend bool operator==(const Motion&, const Motion&) = default;
    };
    struct Before {
        LayerReach reach;
        bool visible;
        bool inTransition;
    };
    void visit(CommittedLayer& layer, const AffineTransform& parentToPixels, const PixelRect& clip,
               Motion motion);
    void hide(CommittedLayer& layer, const LayerState& next, const Before& before,
              const PixelRect& clip);
    bool visitBelow(CommittedLayer& layer, const LayerPlacement& placement, const PixelRect& clip,
                    Motion motion);
    std::optional<ContentShift> scroll(const LayerState& before, const PixelRect& clip);
    void damage(const PixelRect& rect, const PixelRect& clip);

    DamageRegion& damage_;
    std::vector<ContentShift>& shifts_;
    /// From the root to the layer being visited.
    LayerPath path_;
    PaintSpace space_;
    double now_;
};

}  // namespace zn
