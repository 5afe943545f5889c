#include <gmock/gmock.h>

#include <cmath>

#include "tests/drawing/Pixels.h"
#include "zarnic/UILabel+ZNCategory.h"
#include "zarnic/UIView+ZNCategory.h"
#include "zarnic/platform/uikit/UIScreen.h"
#include "zarnic/platform/uikit/UIScrollView.h"

namespace zn {
namespace {

const ColorList RedBlue = std::vector{UIColor::redColor(), UIColor::blueColor()};
const LocationList Ends = std::vector{0.0, 1.0};

CGColor components(const Ref<UIColor>& color) {
    return color ? color->cgColor() : CGColor{-1, -1, -1, -1};
}

TEST(UIViewZNEffectsTest, ShadowSetsTheLayer) {
    const auto view = make<UIView>(Rect(0, 0, 20, 20));
    zn_AddShadowEffectColor(view, UIColor::redColor(), {1, 2}, 5, 0.5);
    const auto& layer = *view->layer();
    EXPECT_EQ(layer.shadowColor(), UIColor::redColor()->cgColor());
    EXPECT_EQ(layer.shadowOffset(), (Size{1, 2}));
    EXPECT_EQ(layer.shadowRadius(), 5);
    EXPECT_EQ(layer.shadowOpacity(), 0.5);
    EXPECT_FALSE(layer.shadowPath());
    const auto path = UIBezierPath::bezierPathWithRect({0, 0, 5, 5});
    zn_AddShadowEffectColor(view, UIColor::blueColor(), {3, 4}, path, 0.25);
    EXPECT_EQ(layer.shadowPath(), path->cgPath());
    EXPECT_EQ(layer.shadowRadius(), 5) << "the second form leaves the radius alone";
    EXPECT_EQ(layer.shadowOpacity(), 0.25);
    zn_AddShadowEffectColor(view, nullptr, {}, Ref<UIBezierPath>(), 0);
    EXPECT_FALSE(layer.shadowPath());
}

TEST(UIViewZNEffectsTest, GradientLayerGoesBehindEverything) {
    const auto view = make<UIView>(Rect(0, 0, 20, 20));
    view->addSubview(make<UIView>());
    const auto gradient =
        zn_AddColorGradientEffectColors(view, RedBlue, Ends, {0, 0}, {1, 0}, {2, 3, 10, 10});
    EXPECT_EQ(view->layer()->sublayers().front(), gradient);
    EXPECT_EQ(gradient->frame(), Rect(2, 3, 10, 10));
    EXPECT_EQ(gradient->colors().size(), 2u);
    EXPECT_EQ(gradient->locations(), *Ends);
    EXPECT_EQ(gradient->endPoint(), (Point{1, 0}));
    EXPECT_EQ(zn_AddColorGradientEffectColors(nullptr, RedBlue, Ends, {}, {}, {}), nullptr);
    const auto plain =
        zn_AddColorGradientEffectColors(view, std::nullopt, std::nullopt, {}, {}, {});
    EXPECT_TRUE(plain->colors().empty() && plain->locations().empty());
}

TEST(UIViewZNEffectsTest, PixelColourIsPremultipliedAndTakesTheGivenAlpha) {
    const auto view = ZN_ViewWithColor(UIColor::greenColor(), {50, 50, 20, 20});
    const auto child = ZN_ViewWithColor(UIColor::redColor(), {10, 10, 5, 5});
    view->addSubview(child);
    EXPECT_EQ(components(zn_ColorAtPixelPoint(view, {2, 2}, 0.3)), (CGColor{0, 1, 0, 0.3}));
    EXPECT_EQ(components(zn_ColorAtPixelPoint(view, {12, 12}, 1)), (CGColor{1, 0, 0, 1}));
    EXPECT_EQ(components(zn_ColorAtPixelPoint(view, {12, 17}, 1)), (CGColor{0, 1, 0, 1}))
        << "y goes down";

    view->setBackgroundColor(nullptr);
    EXPECT_EQ(components(zn_ColorAtPixelPoint(view, {2, 2}, 0.7)), (CGColor{0, 0, 0, 0.7}));
    child->setBackgroundColor(UIColor::colorWithRed(1, 0, 0, 0.5));
    EXPECT_NEAR(components(zn_ColorAtPixelPoint(view, {12, 12}, 1)).red, 0.5, 1.0 / 255);
}

TEST(UIViewZNEffectsTest, PixelOutsideTheBoundsHasNoColour) {
    const auto view = ZN_ViewWithColor(UIColor::greenColor(), {50, 50, 20, 20});
    for (const Point outside : {Point{20, 5}, Point{5, 20}, Point{-1, 5}, Point{55, 55}})
        EXPECT_EQ(zn_ColorAtPixelPoint(view, outside, 1), nullptr);
    EXPECT_NE(zn_ColorAtPixelPoint(view, {0, 0}, 1), nullptr);
    EXPECT_NE(zn_ColorAtPixelPoint(view, {19.5, 19.5}, 1), nullptr);
    EXPECT_EQ(zn_ColorAtPixelPoint(nullptr, {0, 0}, 1), nullptr);
    EXPECT_EQ(zn_ColorAtPixelPoint(make<UIView>(), {0, 0}, 1), nullptr);
}

TEST(UIViewZNEffectsTest, PixelOfAScrolledViewIsInTheCoordinatesOfItsBounds) {
    const auto scroll = make<UIScrollView>(Rect(0, 0, 20, 20));
    scroll->addSubview(ZN_ViewWithColor(UIColor::redColor(), {0, 100, 20, 20}));
    scroll->setContentOffset({0, 100});
    EXPECT_EQ(components(zn_ColorAtPixelPoint(scroll, {5, 105}, 1)), (CGColor{1, 0, 0, 1}));
    EXPECT_EQ(zn_ColorAtPixelPoint(scroll, {5, 5}, 1), nullptr);
}

TEST(UIViewZNEffectsTest, SnapshotHasTheScreensScale) {
    const auto view = ZN_ViewWithColor(UIColor::greenColor(), {5, 5, 10, 8});
    view->addSubview(ZN_ViewWithColor(UIColor::redColor(), {0, 0, 5, 4}));
    const double scale = UIScreen::mainScreen()->scale();
    const auto image = zn_TransformToImage(view);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->scale(), scale);
    EXPECT_EQ(image->size(), (Size{10, 8}));
    EXPECT_EQ(double(image->cgImage()->width()), 10 * scale);
    EXPECT_EQ(pixelAt(image->cgImage(), 0, 0), "ffff0000");
    EXPECT_EQ(pixelAt(image->cgImage(), image->cgImage()->width() - 1, 0), "ff00ff00");
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
    EXPECT_EQ(zn_TransformToImage(make<UIView>()), nullptr);
    EXPECT_EQ(zn_TransformToImage(nullptr), nullptr);
}

TEST(UIViewZNEffectsTest, GradientImageRunsFromColourToColour) {
    const auto image =
        ZN_GenerateColorGradientEffectImageColors(RedBlue, Ends, {0, 0.5}, {1, 0.5}, {100, 10});
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->size(), (Size{100, 10}));
    const auto& pixels = image->cgImage();
    const auto red = [&](std::size_t x) { return (pixels->pixels()[x] >> 16) & 0xff; };
    EXPECT_GT(red(0), 250u);
    EXPECT_NEAR(double(red(pixels->width() / 2)), 127, 4);
    EXPECT_LT(red(pixels->width() - 1), 5u);
    EXPECT_EQ(ZN_GenerateColorGradientEffectImageColors(RedBlue, Ends, {}, {}, {0, 10}), nullptr);
}

TEST(UIViewZNEffectsTest, GradientLabelShowsTheGradientThroughTheTextOnly) {
    const auto font = UIFont::systemFontOfSize(20);
    const double width = std::ceil(sizeWithFont("████", font).width);
    const auto view =
        ZN_GradientEffectLabelViewText("████", font, UIColor::greenColor(), {10, 10, width, 40},
                                       RedBlue, Ends, {0, 0.5}, {1, 0.5});
    EXPECT_EQ(view->frame(), Rect(10, 10, width, 40));
    ASSERT_EQ(view->subviews().size(), 1u);
    const auto label = as<UILabel>(view->subviews()[0]);
    EXPECT_TRUE(label->textColor()->isEqual(*UIColor::colorWithRed(1, 1, 1, 1)))
        << "the text colour argument is not used";
    EXPECT_EQ(view->layer()->sublayers().front()->mask(), label->layer());
    EXPECT_EQ(view->layer()->sublayers().size(), 1u) << "the mask is not seen itself";

    const auto inside = zn_ColorAtPixelPoint(view, {2, 20}, 1);
    EXPECT_GT(components(inside).red, 0.9);
    EXPECT_LT(components(inside).green, 0.05);
    EXPECT_GT(components(zn_ColorAtPixelPoint(view, {width - 3, 20}, 1)).blue, 0.85);
    EXPECT_EQ(components(zn_ColorAtPixelPoint(view, {30, 1}, 1)), (CGColor{0, 0, 0, 1}));
}

TEST(UILabelZNCategoryTest, FactorySetsWhatIsThere) {
    const auto label = ZN_LabelWithColor(UIColor::redColor(), "Text", UIFont::systemFontOfSize(9),
                                         UIColor::blueColor(), {1, 2, 3, 4});
    EXPECT_EQ(label->frame(), Rect(1, 2, 3, 4));
    EXPECT_EQ(label->backgroundColor(), UIColor::redColor());
    EXPECT_EQ(label->text(), "Text");
    EXPECT_EQ(label->font(), UIFont::systemFontOfSize(9));
    EXPECT_EQ(label->textColor(), UIColor::blueColor());
    const auto plain = ZN_LabelWithColor(nullptr, {}, nullptr, nullptr, {});
    EXPECT_EQ(plain->backgroundColor(), nullptr);
    EXPECT_EQ(plain->font(), UIFont::systemFontOfSize(17));
    EXPECT_EQ(plain->textColor(), UIColor::blackColor());
}

}  // namespace
}  // namespace zn
