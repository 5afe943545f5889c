#include "zarnic/platform/layers/CALayer.h"

#include <cmath>
#include <numbers>

#include "tests/layers/Screen.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

void expectNear(Point point, double x, double y) {
    EXPECT_NEAR(point.x, x, 1e-9);
    EXPECT_NEAR(point.y, y, 1e-9);
}

TEST(CALayerGeometryTest, FrameFollowsPositionAnchorAndBounds) {
    auto layer = make<CALayer>();
    layer->setFrame({10, 20, 30, 40});
    expectNear(layer->position(), 25, 40);
    EXPECT_EQ(layer->bounds(), Rect(0, 0, 30, 40));
    layer->setAnchorPoint({0, 0});
    EXPECT_EQ(layer->frame(), Rect(25, 40, 30, 40));
    layer->setFrame({40, 40, -10, -20});
    EXPECT_EQ(layer->frame(), Rect(30, 20, 10, 20));
    layer->setBounds({5, 6, 100, 50});
    expectNear(layer->position(), 30, 20);
    EXPECT_EQ(layer->frame(), Rect(30, 20, 100, 50));
}

TEST(CALayerGeometryTest, FrameOfATurnedLayerIsItsBox) {
    auto layer = make<CALayer>();
    layer->setFrame({0, 0, 40, 20});
    layer->setAffineTransform(AffineTransform::rotation(std::numbers::pi / 2));
    Rect frame = layer->frame();
    expectNear(frame.origin, 10, -10);
    EXPECT_NEAR(frame.size.width, 20, 1e-9);
    EXPECT_NEAR(frame.size.height, 40, 1e-9);
    layer->setAffineTransform(AffineTransform::scale(2, 2));
    layer->setFrame({0, 0, 100, 100});
    EXPECT_EQ(layer->bounds().size, (Size{50, 50}));
    expectNear(layer->position(), 50, 50);
}

TEST(CALayerGeometryTest, RefusesWhatIsNotANumber) {
    auto layer = make<CALayer>();
    layer->setPosition({1, 2});
    EXPECT_THROW(layer->setPosition({NAN, 0}), NSException);
    EXPECT_THROW(layer->setBounds({0, 0, NAN, 1}), NSException);
    EXPECT_THROW(layer->setFrame({NAN, 0, 1, 1}), NSException);
    expectNear(layer->position(), 1, 2);
}

TEST(CALayerGeometryTest, ConvertsAcrossTheTree) {
    auto root = boxLayer({0, 0, 200, 200}, white);
    auto left = boxLayer({10, 10, 50, 50}, red);
    auto right = boxLayer({100, 20, 50, 50}, red);
    root->addSublayer(left);
    root->addSublayer(right);
    right->setBounds({0, 30, 50, 50});
    right->setAffineTransform(AffineTransform::scale(2, 2));
    expectNear(left->convertPointToLayer({1, 1}, root), 11, 11);
    expectNear(left->convertPointToLayer({1, 1}, nullptr), 11, 11);
    // The box of the scaled layer begins at (75, -5), which shows (0, 30).
    expectNear(right->convertPointFromLayer({75, -5}, root), 0, 30);
    expectNear(left->convertPointToLayer({65, -15}, right), 0, 30);
    expectNear(right->convertPointFromLayer({65, -15}, left), 0, 30);
    right->setAffineTransform(AffineTransform::scale(0, 0));
    EXPECT_NO_THROW(left->convertPointToLayer({1, 1}, right));
}

TEST(CALayerTreeTest, InsertsMovesAndRemoves) {
    auto parent = make<CALayer>();
    auto a = make<CALayer>(), b = make<CALayer>(), c = make<CALayer>();
    parent->addSublayer(a);
    parent->addSublayer(b);
    parent->insertSublayer(c, 99);
    EXPECT_THAT(parent->sublayers(), ElementsAre(a, b, c));
    parent->insertSublayerBelow(c, b);
    EXPECT_THAT(parent->sublayers(), ElementsAre(a, c, b));
    parent->insertSublayerAbove(a, b);
    EXPECT_THAT(parent->sublayers(), ElementsAre(c, b, a));
    parent->insertSublayer(a, 0);
    EXPECT_THAT(parent->sublayers(), ElementsAre(a, c, b));
    c->addSublayer(b);
    EXPECT_THAT(parent->sublayers(), ElementsAre(a, c));
    EXPECT_EQ(b->superlayer(), c);
    b->removeFromSuperlayer();
    EXPECT_EQ(b->superlayer(), nullptr);
    EXPECT_THAT(c->sublayers(), IsEmpty());
}

TEST(CALayerTreeTest, RefusesCyclesAndNothing) {
    auto parent = make<CALayer>(), child = make<CALayer>();
    parent->addSublayer(child);
    EXPECT_THROW(child->addSublayer(parent), NSException);
    EXPECT_THROW(child->addSublayer(child), NSException);
    EXPECT_THROW(child->setMask(parent), NSException);
    EXPECT_THROW(parent->addSublayer(nullptr), NSException);
    EXPECT_THAT(parent->sublayers(), ElementsAre(child));
}

TEST(CALayerTreeTest, MaskIsTakenOutOfItsTree) {
    auto parent = make<CALayer>(), masked = make<CALayer>(), mask = make<CALayer>();
    parent->addSublayer(masked);
    parent->addSublayer(mask);
    masked->setMask(mask);
    EXPECT_THAT(parent->sublayers(), ElementsAre(masked));
    EXPECT_EQ(mask->superlayer(), nullptr);
    parent->addSublayer(mask);
    EXPECT_EQ(masked->mask(), nullptr);
    EXPECT_THAT(parent->sublayers(), SizeIs(2));
}

TEST(CALayerTreeTest, SublayersOutliveTheirParent) {
    auto child = make<CALayer>();
    {
        auto parent = make<CALayer>();
        parent->addSublayer(child);
    }
    EXPECT_EQ(child->superlayer(), nullptr);
}

}  // namespace
}  // namespace zn
