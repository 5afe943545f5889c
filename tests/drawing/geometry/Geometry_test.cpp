#include "zarnic/platform/drawing/Geometry.h"

#include <gtest/gtest.h>

#include <numbers>

#include "zarnic/platform/drawing/NSValue.h"

namespace zn {
namespace {

TEST(Rect, standardisesNegativeSizesEverywhere) {
    const Rect rect{10, 20, -4, -6};
    EXPECT_EQ(rect.standardized(), Rect(6, 14, 4, 6));
    EXPECT_EQ(rect.minX(), 6);
    EXPECT_EQ(rect.maxY(), 20);
    EXPECT_EQ(rect.width(), 4);
    EXPECT_EQ(rect.center(), (Point{8, 17}));
    EXPECT_TRUE(rect.contains(Point{6, 14}));
    EXPECT_EQ(rect.offsetBy(1, 1), Rect(7, 15, 4, 6));
}

TEST(Rect, containsItsMinimumEdgesButNotItsMaximumEdges) {
    const Rect rect{0, 0, 10, 10};
    EXPECT_TRUE(rect.contains(Point{0, 0}));
    EXPECT_FALSE(rect.contains(Point{10, 5}));
    EXPECT_FALSE(rect.contains(Point{5, 10}));
    EXPECT_FALSE(Rect(5, 5, 0, 3).contains(Point{5, 5}));
    EXPECT_TRUE(rect.contains(Rect(0, 0, 10, 10)));
    EXPECT_FALSE(rect.contains(Rect(0, 0, 10.5, 10)));
}

TEST(Rect, nullTakesNoPartInAnything) {
    const Rect null = Rect::null();
    const Rect rect{1, 2, 3, 4};
    EXPECT_TRUE(null.isEmpty());
    EXPECT_FALSE(Rect().isNull());
    EXPECT_TRUE(Rect().isEmpty());
    EXPECT_EQ(null.unionWith(rect), rect);
    EXPECT_EQ(rect.unionWith(null), rect);
    EXPECT_TRUE(rect.intersection(null).isNull());
    EXPECT_TRUE(null.integral().isNull());
    EXPECT_TRUE(null.offsetBy(1, 1).isNull());
    EXPECT_TRUE(AffineTransform::scale(2, 2).apply(null).isNull());
    EXPECT_FALSE(null.contains(Point{0, 0}));
}

TEST(Rect, cutsJoinsAndRoundsOutward) {
    const Rect rect{0, 0, 10, 10};
    EXPECT_EQ(rect.intersection({5, 5, 10, 10}), Rect(5, 5, 5, 5));
    EXPECT_TRUE(rect.intersection({10, 0, 5, 5}).isNull());
    EXPECT_EQ(rect.unionWith({20, -5, 1, 1}), Rect(0, -5, 21, 15));
    EXPECT_EQ(Rect(-0.5, 1.2, 2, 2).integral(), Rect(-1, 1, 3, 3));
    EXPECT_TRUE(rect.insetBy(6, 0).isNull());
    EXPECT_EQ(rect.insetBy(EdgeInsets{1, 2, 3, 4}), Rect(2, 1, 4, 6));
}

TEST(AffineTransform, appliesTheLatestChangeFirst) {
    const auto transform = AffineTransform::translation(10, 0).scaledBy(2, 3);
    EXPECT_EQ(transform.apply(Point{1, 1}), (Point{12, 3}));
    EXPECT_EQ(
        AffineTransform::scale(2, 2).concat(AffineTransform::translation(1, 0)).apply(Point{1, 1}),
        (Point{3, 2}));
    const Point turned = AffineTransform::rotation(std::numbers::pi / 2).apply(Point{1, 0});
    EXPECT_NEAR(turned.x, 0, 1e-12);
    EXPECT_NEAR(turned.y, 1, 1e-12);
}

TEST(AffineTransform, invertsUnlessItFlattens) {
    const auto transform = AffineTransform::rotation(0.7).scaledBy(3, -0.5).translatedBy(4, 5);
    const auto identity = transform.concat(*transform.inverted());
    EXPECT_NEAR(identity.a, 1, 1e-12);
    EXPECT_NEAR(identity.b, 0, 1e-12);
    EXPECT_NEAR(identity.tx, 0, 1e-12);
    EXPECT_FALSE(AffineTransform::scale(0, 1).inverted());
    EXPECT_FALSE(AffineTransform::scale(std::nan(""), 1).inverted());
}

TEST(NSValue, keepsTheStructureAndItsKind) {
    const auto rect = NSValue::valueWithCGRect({1, 2, 3, 4});
    EXPECT_EQ(rect->rectValue(), Rect(1, 2, 3, 4));
    EXPECT_EQ(rect->pointValue(), Point{});
    EXPECT_TRUE(rect->isEqual(*NSValue::valueWithCGRect({1, 2, 3, 4})));
    EXPECT_EQ(rect->hash(), NSValue::valueWithCGRect({1, 2, 3, 4})->hash());
    EXPECT_FALSE(NSValue::valueWithCGPoint({1, 2})->isEqual(*NSValue::valueWithCGSize({1, 2})));
    EXPECT_EQ(rect->description(), "NSRect: {{1, 2}, {3, 4}}");
    EXPECT_TRUE(NSValue::valueWithCGSize({})->affineTransformValue().isIdentity());
}

}  // namespace
}  // namespace zn
