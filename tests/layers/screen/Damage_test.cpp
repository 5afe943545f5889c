#include <numbers>
#include <random>

#include "tests/layers/Screen.h"
#include "zarnic/platform/layers/CAGradientLayer.h"
#include "zarnic/platform/layers/CAShapeLayer.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Grows a tree and changes it at random; the same seed gives the same story.
class RandomTree {
public:
    RandomTree(Screen& screen, unsigned seed, bool turning)
        : screen_(screen), random_(seed), turning_(turning) {
        layers_.push_back(screen.root);
    }

    void change() {
        switch (whole(22)) {
            case 0:
            case 1:
            case 2:
                return add();
            case 3:
                return remove();
            case 4:
                return move();
            default:
                if (layers_.size() > 1)
                    restyle(*layers_[1 + whole(static_cast<unsigned>(layers_.size() - 1))]);
        }
    }

private:
    unsigned whole(unsigned bound) { return static_cast<unsigned>(random_() % bound); }
    double number(double low, double high) {
        return low + (high - low) * static_cast<double>(whole(1001)) / 1000;
    }
    bool chance(unsigned oneIn) { return whole(oneIn) == 0; }
    CGColor color() {
        return {number(0, 1), number(0, 1), number(0, 1), chance(3) ? number(0, 1) : 1};
    }
    Rect frame() {
        Rect rect(number(-20, 90), number(-20, 90), number(0, 60), number(0, 60));
        return chance(3) ? rect : rect.integral();
    }
    Ref<CALayer> any() { return layers_[whole(static_cast<unsigned>(layers_.size()))]; }

    void add() {
        Ref<CALayer> layer;
        if (chance(5)) {
            auto gradient = make<CAGradientLayer>();
            gradient->setColors({color(), color()});
            layer = gradient;
        } else if (chance(5)) {
            auto shape = make<CAShapeLayer>();
            shape->setPath(CGPath::ellipse({0, 0, number(1, 40), number(1, 40)}));
            shape->setStrokeColor(color());
            layer = shape;
        } else {
            layer = boxLayer({}, color());
        }
        layer->setFrame(frame());
        any()->insertSublayer(layer, whole(4));
        layers_.push_back(layer);
    }
    void remove() {
        if (layers_.size() < 12)
            return;
        std::size_t index = 1 + whole(static_cast<unsigned>(layers_.size() - 1));
        layers_[index]->removeFromSuperlayer();
        std::erase_if(layers_, [&](const Ref<CALayer>& layer) {
            return layer != screen_.root && !inTree(layer);
        });
    }
    bool inTree(Ref<CALayer> layer) {
        while (layer && layer != screen_.root)
            layer = layer->superlayer();
        return layer != nullptr;
    }
    void move() {
        Ref<CALayer> layer = any(), parent = any();
        for (Ref<CALayer> above = parent; above; above = above->superlayer())
            if (above == layer)
                return;
        if (layer != screen_.root && parent)
            parent->insertSublayer(layer, whole(4));
    }
    void restyle(CALayer& layer) {
        switch (whole(17)) {
            case 0:
                return layer.setFrame(frame());
            case 1:
                return layer.setBackgroundColor(color());
            case 2:
                return layer.setOpacity(number(0, 1));
            case 3:
                return layer.setHidden(!layer.hidden());
            case 4:
                return layer.setCornerRadius(number(0, 20));
            case 5:
                return layer.setBorderWidth(number(0, 5));
            case 6:
                return layer.setMasksToBounds(!layer.masksToBounds());
            case 7:
                return layer.setShadowOpacity(number(0, 1));
            case 8:
                return layer.setShadowRadius(number(0, 6));
            case 9:
                return layer.setZPosition(whole(3));
            case 10:
                return layer.setAffineTransform(
                    AffineTransform::rotation(turning_ ? number(0, std::numbers::pi) : 0));
            case 11:
                return layer.setAffineTransform({});
            case 12:
                return layer.setPosition({number(0, 100), number(0, 100)});
            case 13:
                return layer.setBounds({{number(-9, 9), number(-9, 9)}, layer.bounds().size});
            case 14:
                return layer.setShouldRasterize(!layer.shouldRasterize());
            case 15: {
                auto mask = make<CAShapeLayer>();
                mask->setPath(CGPath::ellipse({0, 0, number(1, 50), number(1, 50)}));
                return layer.setMask(chance(2) ? mask : nullptr);
            }
            default:
                return layer.setShadowOffset({number(-5, 5), number(-5, 5)});
        }
    }

    Screen& screen_;
    std::mt19937 random_;
    bool turning_;
    std::vector<Ref<CALayer>> layers_;
};

Ref<CGImage> repainted(Screen& screen) {
    screen.compositor.invalidate();
    screen.compositor.composite();
    return screen.compositor.snapshot();
}

/// The model drawn apart from the compositor.
Ref<CGImage> rendered(Screen& screen) {
    double scale = screen.compositor.scale();
    auto context = CGContext::image(screen.root->bounds().size, false, scale);
    screen.root->renderInContext(context);
    return context->makeImage();
}

class RandomTreeTest : public testing::TestWithParam<unsigned> {
protected:
    unsigned seed() const { return GetParam(); }
    bool turning() const { return GetParam() % 2 == 0; }
    // Smooth edges that a damage rectangle cuts may come out a little different: curves by a
    // few rounding steps, slanting lines by one row of the rasteriser's samples (1/15).
    int tolerance() const { return turning() ? 20 : 4; }
};

TEST_P(RandomTreeTest, PaintingChangesEqualsPaintingAll) {
    Screen screen({100, 100}, seed() % 3 == 0 ? 2 : 1);
    RandomTree tree(screen, seed(), turning());
    for (int step = 0; step < 60; ++step) {
        CATransaction::setDisableActions(true);
        for (unsigned i = 0; i <= static_cast<unsigned>(step) % 4; ++i)
            tree.change();
        screen.show();
        Ref<CGImage> shown = screen.compositor.snapshot();
        ASSERT_LE(largestDifference(shown, repainted(screen)), tolerance()) << "step " << step;
        ASSERT_LE(largestDifference(shown, rendered(screen)), tolerance()) << "step " << step;
    }
}

TEST_P(RandomTreeTest, PaintingFramesEqualsPaintingAll) {
    Screen screen({100, 100});
    RandomTree tree(screen, seed(), turning());
    for (int step = 0; step < 60; ++step) {
        for (int i = 0; i < 3; ++i)
            tree.change();
        screen.show();
        testClock().advance(0.03);
        screen.compositor.composite();
        Ref<CGImage> shown = screen.compositor.snapshot();
        ASSERT_LE(largestDifference(shown, repainted(screen)), tolerance()) << "step " << step;
    }
    testClock().advance(1);
    screen.compositor.composite();
    EXPECT_FALSE(screen.compositor.animating());
    EXPECT_LE(largestDifference(screen.compositor.snapshot(), rendered(screen)), tolerance());
}

TEST(DamageTest, NothingIsPaintedWhereNothingChanged) {
    Screen screen;
    auto box = screen.add({10, 10, 10, 10}, red);
    EXPECT_THAT(screen.show(), ElementsAre(PixelRect{0, 0, 40, 40}));
    EXPECT_THAT(screen.show(), IsEmpty());
    box->setBackgroundColor(red);
    EXPECT_THAT(screen.show(), IsEmpty());
    CATransaction::setDisableActions(true);
    box->setBackgroundColor(blue);
    EXPECT_THAT(screen.show(), ElementsAre(PixelRect{10, 10, 10, 10}));
    EXPECT_EQ(screen.pixel(15, 15), "ff0000ff");
    EXPECT_EQ(screen.compositor.statistics().pixelsRepainted, 100u);
}

TEST(DamageTest, FarChangesAreNotJoinedAndShadowsCount) {
    Screen screen({400, 400});
    auto first = screen.add({0, 0, 10, 10}, red);
    auto second = screen.add({380, 380, 10, 10}, red);
    second->setShadowOpacity(1);
    second->setShadowOffset({0, 2});
    second->setShadowRadius(1);
    screen.show();
    CATransaction::setDisableActions(true);
    first->setBackgroundColor(blue);
    second->setShadowOffset({0, 0});
    // Three sigmas around the box, at both offsets.
    EXPECT_THAT(screen.show(), ElementsAre(PixelRect{0, 0, 10, 10}, PixelRect{377, 377, 16, 18}));
}

TEST(DamageTest, WhatIsClippedAwayIsNotPainted) {
    Screen screen({100, 100});
    auto window = screen.add({10, 10, 30, 30}, white);
    window->setMasksToBounds(true);
    auto inside = boxLayer({20, 20, 60, 60}, red);
    window->addSublayer(inside);
    screen.show();
    CATransaction::setDisableActions(true);
    inside->setBackgroundColor(blue);
    EXPECT_THAT(screen.show(), ElementsAre(PixelRect{30, 30, 10, 10}));
}

TEST(DamageTest, CoveredLayersAreNotPainted) {
    Screen screen({100, 100});
    for (int i = 0; i < 5; ++i)
        screen.add({0, 0, 100, 100}, red);
    auto cover = screen.add({0, 0, 100, 100}, green);
    auto top = screen.add({10, 10, 10, 10}, blue);
    screen.show();
    EXPECT_EQ(screen.compositor.statistics().layersCovered, 5u);
    EXPECT_EQ(screen.compositor.statistics().layersPainted, 3u);
    EXPECT_EQ(screen.pixel(50, 50), "ff00ff00");
    CATransaction::setDisableActions(true);
    cover->setOpacity(0.5);
    screen.show();
    EXPECT_EQ(screen.compositor.statistics().layersCovered, 4u);
    EXPECT_EQ(screen.pixel(50, 50), "ff7f8000");
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomTreeTest, testing::Range(1u, 41u));

}  // namespace
}  // namespace zn
