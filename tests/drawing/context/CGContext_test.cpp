#include "zarnic/platform/drawing/CGContext.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/drawing/Pixels.h"

namespace zn {
namespace {

Ref<CGContext> picture(double width = 20, double height = 20) {
    return CGContext::image({width, height}, false, 1);
}

TEST(CGContext, solidFillsGiveTheRoundedProductOfComponentAndAlpha) {
    for (int alpha = 0; alpha <= 20; ++alpha) {
        for (int value = 0; value <= 50; ++value) {
            const double a = alpha / 20.0;
            const double c = value / 50.0;
            const auto context = picture(1, 1);
            context->setFillColor({c, 1, 0, a});
            context->fillRect({0, 0, 1, 1});
            const auto byte = [](double part) {
                return static_cast<std::uint32_t>(std::floor(part * 255 + 0.5));
            };
            EXPECT_EQ(pixelAt(context, 0, 0),
                      pixelText(byte(a) << 24 | byte(c * a) << 16 | byte(a) << 8))
                << c << " at " << a;
        }
    }
}

TEST(CGContext, halfTransparentWhiteIs128) {
    const auto context = picture();
    context->setFillColor({1, 1, 1, 0.5});
    context->fillRect({0, 0, 20, 20});
    EXPECT_EQ(pixelAt(context, 3, 3), "80808080");
}

TEST(CGContext, yGrowsDownwardInImagesAndUpwardInBitmaps) {
    const auto image = picture();
    image->setFillColor(red);
    image->fillRect({0, 0, 5, 5});
    EXPECT_EQ(pixelAt(image, 2, 2), "ffff0000");
    EXPECT_TRUE(image->flipped());

    const auto bitmap = CGContext::bitmap(nullptr, 20, 20, 8, 0, CGColorSpace::DeviceRGB, 1);
    bitmap->setFillColor(red);
    bitmap->fillRect({0, 0, 5, 5});
    EXPECT_EQ(pixelAt(bitmap, 2, 17), "ffff0000");
    EXPECT_EQ(pixelAt(bitmap, 2, 2), "00000000");
    EXPECT_FALSE(bitmap->flipped());
}

TEST(CGContext, roundsImageSizesUpToWholePixels) {
    const auto context = CGContext::image({10.1, 3.4}, true, 2);
    EXPECT_EQ(context->pixelWidth(), 21U);
    EXPECT_EQ(context->pixelHeight(), 7U);
    EXPECT_EQ(pixelAt(context, 0, 0), "ff000000");
    EXPECT_TRUE(context->makeImage()->opaque());
}

TEST(CGContext, impossibleSizesGiveNone) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(CGContext::image({0, 10}, false, 1));
    EXPECT_FALSE(CGContext::image({10, -1}, false, 1));
    EXPECT_FALSE(CGContext::image({nan, 10}, false, 1));
    EXPECT_FALSE(CGContext::image({10, 1e9}, false, 1));
    EXPECT_FALSE(CGContext::image({-10, -10}, false, -1));
}

TEST(CGContext, fillsThenStrokesAndClearsThePath) {
    const auto context = picture();
    context->setFillColor(red);
    context->setStrokeColor(green);
    context->setLineWidth(4);
    context->addRect({5, 5, 10, 10});
    context->drawPath(CGPathDrawingMode::FillStroke);
    EXPECT_EQ(pixelAt(context, 10, 10), "ffff0000");
    EXPECT_EQ(pixelAt(context, 3, 10), "ff00ff00");
    EXPECT_EQ(pixelAt(context, 6, 10), "ff00ff00");
    EXPECT_EQ(pixelAt(context, 2, 10), "00000000");
    context->setFillColor(blue);
    context->drawPath(CGPathDrawingMode::Fill);
    EXPECT_EQ(pixelAt(context, 10, 10), "ffff0000");
}

TEST(CGContext, evenOddModesLeaveHoles) {
    for (const auto mode : {CGPathDrawingMode::EOFill, CGPathDrawingMode::EOFillStroke}) {
        const auto context = picture();
        context->setStrokeColor({0, 0, 0, 0});
        context->addRect({0, 0, 20, 20});
        context->addRect({5, 5, 10, 10});
        context->drawPath(mode);
        EXPECT_EQ(pixelAt(context, 10, 10), "00000000");
        EXPECT_EQ(pixelAt(context, 2, 2), "ff000000");
    }
}

TEST(CGContext, aLineOfNoWidthDrawsNothing) {
    const auto context = picture();
    context->setLineWidth(0);
    context->strokeRect({5.5, 5.5, 10, 10});
    EXPECT_EQ(pixelAt(context, 5, 10), "00000000");
}

TEST(CGContext, aFlatTransformDrawsNothingUntilItIsRestored) {
    const auto context = picture();
    context->saveGState();
    context->scale(0, 1);
    context->translate(1, 1);
    context->fillRect({0, 0, 20, 20});
    context->drawImage({0, 0, 10, 10}, imageOf(1, 1, {0xFFFFFFFF}));
    EXPECT_EQ(pixelAt(context, 0, 0), "00000000");
    context->restoreGState();
    context->fillRect({0, 0, 20, 20});
    EXPECT_EQ(pixelAt(context, 0, 0), "ff000000");
}

TEST(CGContext, survivesWildNumbers) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const auto context = picture();
    context->setLineDash(nan, {1, 2});
    context->setLineDash(0, {0, 0});
    context->setLineDash(0, {-1, 2});
    context->addArc({nan, 0}, infinity, 0, nan, true);
    context->moveTo({nan, -infinity});
    context->addLineTo({infinity, 1e300});
    context->drawPath(CGPathDrawingMode::FillStroke);
    context->restoreGState();
    context->endTransparencyLayer();
    context->clearRect({0, 0, 20, 20});
    context->fillRect({-1e300, -1e300, 2e300, 2e300});
    EXPECT_EQ(pixelAt(context, 10, 10), "ff000000");
}

TEST(CGContext, saveKeepsColoursModesAndClip) {
    const auto context = picture();
    context->setFillColor(red);
    context->saveGState();
    context->setFillColor(green);
    context->setAlpha(0.5);
    context->clipToRect({0, 0, 10, 10});
    context->restoreGState();
    context->fillRect({0, 0, 20, 20});
    EXPECT_EQ(pixelAt(context, 15, 15), "ffff0000");
}

TEST(CGContext, clipsToTheUnionOfRectanglesAndNoneClipEverything) {
    const auto context = picture();
    context->saveGState();
    const Rect two[] = {{0, 0, 5, 5}, {10, 10, 5, 5}};
    context->clipToRects(two);
    context->fillRect({0, 0, 20, 20});
    EXPECT_EQ(pixelAt(context, 2, 2), "ff000000");
    EXPECT_EQ(pixelAt(context, 12, 12), "ff000000");
    EXPECT_EQ(pixelAt(context, 7, 7), "00000000");
    EXPECT_EQ(context->clipBoundingBox(), Rect(0, 0, 15, 15));
    context->restoreGState();
    context->clipToRects({});
    EXPECT_TRUE(context->clipBoundingBox().isNull());
    context->setFillColor(red);
    context->fillRect({0, 0, 20, 20});
    EXPECT_EQ(pixelAt(context, 18, 18), "00000000");
}

TEST(CGContext, clipBoxFollowsAFlipAndAnImageDrawnIntoItStandsUpright) {
    const auto context = CGContext::image({10, 20}, false, 1);
    context->scale(1, -1);
    EXPECT_EQ(context->clipBoundingBox(), Rect(0, -20, 10, 20));
    context->drawImage(context->clipBoundingBox(), imageOf(1, 2, {0xFFFF0000, 0xFF0000FF}));
    EXPECT_EQ(pixelAt(context, 5, 1), "ffff0000");
    EXPECT_EQ(pixelAt(context, 5, 18), "ff0000ff");
}

TEST(CGContext, dashesAlternate) {
    const auto context = picture();
    context->setLineWidth(2);
    context->setLineDash(0, {5, 5});
    context->moveTo({0, 10});
    context->addLineTo({20, 10});
    context->drawPath(CGPathDrawingMode::Stroke);
    EXPECT_EQ(pixelAt(context, 2, 10), "ff000000");
    EXPECT_EQ(pixelAt(context, 7, 10), "00000000");
    EXPECT_EQ(pixelAt(context, 12, 10), "ff000000");
}

TEST(CGContext, aTransparencyLayerIsComposedAsOne) {
    const auto context = picture();
    context->setAlpha(0.5);
    context->beginTransparencyLayer();
    context->setFillColor(red);
    context->fillRect({0, 0, 10, 10});
    context->saveGState();
    context->setFillColor(blue);
    context->fillRect({5, 0, 10, 10});
    // The layer's end also ends what was saved inside it.
    context->endTransparencyLayer();
    EXPECT_EQ(pixelAt(context, 7, 5), "80000080");
    EXPECT_EQ(pixelAt(context, 2, 5), "80800000");
    context->fillRect({0, 15, 5, 5});
    EXPECT_EQ(pixelAt(context, 2, 17), "80000000");
}

TEST(CGContext, shadowsFallDownwardInImagesAndUpwardInBitmaps) {
    const auto image = picture();
    image->rotate(0.1);
    image->rotate(-0.1);
    image->setShadow({0, 5}, 0, black);
    image->setFillColor(red);
    image->fillRect({5, 5, 5, 5});
    EXPECT_EQ(pixelAt(image, 7, 12), "ff000000");
    EXPECT_EQ(pixelAt(image, 7, 7), "ffff0000");

    const auto bitmap = CGContext::bitmap(nullptr, 20, 20, 8, 0, CGColorSpace::DeviceRGB, 1);
    bitmap->setShadow({0, 5}, 0, black);
    bitmap->setFillColor(red);
    bitmap->fillRect({5, 5, 5, 5});
    EXPECT_EQ(pixelAt(bitmap, 7, 7), "ff000000");
}

TEST(CGContext, aBlurredShadowIsHalfAsStrongAtTheEdgeOfItsShape) {
    const auto context = CGContext::image({60, 60}, false, 1);
    context->setShadow({0, 30}, 8, black);
    context->fillRect({-10, -40, 80, 40});
    const auto alpha = [image = context->makeImage()](std::size_t y) {
        return static_cast<int>(image->pixels()[y * 60 + 30] >> 24);
    };
    EXPECT_NEAR((alpha(29) + alpha(30)) / 2.0, 127.5, 2);
    // One standard deviation (half the blur) away: 15.9 %.
    EXPECT_NEAR((alpha(33) + alpha(34)) / 2.0, 0.159 * 255, 3);
    EXPECT_EQ(alpha(45), 0);
}

TEST(CGContext, aShadowIsAsTranslucentAsItsShapeAndItsColour) {
    const auto context = picture();
    context->setShadow({0, 10}, 0, CGColor{0, 0, 1, 0.5});
    context->setAlpha(0.5);
    context->fillRect({0, 0, 20, 10});
    EXPECT_EQ(pixelAt(context, 10, 15), "40000040");
    context->setShadow({0, 10}, 0, std::nullopt);
    context->clearRect({0, 0, 20, 20});
    context->fillRect({0, 0, 20, 10});
    EXPECT_EQ(pixelAt(context, 10, 15), "00000000");
}

TEST(UIGraphics, drawingWithoutAContextDoesNothing) {
    EXPECT_FALSE(UIGraphicsGetCurrentContext());
    UIColor::redColor()->set();
    UIBezierPath::bezierPathWithRect({0, 0, 5, 5})->fill();
    UIGraphicsPopContext();
    EXPECT_FALSE(UIGraphicsGetCurrentContext());
}

}  // namespace
}  // namespace zn
