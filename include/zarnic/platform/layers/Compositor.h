#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "zarnic/platform/layers/CALayer.h"

namespace zn {

/// A rectangle of device pixels.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// The order of the commit among the before-waiting handlers of the main loop: hosts composite
/// with a higher one, and so show a change in the pass that made it.
inline constexpr int CACommitOrder = 1000;

/// Paints a layer tree into a picture of device pixels, repainting only what changed. One per
/// screen; hosts own it. Main thread only.
class ZN_EXPORT Compositor {
public:
    /// `root` has the size of the screen in points, its frame at (0, 0); `scale` device pixels a
    /// point. A size that changed takes a new compositor. Throws `NSInvalidArgumentException` for a
    /// side without pixels or with more than 32,767.
    Compositor(Ref<CALayer> root, double scale);
    ~Compositor();
    Compositor(const Compositor&) = delete;
    Compositor& operator=(const Compositor&) = delete;

    /// Brings the picture to the committed state at this moment of the media clock. Returns where
    /// it was repainted or its pixels were shifted: nothing when nothing changed.
    std::vector<PixelRect> composite();
    /// Everything is repainted by the next `composite`.
    void invalidate();
    /// Whether an animation still moves something: the host ticks while it does.
    bool animating() const;

    std::size_t pixelWidth() const;
    std::size_t pixelHeight() const;
    double scale() const;
    /// The picture: words 0xAARRGGBB in native order, rows from the top, `pixelWidth` words each.
    const std::uint32_t* pixels() const;
    Ref<CGImage> snapshot() const;

    struct Statistics {
        std::size_t layersPainted = 0;
        /// Subtrees left out because something opaque lies over them.
        std::size_t layersCovered = 0;
        std::size_t pixelsRepainted = 0;
        std::size_t cacheBytes = 0;
    };
    /// Of the last `composite`.
    const Statistics& statistics() const;

    /// For the layer floor only.
    struct State;

private:
    std::unique_ptr<State> state_;
};

}  // namespace zn
