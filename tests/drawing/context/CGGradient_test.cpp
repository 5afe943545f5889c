#include <gtest/gtest.h>

#include "tests/drawing/Pixels.h"

namespace zn {
namespace {

using namespace CGGradientDrawingOptions;

struct Sides {
    unsigned options;
    bool before;
    bool after;
};
constexpr Sides allSides[] = {{None, false, false},
                              {DrawsBeforeStartLocation, true, false},
                              {DrawsAfterEndLocation, false, true},
                              {DrawsBeforeStartLocation | DrawsAfterEndLocation, true, true}};

std::string painted(bool paints, const char* color) {
    return paints ? color : "00000000";
}

TEST(CGGradient, linearOnesPaintBeyondEachEndOnlyWhenAsked) {
    for (const auto& [options, before, after] : allSides) {
        const auto context = CGContext::image({40, 40}, false, 1);
        context->drawLinearGradient({{red, blue}, {0, 1}}, {10, 0}, {30, 0}, options);
        EXPECT_EQ(pixelAt(context, 9, 20), painted(before, "ffff0000")) << options;
        EXPECT_EQ(pixelAt(context, 30, 39), painted(after, "ff0000ff")) << options;
        EXPECT_NE(pixelAt(context, 10, 0), "00000000") << options;
        EXPECT_NE(pixelAt(context, 29, 39), "00000000") << options;
    }
}

TEST(CGGradient, radialOnesPaintBeyondEachEndOnlyWhenAsked) {
    for (const auto& [options, before, after] : allSides) {
        const auto growing = CGContext::image({40, 40}, false, 1);
        growing->drawRadialGradient({{red, blue}, {}}, {20, 20}, 5, {20, 20}, 15, options);
        EXPECT_EQ(pixelAt(growing, 20, 20), painted(before, "ffff0000")) << options;
        EXPECT_EQ(pixelAt(growing, 1, 20), painted(after, "ff0000ff")) << options;
        EXPECT_NE(pixelAt(growing, 10, 20), "00000000") << options;

        const auto shrinking = CGContext::image({40, 40}, false, 1);
        shrinking->drawRadialGradient({{red, blue}, {}}, {20, 20}, 15, {22, 20}, 5, options);
        EXPECT_EQ(pixelAt(shrinking, 1, 20), painted(before, "ffff0000")) << options;
        EXPECT_EQ(pixelAt(shrinking, 22, 20), painted(after, "ff0000ff")) << options;
    }
}

TEST(CGGradient, circlesThatWanderOffFormACone) {
    for (const auto& [options, before, after] : allSides) {
        const auto context = CGContext::image({100, 40}, false, 1);
        context->drawRadialGradient({{red, blue}, {}}, {40, 20}, 10, {60, 20}, 10, options);
        EXPECT_EQ(pixelAt(context, 5, 20), painted(before, "ffff0000")) << options;
        EXPECT_EQ(pixelAt(context, 95, 20), painted(after, "ff0000ff")) << options;
        EXPECT_EQ(pixelAt(context, 50, 5), "00000000") << options;
    }
}

TEST(CGGradient, locationsNeedNotBeSorted) {
    const auto context = CGContext::image({40, 1}, false, 1);
    context->drawLinearGradient({{blue, red, green}, {1, 0, 0.5}}, {0, 0}, {40, 0}, None);
    EXPECT_EQ(pixelAt(context, 0, 0), "fff90600");
    EXPECT_EQ(pixelAt(context, 39, 0), "ff0006f9");
}

TEST(CGGradient, straightComponentsAreInterpolatedThenPremultiplied) {
    const auto context = CGContext::image({40, 1}, false, 1);
    context->drawLinearGradient({{red, {0, 0, 1, 0}}, {}}, {0, 0}, {40, 0}, None);
    const std::uint32_t middle = context->makeImage()->pixels()[20];
    EXPECT_NEAR(static_cast<double>(middle >> 24), 126, 2);
    EXPECT_NEAR(static_cast<double>(middle >> 16 & 0xFF), 62, 2);
    EXPECT_NEAR(static_cast<double>(middle & 0xFF), 64, 2);
}

TEST(CGGradient, unusableOnesDrawNothing) {
    const auto context = CGContext::image({40, 40}, false, 1);
    constexpr unsigned both = DrawsBeforeStartLocation | DrawsAfterEndLocation;
    context->drawLinearGradient({{red, green, blue}, {0, 1}}, {0, 0}, {40, 0}, both);
    context->drawLinearGradient({}, {0, 0}, {40, 0}, both);
    context->drawLinearGradient({{red, blue}, {}}, {20, 20}, {20, 20}, both);
    context->drawRadialGradient({{red, blue}, {}}, {20, 20}, 7, {20, 20}, 7, both);
    context->clipToRects({});
    context->drawLinearGradient({{red, blue}, {}}, {0, 0}, {40, 0}, both);
    const auto image = context->makeImage();
    for (const std::uint32_t pixel : image->pixels())
        ASSERT_EQ(pixel, 0U);
}

TEST(CGGradient, alphaOfTheStateCounts) {
    const auto context = CGContext::image({4, 4}, false, 1);
    context->setAlpha(0.5);
    context->drawLinearGradient({{red, red}, {}}, {0, 0}, {4, 0}, None);
    EXPECT_EQ(pixelAt(context, 2, 2), "80800000");
}

}  // namespace
}  // namespace zn
