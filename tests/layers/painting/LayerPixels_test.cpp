#include <cmath>
#include <numbers>

#include "tests/layers/Screen.h"
#include "zarnic/platform/layers/CAGradientLayer.h"
#include "zarnic/platform/layers/CAShapeLayer.h"

namespace zn {
namespace {

/// Two by two: red, green; blue, white.
Ref<CGImage> fourColors() {
    return imageOf(2, 2, {0xffff0000, 0xff00ff00, 0xff0000ff, 0xffffffff});
}

Ref<CGImage> evenImage(std::size_t width, std::size_t height, std::uint32_t word) {
    auto pixels = std::make_unique<std::uint32_t[]>(width * height);
    std::fill_n(pixels.get(), width * height, word);
    return make<CGImage>(width, height, std::move(pixels));
}

TEST(LayerPixelsTest, BorderLiesInsideAboveContentsAndSublayers) {
    Screen screen;
    auto box = screen.add({10, 10, 20, 20}, red);
    box->addSublayer(boxLayer({-5, 5, 30, 5}, green));
    box->setBorderWidth(2);
    box->setBorderColor(blue);
    screen.show();
    EXPECT_EQ(screen.pixel(10, 10), "ff0000ff");
    EXPECT_EQ(screen.pixel(11, 17), "ff0000ff");
    EXPECT_EQ(screen.pixel(12, 17), "ff00ff00");
    EXPECT_EQ(screen.pixel(7, 17), "ff00ff00") << "outside the bounds there is no border";
    EXPECT_EQ(screen.pixel(12, 12), "ffff0000");
    EXPECT_EQ(screen.pixel(9, 9), "ffffffff");
}

TEST(LayerPixelsTest, CornersRoundContentsAndSublayersOnlyWithMasking) {
    Screen screen;
    auto box = screen.add({0, 0, 20, 20}, red);
    box->setCornerRadius(10);
    auto inner = boxLayer({0, 0, 20, 20}, green);
    box->addSublayer(inner);
    screen.show();
    EXPECT_EQ(screen.pixel(0, 0), "ff00ff00");
    CATransaction::setDisableActions(true);
    box->setMasksToBounds(true);
    screen.show();
    EXPECT_EQ(screen.pixel(0, 0), "ffffffff");
    EXPECT_EQ(screen.pixel(10, 10), "ff00ff00");
    EXPECT_EQ(screen.redAt(2, 3), screen.blueAt(2, 3)) << "no red shines through at the edge";
    CATransaction::setDisableActions(true);
    inner->setHidden(true);
    box->setMasksToBounds(false);
    screen.show();
    EXPECT_EQ(screen.pixel(0, 0), "ffffffff");
    EXPECT_EQ(screen.pixel(10, 10), "ffff0000");
}

TEST(LayerPixelsTest, OpacityComposesATreeAsOnePicture) {
    Screen screen;
    auto box = screen.add({0, 0, 20, 20}, red);
    box->addSublayer(boxLayer({5, 5, 10, 10}, blue));
    box->setOpacity(0.5);
    screen.show();
    EXPECT_EQ(screen.pixel(2, 2), "ffff7f7f");
    EXPECT_EQ(screen.pixel(10, 10), "ff7f7fff") << "nothing of the red below";
}

TEST(LayerPixelsTest, EdgesMeetWithoutASeam) {
    Screen screen;
    for (int i = 0; i < 4; ++i)
        screen.add({i * 10.3, 0.3, 10.3, 20.4}, black);
    screen.add({0, 30, 40, 0.2}, black);
    screen.show();
    for (std::size_t x = 0; x < 40; ++x)
        EXPECT_EQ(screen.pixel(x, 10), "ff000000") << x;
    EXPECT_EQ(screen.pixel(20, 0), "ff000000");
    EXPECT_EQ(screen.pixel(20, 21), "ffffffff");
    EXPECT_EQ(screen.pixel(20, 30), "ff000000") << "the thinnest line keeps a pixel";
}

TEST(LayerPixelsTest, SublayersAreOrderedByDepthThenByPlace) {
    Screen screen;
    auto low = screen.add({0, 0, 20, 20}, red);
    screen.add({0, 0, 20, 20}, green);
    screen.show();
    EXPECT_EQ(screen.pixel(5, 5), "ff00ff00");
    CATransaction::setDisableActions(true);
    low->setZPosition(1);
    screen.show();
    EXPECT_EQ(screen.pixel(5, 5), "ffff0000");
}

TEST(LayerPixelsTest, BoundsOriginShiftsSublayers) {
    Screen screen;
    auto box = screen.add({10, 10, 20, 20}, red);
    box->addSublayer(boxLayer({0, 0, 5, 5}, green));
    box->setBounds({-3, -4, 20, 20});
    screen.show();
    EXPECT_EQ(screen.pixel(12, 14), "ffff0000");
    EXPECT_EQ(screen.pixel(13, 14), "ff00ff00");
}

TEST(LayerPixelsTest, TransformsTurnAboutTheAnchor) {
    Screen screen;
    auto box = screen.add({20, 20, 10, 4}, red);
    box->setAnchorPoint({0, 0});
    box->setPosition({20, 20});
    box->setAffineTransform(AffineTransform::rotation(std::numbers::pi / 2));
    screen.show();
    EXPECT_EQ(screen.pixel(17, 28), "ffff0000");
    EXPECT_EQ(screen.pixel(25, 22), "ffffffff");
}

struct GravityCase {
    CAContentsGravity gravity;
    Rect place;
};

class GravityTest : public testing::TestWithParam<GravityCase> {};

TEST_P(GravityTest, PutsContentsThere) {
    Screen screen;
    auto box = screen.add({10, 10, 20, 10}, {});
    box->setContents(evenImage(4, 4, 0xff00ff00));
    box->setContentsGravity(GetParam().gravity);
    screen.show();
    for (std::size_t y = 0; y < 40; ++y)
        for (std::size_t x = 0; x < 40; ++x) {
            Point middle{static_cast<double>(x) + 0.5, static_cast<double>(y) + 0.5};
            ASSERT_EQ(screen.pixel(x, y),
                      GetParam().place.contains(middle) ? "ff00ff00" : "ffffffff")
                << x << " " << y;
        }
}

INSTANTIATE_TEST_SUITE_P(
    All, GravityTest,
    testing::Values(GravityCase{CAContentsGravity::Resize, {10, 10, 20, 10}},
                    GravityCase{CAContentsGravity::ResizeAspect, {15, 10, 10, 10}},
                    GravityCase{CAContentsGravity::ResizeAspectFill, {10, 5, 20, 20}},
                    GravityCase{CAContentsGravity::Center, {18, 13, 4, 4}},
                    GravityCase{CAContentsGravity::Top, {18, 10, 4, 4}},
                    GravityCase{CAContentsGravity::Bottom, {18, 16, 4, 4}},
                    GravityCase{CAContentsGravity::Left, {10, 13, 4, 4}},
                    GravityCase{CAContentsGravity::Right, {26, 13, 4, 4}},
                    GravityCase{CAContentsGravity::TopLeft, {10, 10, 4, 4}},
                    GravityCase{CAContentsGravity::TopRight, {26, 10, 4, 4}},
                    GravityCase{CAContentsGravity::BottomLeft, {10, 16, 4, 4}},
                    GravityCase{CAContentsGravity::BottomRight, {26, 16, 4, 4}}));

TEST(LayerPixelsTest, ContentsAreCopiedAtTheirScaleAndStretchedFromTheCentre) {
    Screen screen({20, 20}, 2);
    auto exact = screen.add({1, 1, 1, 1}, {});
    exact->setContents(fourColors());
    exact->setContentsScale(2);
    auto nine = screen.add({5, 5, 10, 10}, {});
    auto image = imageOf(3, 3,
                         {0xffff0000, 0xff00ff00, 0xffff0000,  //
                          0xff00ff00, 0xff0000ff, 0xff00ff00,  //
                          0xffff0000, 0xff00ff00, 0xffff0000});
    nine->setContents(image);
    nine->setContentsScale(2);
    nine->setContentsCenter({1.0 / 3, 1.0 / 3, 1.0 / 3, 1.0 / 3});
    screen.show();
    EXPECT_EQ(screen.pixel(2, 2), "ffff0000");
    EXPECT_EQ(screen.pixel(3, 2), "ff00ff00");
    EXPECT_EQ(screen.pixel(2, 3), "ff0000ff");
    EXPECT_EQ(screen.pixel(3, 3), "ffffffff");
    EXPECT_EQ(screen.pixel(10, 10), "ffff0000");
    EXPECT_EQ(screen.pixel(11, 10), "ff00ff00");
    EXPECT_EQ(screen.pixel(28, 10), "ff00ff00");
    EXPECT_EQ(screen.pixel(29, 10), "ffff0000");
    EXPECT_EQ(screen.pixel(11, 11), "ff0000ff");
    EXPECT_EQ(screen.pixel(28, 28), "ff0000ff");
    EXPECT_EQ(screen.pixel(29, 29), "ffff0000");
}

TEST(LayerPixelsTest, MasksCutByTheirAlphaAndOpacity) {
    Screen screen;
    auto box = screen.add({0, 0, 20, 20}, red);
    box->setShadowOpacity(1);
    auto mask = boxLayer({5, 5, 10, 10}, {0, 1, 0, 0.5});
    box->setMask(mask);
    screen.show();
    EXPECT_EQ(screen.pixel(2, 2), "ffffffff") << "neither layer nor shadow";
    EXPECT_EQ(screen.pixel(10, 10), "ffff7f7f");
    CATransaction::setDisableActions(true);
    mask->setBackgroundColor(black);
    mask->setPosition({5, 5});
    screen.show();
    EXPECT_EQ(screen.pixel(2, 2), "ffff0000");
    EXPECT_EQ(screen.pixel(12, 12), "ffffffff");
}

/// The Gaussian's integral from minus infinity.
double gaussianIntegral(double distance, double sigma) {
    return 0.5 * std::erfc(-distance / (sigma * std::sqrt(2)));
}

TEST(LayerPixelsTest, ShadowIsAGaussianOfItsRadiusAtItsOffset) {
    for (double sigma : {2.0, 8.0}) {
        Screen screen({120, 120}, 1);
        auto box = screen.add({30, 30, 60, 60}, red);
        box->setShadowRadius(sigma);
        box->setShadowOpacity(0.5);
        box->setShadowOffset({0, 10});
        screen.show();
        // Below the box, along its middle: the edge of the shadow is at 100.
        for (std::size_t y = 91; y < 120; y += 3) {
            double coverage = gaussianIntegral(100 - (static_cast<double>(y) + 0.5), sigma);
            EXPECT_NEAR(screen.redAt(60, y), 255 * (1 - 0.5 * coverage), 2.5) << y;
        }
    }
}

TEST(LayerPixelsTest, ShadowFollowsWhatShowsOrThePath) {
    Screen screen({60, 60});
    auto clear = screen.add({10, 10, 20, 20}, {});
    clear->setShadowOpacity(1);
    clear->setShadowRadius(0);
    clear->setShadowOffset({20, 0});
    clear->addSublayer(boxLayer({0, 0, 5, 5}, red));
    screen.show();
    EXPECT_EQ(screen.pixel(32, 12), "ff000000");
    EXPECT_EQ(screen.pixel(38, 12), "ffffffff");
    CATransaction::setDisableActions(true);
    clear->setShadowPath(CGPath::rect({10, 10, 5, 5}));
    screen.show();
    EXPECT_EQ(screen.pixel(32, 12), "ffffffff");
    EXPECT_EQ(screen.pixel(42, 22), "ff000000");
    CATransaction::setDisableActions(true);
    clear->setMasksToBounds(true);
    screen.show();
    EXPECT_EQ(screen.pixel(42, 22), "ffffffff") << "masking cuts the shadow off";
    EXPECT_EQ(screen.pixel(12, 12), "ffff0000");
}

TEST(LayerPixelsTest, BoxShadowsAreTheSameStretchedOrNot) {
    Screen plain({200, 120}), whole({200, 120});
    for (Screen* screen : {&plain, &whole}) {
        auto box = screen->add({30, 30, 140, 60}, red);
        box->setCornerRadius(12);
        box->setShadowRadius(5);
        box->setShadowOpacity(1);
        box->setShadowOffset({0, 4});
        if (screen == &whole)
            box->setShadowPath(CGPath::roundedRect({0, 0, 140, 60}, 12));
        screen->show();
    }
    EXPECT_LE(largestDifference(plain.compositor.snapshot(), whole.compositor.snapshot()), 2);
}

TEST(LayerPixelsTest, GradientsRunInUnitsOfTheBoundsAndGoOnBeyondTheEnds) {
    Screen screen({100, 40});
    auto layer = make<CAGradientLayer>();
    layer->setFrame({0, 0, 100, 10});
    layer->setColors({black, red});
    layer->setStartPoint({0.25, 0.5});
    layer->setEndPoint({0.75, 0.5});
    screen.root->addSublayer(layer);
    auto single = make<CAGradientLayer>();
    single->setFrame({0, 20, 10, 10});
    single->setColors({blue});
    screen.root->addSublayer(single);
    auto down = make<CAGradientLayer>();
    down->setFrame({20, 20, 10, 10});
    down->setColors({white, white, green, green});
    down->setLocations({0, 0.5, 0.5, 1});
    screen.root->addSublayer(down);
    screen.show();
    EXPECT_EQ(screen.pixel(10, 5), "ff000000");
    EXPECT_EQ(screen.pixel(90, 5), "ffff0000");
    EXPECT_NEAR(screen.redAt(50, 5), 129, 3);
    EXPECT_EQ(screen.pixel(5, 25), "ff0000ff");
    EXPECT_EQ(screen.pixel(25, 22), "ffffffff");
    EXPECT_EQ(screen.pixel(25, 28), "ff00ff00");
}

TEST(LayerPixelsTest, ShapesFillThenStrokeAndTrim) {
    Screen screen({60, 40});
    auto shape = make<CAShapeLayer>();
    shape->setFrame({10, 10, 40, 20});
    shape->setPath(CGPath::rect({0, 0, 10, 10}));
    shape->setStrokeColor(red);
    shape->setLineWidth(4);
    shape->setCornerRadius(20);
    screen.root->addSublayer(shape);
    auto line = make<CAShapeLayer>();
    CGPath path;
    path.moveTo({0, 35});
    path.lineTo({40, 35});
    line->setPath(path);
    line->setStrokeColor(blue);
    line->setLineWidth(4);
    line->setStrokeStart(0.25);
    line->setStrokeEnd(0.5);
    screen.root->addSublayer(line);
    screen.show();
    EXPECT_EQ(screen.pixel(15, 15), "ff000000") << "black unless set";
    EXPECT_EQ(screen.pixel(9, 9), "ffff0000");
    EXPECT_EQ(screen.pixel(11, 11), "ffff0000");
    EXPECT_EQ(screen.pixel(7, 15), "ffffffff");
    EXPECT_EQ(screen.pixel(9, 35), "ffffffff");
    EXPECT_EQ(screen.pixel(10, 35), "ff0000ff");
    EXPECT_EQ(screen.pixel(19, 35), "ff0000ff");
    EXPECT_EQ(screen.pixel(20, 35), "ffffffff");
}

TEST(LayerPixelsTest, AbsurdGeometryIsSurvived) {
    Screen screen;
    auto huge = screen.add({-1e12, -1e12, 2e12, 2e12}, red);
    huge->setShadowOpacity(1);
    huge->setCornerRadius(1e9);
    auto flat = screen.add({0, 0, 10, 10}, green);
    flat->setAffineTransform(AffineTransform::scale(0, 1));
    flat->setOpacity(0.5);
    flat->addSublayer(boxLayer({0, 0, 5, 5}, blue));
    auto endless = screen.add({0, 0, 10, 10}, green);
    endless->setPosition({INFINITY, 0});
    endless->setBorderWidth(1e9);
    endless->setShadowRadius(1e9);
    endless->setShadowOpacity(1);
    EXPECT_NO_THROW(screen.show());
    screen.compositor.invalidate();
    EXPECT_NO_THROW(screen.compositor.composite());
}

}  // namespace
}  // namespace zn
