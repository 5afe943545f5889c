#pragma once

#include <gmock/gmock.h>

#include "tests/drawing/Pixels.h"
#include "tests/support/TestClock.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/layers/Compositor.h"

namespace zn {

inline Ref<CALayer> boxLayer(const Rect& frame, const CGColor& color) {
    auto layer = make<CALayer>();
    layer->setFrame(frame);
    layer->setBackgroundColor(color);
    return layer;
}

/// A white screen under the manual clock.
struct Screen {
    explicit Screen(Size size = {40, 40}, double scale = 1)
        : root((testClock(), boxLayer({{}, size}, white))), compositor(root, scale) {}

    /// Commits and composites; gives what was repainted.
    std::vector<PixelRect> show() {
        CATransaction::flush();
        return compositor.composite();
    }
    /// Lets time pass, then composites.
    void advance(double seconds) {
        testClock().advance(seconds);
        compositor.composite();
    }
    Ref<CALayer> add(const Rect& frame, const CGColor& color) {
        auto layer = boxLayer(frame, color);
        root->addSublayer(layer);
        return layer;
    }
    std::uint32_t word(std::size_t x, std::size_t y) const {
        return compositor.pixels()[y * compositor.pixelWidth() + x];
    }
    std::string pixel(std::size_t x, std::size_t y) const { return pixelText(word(x, y)); }
    int channel(std::size_t x, std::size_t y, int shift) const {
        return static_cast<int>((word(x, y) >> shift) & 0xff);
    }
    int redAt(std::size_t x, std::size_t y) const { return channel(x, y, 16); }
    int greenAt(std::size_t x, std::size_t y) const { return channel(x, y, 8); }
    int blueAt(std::size_t x, std::size_t y) const { return channel(x, y, 0); }

    Ref<CALayer> root;
    Compositor compositor;
};

/// The largest difference of a channel between two pictures of one size.
inline int largestDifference(const Ref<CGImage>& a, const Ref<CGImage>& b) {
    int largest = 0;
    for (std::size_t i = 0; i < a->pixels().size(); ++i)
        for (int shift = 0; shift < 32; shift += 8)
            largest =
                std::max(largest, std::abs(static_cast<int>((a->pixels()[i] >> shift) & 255) -
                                           static_cast<int>((b->pixels()[i] >> shift) & 255)));
    return largest;
}

}  // namespace zn
