#include "tests/uikit/scrolling/ScrollFixture.h"

namespace zn::test {
namespace {

class ScrollIndicatorTest : public ScrollTest {
protected:
    /// The bars that can be seen, in the window's coordinates.
    std::vector<Rect> bars() const {
        std::vector<Rect> found;
        for (const Ref<CALayer>& layer : view->layer()->sublayers())
            if (layer->name() == "scroll indicator" && layer->opacity() > 0)
                found.push_back(layer->frame().offsetBy(-x(), -y()));
        return found;
    }
};

TEST_F(ScrollIndicatorTest, ShowsWhichPartOneSees) {
    view->setContentSize({375, 667 * 4});
    view->setScrollIndicatorInsets({20, 0, 30, 0});
    const double track = 667 - 50 - 6;
    const auto barAt = [this](double offset) {
        view->setContentOffset({0, offset}, false);
        view->flashScrollIndicators();
        EXPECT_EQ(bars().size(), 1u);
        return bars().empty() ? Rect() : bars().front();
    };
    const Rect top = barAt(0);
    EXPECT_EQ(top.minY(), 23);
    EXPECT_NEAR(top.height(), track / 4, 0.01);
    EXPECT_NEAR(top.maxX(), 372, 0.01);
    EXPECT_NEAR(barAt(667 * 3).maxY(), 23 + track, 0.01);
    EXPECT_NEAR(barAt(667 * 1.5).midY(), 23 + track / 2, 0.01);
    // Squeezed at the edges.
    EXPECT_EQ(barAt(-100).minY(), 23);
    EXPECT_NEAR(barAt(-100).height(), track / 4 - 100, 0.01);
    EXPECT_NEAR(barAt(667 * 3 + 400).maxY(), 23 + track, 0.01);
    EXPECT_EQ(barAt(667 * 3 + 400).height(), 7);
    view->setContentSize({375, 1e6});
    EXPECT_EQ(barAt(0).height(), 36);
}

TEST_F(ScrollIndicatorTest, ComeWithAFingerAndGoWhenItRests) {
    view->setContentSize({2000, 2000});
    EXPECT_TRUE(bars().empty());
    view->setContentOffset({50, 50}, false);
    EXPECT_TRUE(bars().empty());
    fling({100, 500}, {100, 300}, 0.1);
    EXPECT_EQ(bars().size(), 2u);
    play("+2");
    EXPECT_EQ(bars().size(), 2u) << "as long as the finger is there";
    play("u +0.2");
    EXPECT_EQ(bars().size(), 2u);
    play("+0.2");
    EXPECT_TRUE(bars().empty());
    view->setShowsHorizontalScrollIndicator(false);
    flick({100, 500}, {100, 300}, 0.1);
    EXPECT_EQ(bars().size(), 1u);
    view->setShowsVerticalScrollIndicator(false);
    EXPECT_TRUE(bars().empty());
    EXPECT_EQ(view->subviews().size(), 0u);
    view->setShowsVerticalScrollIndicator(true);
    view->setContentSize({375, 100});
    view->flashScrollIndicators();
    EXPECT_TRUE(bars().empty()) << "nothing to scroll";
}

}  // namespace
}  // namespace zn::test
