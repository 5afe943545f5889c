#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {
namespace {

using namespace UIViewAutoresizing;

Ref<UIView> subviewOf(const Ref<UIView>& parent, const Rect& frame) {
    const auto view = make<UIView>(frame);
    parent->addSubview(view);
    return view;
}

TEST(UIViewGeometryTest, FrameIsMadeOfCentreAndSize) {
    const auto view = make<UIView>(Rect(10, 20, 30, 40));
    EXPECT_EQ(view->center(), (Point{25, 40}));
    EXPECT_EQ(view->bounds(), Rect(0, 0, 30, 40));
    view->setCenter({100, 100});
    EXPECT_EQ(view->frame(), Rect(85, 80, 30, 40));
}

TEST(UIViewGeometryTest, BoundsKeepTheCentre) {
    const auto view = make<UIView>(Rect(10, 20, 30, 40));
    view->setBounds({5, 6, 50, 20});
    EXPECT_EQ(view->center(), (Point{25, 40}));
    EXPECT_EQ(view->frame(), Rect(0, 30, 50, 20));
    EXPECT_EQ(view->bounds().origin, (Point{5, 6}));
}

TEST(UIViewGeometryTest, NegativeSizesAreStandardised) {
    const auto view = make<UIView>(Rect(50, 40, -20, -10));
    EXPECT_EQ(view->frame(), Rect(30, 30, 20, 10));
    view->setFrame({0, 0, -5, 5});
    EXPECT_EQ(view->frame(), Rect(-5, 0, 5, 5));
}

TEST(UIViewGeometryTest, FrameThatIsNoNumberIsRefused) {
    const auto view = make<UIView>(Rect(0, 0, 10, 10));
    EXPECT_THROW(view->setFrame({std::nan(""), 0, 10, 10}), NSException);
    EXPECT_EQ(view->frame(), Rect(0, 0, 10, 10));
}

TEST(UIViewGeometryTest, FrameOfATurnedViewIsItsBox) {
    const auto view = make<UIView>(Rect(0, 0, 40, 20));
    view->setTransform(AffineTransform::rotation(std::acos(-1) / 2));
    const Rect frame = view->frame();
    EXPECT_NEAR(frame.origin.x, 10, 1e-9);
    EXPECT_NEAR(frame.origin.y, -10, 1e-9);
    EXPECT_NEAR(frame.size.width, 20, 1e-9);
    EXPECT_NEAR(frame.size.height, 40, 1e-9);
    EXPECT_EQ(view->bounds().size, (Size{40, 20}));
}

struct AutoresizingCase {
    const char* name;
    unsigned mask;
    Rect before;
    Size newSize;
    Rect after;
};

void PrintTo(const AutoresizingCase& each, std::ostream* stream) {
    *stream << each.name;
}

class AutoresizingTest : public testing::TestWithParam<AutoresizingCase> {};

TEST_P(AutoresizingTest, SharesTheChangeAmongTheFlexibleParts) {
    const auto parent = make<UIView>(Rect(0, 0, 100, 100));
    const auto child = subviewOf(parent, GetParam().before);
    child->setAutoresizingMask(GetParam().mask);
    parent->setFrame({{7, 7}, GetParam().newSize});
    EXPECT_EQ(child->frame(), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    Masks, AutoresizingTest,
    testing::Values(
        AutoresizingCase{"none", None, {10, 10, 20, 20}, {200, 50}, {10, 10, 20, 20}},
        AutoresizingCase{
            "size", FlexibleWidth | FlexibleHeight, {10, 10, 20, 20}, {200, 50}, {10, 10, 120, 0}},
        AutoresizingCase{
            "whole", FlexibleWidth | FlexibleHeight, {0, 0, 100, 100}, {30, 250}, {0, 0, 30, 250}},
        AutoresizingCase{"rightBottom",
                         FlexibleLeftMargin | FlexibleTopMargin,
                         {70, 80, 20, 20},
                         {150, 90},
                         {120, 70, 20, 20}},
        AutoresizingCase{"centred",
                         FlexibleLeftMargin | FlexibleRightMargin,
                         {40, 0, 20, 20},
                         {200, 100},
                         {90, 0, 20, 20}},
        AutoresizingCase{"proportional",
                         FlexibleLeftMargin | FlexibleRightMargin,
                         {20, 0, 20, 20},
                         {180, 100},
                         {40, 0, 20, 20}},
        AutoresizingCase{"marginsWithoutRoom",
                         FlexibleLeftMargin | FlexibleRightMargin,
                         {0, 0, 100, 20},
                         {160, 100},
                         {30, 0, 100, 20}},
        AutoresizingCase{"all",
                         FlexibleLeftMargin | FlexibleWidth | FlexibleRightMargin,
                         {25, 0, 50, 10},
                         {200, 100},
                         {50, 0, 100, 10}}),
    [](const auto& test) { return test.param.name; });

TEST(UIViewGeometryTest, SubviewsStayWhenTheViewDoesNotResizeThem) {
    const auto parent = make<UIView>(Rect(0, 0, 100, 100));
    const auto child = subviewOf(parent, {0, 0, 100, 100});
    child->setAutoresizingMask(FlexibleWidth);
    parent->setAutoresizesSubviews(false);
    parent->setBounds({0, 0, 300, 100});
    EXPECT_EQ(child->frame().size.width, 100);
}

TEST(UIViewGeometryTest, AutoresizingLeavesATransformAlone) {
    const auto parent = make<UIView>(Rect(0, 0, 100, 100));
    const auto child = subviewOf(parent, {0, 0, 100, 100});
    child->setAutoresizingMask(FlexibleWidth | FlexibleHeight);
    child->setTransform(AffineTransform::scale(0.5, 0.5));
    parent->setFrame({0, 0, 200, 100});
    EXPECT_EQ(child->bounds().size, (Size{200, 100}));
    EXPECT_EQ(child->center(), (Point{100, 50}));
}

TEST(UIViewGeometryTest, ConvertsAlongTheTreeThroughOffsetsAndTransforms) {
    const auto root = make<UIView>(Rect(1000, 1000, 500, 500));
    const auto scrolled = subviewOf(root, {10, 20, 100, 100});
    scrolled->setBounds({0, 50, 100, 100});
    const auto inner = subviewOf(scrolled, {5, 60, 40, 40});
    const auto sibling = subviewOf(root, {200, 200, 100, 100});
    sibling->setTransform(AffineTransform::scale(2, 2));

    EXPECT_EQ(inner->convertPointToView({1, 2}, root), (Point{16, 32}));
    EXPECT_EQ(inner->convertPointFromView({16, 32}, root), (Point{1, 2}));
    // A null view stands for the top of the tree, whose own place does not count.
    EXPECT_EQ(inner->convertPointToView({1, 2}, nullptr), (Point{16, 32}));
    EXPECT_EQ(inner->convertPointFromView({16, 32}, nullptr), (Point{1, 2}));
    EXPECT_EQ(root->convertRectToView({150, 150, 200, 100}, sibling), Rect(0, 0, 100, 50));
    EXPECT_EQ(root->convertRectFromView({0, 0, 100, 50}, sibling), Rect(150, 150, 200, 100));
    EXPECT_EQ(inner->convertRectToView({0, 0, 4, 4}, inner), Rect(0, 0, 4, 4));
}

TEST(UIViewGeometryTest, SeparateTreesMeetWhereTheirTopsHaveTheirFrames) {
    const auto one = make<UIView>(Rect(100, 0, 50, 50));
    const auto other = make<UIView>(Rect(0, 200, 50, 50));
    EXPECT_EQ(one->convertPointToView({1, 1}, subviewOf(other, {10, 10, 5, 5})), (Point{91, -209}));
}

TEST(UIViewGeometryTest, ViewScaledToNothingConvertsToSomethingFinite) {
    const auto root = make<UIView>(Rect(0, 0, 100, 100));
    const auto child = subviewOf(root, {10, 10, 20, 20});
    child->setTransform(AffineTransform::scale(0, 0));
    const Point point = root->convertPointToView({10, 10}, child);
    EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
}

TEST(UIViewGeometryTest, SizeToFitKeepsTheOrigin) {
    class Fitting final : public UIView {
        ZN_OBJECT(Fitting, UIView)
    public:
        using UIView::UIView;
        Size sizeThatFits(Size size) const override { return {size.width * 2, 33}; }
    };
    const auto view = make<Fitting>(Rect(10, 20, 30, 40));
    view->sizeToFit();
    EXPECT_EQ(view->frame(), Rect(10, 20, 60, 33));
    const auto plain = make<UIView>(Rect(10, 20, 30, 40));
    plain->sizeToFit();
    EXPECT_EQ(plain->frame(), Rect(10, 20, 30, 40));
}

}  // namespace
}  // namespace zn
