#pragma once

#include "tests/support/TestClock.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/layers/Compositor.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// A screen without windows, on the test clock: what lies on it is seen, and so it animates.
class LayerScreen {
public:
    explicit LayerScreen(Size size = {100, 100}, double scale = 1)
        : root_(rootLayer(size)), compositor_(root_, scale) {}

    void show(const Ref<UIView>& view) { root_->addSublayer(view->layer()); }
    Compositor& compositor() { return compositor_; }

    /// The pixel at this place after everything is drawn, 0xAARRGGBB.
    std::uint32_t pixel(std::size_t x, std::size_t y) {
        testClock().settle();
        compositor_.composite();
        return compositor_.pixels()[y * compositor_.pixelWidth() + x];
    }

private:
    static Ref<CALayer> rootLayer(Size size) {
        testClock();
        const auto layer = make<CALayer>();
        layer->setBounds({{}, size});
        layer->setPosition({size.width / 2, size.height / 2});
        return layer;
    }

    Ref<CALayer> root_;
    Compositor compositor_;
};

}  // namespace zn
