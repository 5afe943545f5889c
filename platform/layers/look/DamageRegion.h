#pragma once

#include <vector>

#include "platform/layers/look/PixelGeometry.h"

namespace zn {

/// What has to be painted again: a few rectangles, joined where that costs less than it saves.
class DamageRegion {
public:
    void add(const PixelRect& rect);
    /// Takes all of them out.
    std::vector<PixelRect> take();
    bool empty() const { return rects_.empty(); }
    const std::vector<PixelRect>& rects() const { return rects_; }

private:
    void joinCheapest();

    std::vector<PixelRect> rects_;
};

}  // namespace zn
