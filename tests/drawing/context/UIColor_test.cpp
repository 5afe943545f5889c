#include "zarnic/platform/drawing/UIColor.h"

#include <gtest/gtest.h>

#include "tests/drawing/Pixels.h"

namespace zn {
namespace {

TEST(UIColor, coloursOfDifferentSpacesAreUnequalThoughTheyLookTheSame) {
    EXPECT_FALSE(UIColor::whiteColor()->isEqual(*UIColor::colorWithRed(1, 1, 1, 1)));
    EXPECT_TRUE(UIColor::whiteColor()->isEqual(*UIColor::colorWithWhite(1, 1)));
    EXPECT_TRUE(UIColor::redColor()->isEqual(*UIColor::colorWithRed(1, 0, 0, 1)));
    EXPECT_EQ(UIColor::redColor()->hash(), UIColor::colorWithRed(1, 0, -0.0, 1)->hash());
    EXPECT_FALSE(UIColor::redColor()->isEqual(*UIColor::blueColor()));
}

TEST(UIColor, keepsComponentsOutsideTheUnitAndClampsThemWhenDrawing) {
    const auto color = UIColor::colorWithRed(1.5, -0.25, 0.5, 1);
    EXPECT_EQ(color->cgColor().red, 1.5);
    const auto context = CGContext::image({1, 1}, false, 1);
    context->setFillColor(color->cgColor());
    context->fillRect({0, 0, 1, 1});
    EXPECT_EQ(pixelAt(context, 0, 0), "ffff0080");
}

TEST(UIColor, describesItself) {
    EXPECT_EQ(UIColor::orangeColor()->description(), "UIExtendedSRGBColorSpace 1 0.5 0 1");
    EXPECT_EQ(UIColor::clearColor()->description(), "UIExtendedGrayColorSpace 0 0");
    EXPECT_EQ(UIColor::blackColor()->colorWithAlphaComponent(0.25)->description(),
              "UIExtendedGrayColorSpace 0 0.25");
}

}  // namespace
}  // namespace zn
