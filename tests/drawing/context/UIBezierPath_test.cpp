#include "zarnic/platform/drawing/UIBezierPath.h"

#include <gtest/gtest.h>

#include <numbers>

namespace zn {
namespace {

using std::numbers::pi;

TEST(CGPath, boundsAreThoseOfTheCurveNotOfItsControlPoints) {
    CGPath path;
    path.moveTo({0, 0});
    path.curveTo({10, 0}, {0, 40}, {10, 40});
    EXPECT_NEAR(path.bounds().maxY(), 30, 1e-9);
    EXPECT_EQ(path.bounds().width(), 10);
    const Rect circle = CGPath::ellipse({10, 20, 30, 40}).bounds();
    EXPECT_NEAR(circle.minX(), 10, 0.01);
    EXPECT_NEAR(circle.maxY(), 60, 0.01);
    EXPECT_TRUE(CGPath{}.bounds().isNull());
}

TEST(CGPath, arcsGoTheAskedWayAndAFullTurnIsOneTurn) {
    struct Case {
        double start, end;
        bool clockwise;
        Point middle;
        bool inside;
    };
    // A quarter from right to below, against three quarters the other way round.
    for (const Case& test :
         {Case{0, pi / 2, true, {5, 5}, true}, Case{0, pi / 2, true, {-5, -5}, false},
          Case{0, pi / 2, false, {-5, -5}, true}, Case{0, 2 * pi, true, {-5, 5}, true},
          Case{0, 2 * pi, false, {-5, 5}, true}, Case{0, 7 * pi, true, {-5, 5}, true}}) {
        CGPath path;
        path.moveTo({0, 0});
        path.arc({0, 0}, 10, test.start, test.end, test.clockwise);
        path.close();
        EXPECT_EQ(path.contains(test.middle), test.inside)
            << test.start << " to " << test.end << " clockwise " << test.clockwise;
    }
}

TEST(CGPath, containsByWindingOrByParity) {
    CGPath path = CGPath::rect({0, 0, 30, 30});
    path.append(CGPath::rect({10, 10, 10, 10}));
    EXPECT_TRUE(path.contains({15, 15}));
    EXPECT_FALSE(path.contains({15, 15}, true));
    EXPECT_TRUE(path.contains({5, 5}, true));
    EXPECT_FALSE(path.contains({35, 15}));
    CGPath open;
    open.moveTo({0, 0});
    open.lineTo({10, 0});
    open.lineTo({0, 10});
    EXPECT_TRUE(open.contains({2, 2}));
}

TEST(CGPath, cutsCornersLargerThanHalfASide) {
    const CGPath capsule = CGPath::roundedRect({0, 0, 100, 20}, 50);
    EXPECT_FALSE(capsule.contains({1, 1}));
    EXPECT_TRUE(capsule.contains({50, 0.5}));
    EXPECT_NEAR(capsule.bounds().width(), 100, 1e-6);
    EXPECT_EQ(CGPath::roundedRect({0, 0, 10, 10}, 0), CGPath::rect({0, 0, 10, 10}));
}

TEST(CGPath, knowsItsCurrentPoint) {
    CGPath path;
    path.lineTo({3, 4});
    EXPECT_EQ(path.elements().front().verb, CGPath::Verb::Move);
    path.quadCurveTo({9, 4}, {6, 8});
    EXPECT_EQ(path.currentPoint(), (Point{9, 4}));
    path.close();
    path.close();
    EXPECT_EQ(path.currentPoint(), (Point{3, 4}));
    EXPECT_EQ(path.elements().size(), 3U);
    path.append(path);
    EXPECT_EQ(path.elements().size(), 6U);
    path.transform(AffineTransform::translation(1, 1));
    EXPECT_EQ(path.currentPoint(), (Point{4, 5}));
}

}  // namespace
}  // namespace zn
