#include <random>

#include "tests/layers/Screen.h"
#include "zarnic/platform/layers/CAGradientLayer.h"

namespace zn {
namespace {

using testing::ElementsAre;

class ScrollTest : public testing::Test {
protected:
    explicit ScrollTest(double scale = 1) : screen({200, 200}, scale) {
        page->setMasksToBounds(true);
        for (int row = 0; row < 20; ++row)
            page->addSublayer(boxLayer({10, row * 50.0, 100, 40}, row % 2 ? red : blue));
        show();
    }

    /// What changes until the next time changes at once.
    static void flush() {
        CATransaction::flush();
        CATransaction::setDisableActions(true);
    }
    std::vector<PixelRect> show() {
        flush();
        return screen.compositor.composite();
    }
    void scrollTo(Point origin) { page->setBounds({origin, page->bounds().size}); }
    /// Between the screen and the model drawn apart from it, so that a fault stays to be seen.
    int difference() {
        const auto context = CGContext::image({200, 200}, false, screen.compositor.scale());
        screen.root->renderInContext(context);
        return largestDifference(screen.compositor.snapshot(), context->makeImage());
    }
    int differenceAfterShow() {
        show();
        return difference();
    }
    std::size_t pixelsPainted() const { return screen.compositor.statistics().pixelsRepainted; }

    Screen screen;
    Ref<CALayer> page = screen.add({20, 20, 150, 150}, white);
};

TEST_F(ScrollTest, OnlyWhatAppearsIsPainted) {
    scrollTo({0, 35});
    EXPECT_THAT(show(), ElementsAre(PixelRect{20, 20, 150, 150}));
    EXPECT_EQ(pixelsPainted(), 150u * 35);
    EXPECT_EQ(screen.pixel(30, 20), "ff0000ff");
    EXPECT_EQ(screen.pixel(30, 35), "ffff0000");
    for (const Point offset : {Point{-10, 20}, Point{-10, 1000}, Point{-10, 900}, Point{5, 900}}) {
        scrollTo(offset);
        EXPECT_EQ(differenceAfterShow(), 0);
    }
}

TEST_F(ScrollTest, WhatLiesOverTheContentStaysWhereItIs) {
    screen.add({50, 50, 50, 20}, green);
    const auto indicator = boxLayer({130, 0, 10, 40}, black);
    indicator->setZPosition(1);
    page->insertSublayer(indicator, 0);
    show();
    scrollTo({0, 25});
    indicator->setFrame({130, 30, 10, 40});
    show();
    EXPECT_LT(pixelsPainted(), 150u * 150 / 2);
    EXPECT_EQ(screen.pixel(55, 55), "ff00ff00");
    EXPECT_EQ(screen.pixel(155, 30), "ff000000");
    EXPECT_EQ(difference(), 0);
}

TEST_F(ScrollTest, ContentThatChangesOnTheWayIsPaintedWhereItGoes) {
    const auto row = page->sublayers()[1];
    scrollTo({0, 25});
    row->setBackgroundColor(green);
    page->sublayers()[2]->removeFromSuperlayer();
    page->sublayers()[2]->setPosition({60, 130});
    show();
    EXPECT_EQ(screen.pixel(30, 50), "ff00ff00");
    EXPECT_EQ(difference(), 0);
}

TEST_F(ScrollTest, WhatIsNotedBeforeThePaintAddsUp) {
    const auto other = screen.add({0, 0, 20, 20}, red);
    show();
    for (const double offset : {25, 45, 90}) {
        scrollTo({0, offset});
        page->sublayers()[2]->setBackgroundColor({offset / 90, 1, 0, 1});
        // The picture that a transition begins with brings the screen's knowledge up to date.
        other->addAnimation(make<CATransition>(), {});
        flush();
    }
    EXPECT_EQ(differenceAfterShow(), 0);
    EXPECT_LT(pixelsPainted(), 150u * 150);
}

TEST_F(ScrollTest, APageWithoutBackgroundScrollsOverAPlainOne) {
    page->setBackgroundColor({});
    show();
    scrollTo({0, 15});
    show();
    EXPECT_EQ(pixelsPainted(), 150u * 15);
    EXPECT_EQ(difference(), 0);
}

/// How the page, or what is around it, may be so that its pixels do not simply go along.
using Spoil = void (*)(Screen&, CALayer& page);
class ScrollWhole : public ScrollTest, public testing::WithParamInterface<Spoil> {};

TEST_P(ScrollWhole, IsPaintedWhole) {
    GetParam()(screen, *page);
    show();
    scrollTo({0, 15});
    show();
    EXPECT_GE(pixelsPainted(), 100u * 140);
    EXPECT_LE(difference(), 4);
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, ScrollWhole,
    testing::Values([](Screen&, CALayer& page) { page.setCornerRadius(40); },
                    [](Screen&, CALayer& page) { page.setBorderWidth(5); },
                    [](Screen&, CALayer& page) { page.setOpacity(0.5); },
                    [](Screen&, CALayer& page) {
                        page.setAffineTransform(AffineTransform::scale(0.97, 0.97));
                    },
                    [](Screen&, CALayer& page) {
                        page.setMask(boxLayer({0, 0, 150, 150}, black));
                    },
                    [](Screen& screen, CALayer& page) {
                        page.setBackgroundColor({});
                        const auto ground = make<CAGradientLayer>();
                        ground->setColors({red, blue});
                        ground->setFrame({0, 0, 200, 200});
                        screen.root->insertSublayer(ground, 0);
                    },
                    [](Screen& screen, CALayer& page) {
                        page.setBackgroundColor({1, 1, 1, 0.5});
                        screen.root->insertSublayer(boxLayer({50, 50, 50, 50}, red), 0);
                    }));

class RandomScroll : public ScrollTest, public testing::WithParamInterface<unsigned> {
protected:
    RandomScroll() : ScrollTest(1 + GetParam() % 3), random_(GetParam()) {
        inner_->setMasksToBounds(true);
        for (int row = 0; row < 9; ++row)
            inner_->addSublayer(boxLayer({0, row * 25.0, 45, 17.5}, green));
        page->addSublayer(inner_);
    }

    void step() {
        switch (random_() % 13) {
            case 0:
                return inner_->setBounds({{0, whole(60)}, inner_->bounds().size});
            case 1:
                return over_->setFrame({whole(200), whole(200), whole(90), whole(90)});
            case 2:
                return over_->setHidden(!over_->hidden());
            case 3:
                return any()->setBackgroundColor(random_() % 2 ? red : CGColor{0, 1, 0, 0.5});
            case 4:
                return any()->setPosition({whole(150) + 0.25 * whole(4), whole(400)});
            case 5:
                return page->setPosition({75 + whole(45), 75 + whole(45)});
            case 6:
                if (over_->superlayer())
                    return over_->removeFromSuperlayer();
                return screen.root->addSublayer(over_);
            case 7:
                return any()->setOpacity(random_() % 2 ? 1 : 0.5);
            case 8:
                return scrollTo({0.25 * whole(9), whole(300) / 3});
            default:
                return scrollTo({whole(4), whole(100)});
        }
    }

private:
    double whole(unsigned bound) { return static_cast<double>(random_() % bound); }
    Ref<CALayer> any() { return page->sublayers()[random_() % page->sublayers().size()]; }

    std::mt19937 random_;
    Ref<CALayer> inner_ = boxLayer({25, 60, 60, 60}, white);
    Ref<CALayer> over_ = screen.add({0, 150, 200, 25}, {0, 0, 0, 0.5});
};

TEST_P(RandomScroll, EqualsPaintingAll) {
    for (int turn = 0; turn < 60; ++turn) {
        for (unsigned i = 0; i <= static_cast<unsigned>(turn) % 3; ++i)
            step();
        ASSERT_EQ(differenceAfterShow(), 0) << "turn " << turn;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomScroll, testing::Range(1u, 31u));

}  // namespace
}  // namespace zn
