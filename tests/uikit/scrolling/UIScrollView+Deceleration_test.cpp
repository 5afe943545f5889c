#include "tests/uikit/scrolling/ScrollFixture.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/foundation/NSTimer.h"

namespace zn::test {
namespace {

/// Half a point: where a movement counts as over.
constexpr double nearly = 0.5;

class ScrollDecelerationTest : public ScrollTest {
protected:
    /// Lets go of the content at this speed (points a second, of the offset).
    void release(double velocity) {
        fling({100, 350}, {100, 350 - velocity * 0.1}, 0.1);
        application->touchUp(1, {100, 350 - velocity * 0.1});
    }
};

TEST_F(ScrollDecelerationTest, FliesAsFarAsTheFormulaSays) {
    for (const double rate : {UIScrollViewDecelerationRateNormal, UIScrollViewDecelerationRateFast})
        for (const double velocity : {200.0, 1000.0, 3000.0, -1500.0}) {
            view->setContentOffset({0, 2200}, false);
            view->setDecelerationRate(rate);
            release(velocity);
            const double released = y();
            EXPECT_NEAR(std::abs(released - 2200), std::abs(velocity * 0.1) - 10, 0.5)
                << "it follows the finger but for the first ten points";
            clock.advance(10);
            EXPECT_NEAR(y() - released, -velocity / (1000 * std::log(rate)), nearly);
            EXPECT_FALSE(view->isDecelerating());
        }
}

TEST_F(ScrollDecelerationTest, IsAtTheSamePlaceAtAnyFrameRate) {
    struct Case {
        double velocity;
        double start;
        bool paging;
    };
    const Case cases[] = {{1500, 100, false}, {3000, 3600, false}, {-2500, 300, false},
                          {-400, -80, false}, {900, 700, true},    {-900, 100, true},
                          {2500, 4300, true}};
    for (const Case& each : cases) {
        std::vector<std::vector<double>> paths;
        for (const double rate : {30.0, 60.0, 120.0}) {
            UIScreen::mainScreen()->setMaximumFramesPerSecond(rate);
            view->removeFromSuperview();
            view = make<UIScrollView>(window->bounds());
            view->setContentSize({375, 5000});
            view->setPagingEnabled(each.paging);
            view->setContentOffset({0, each.start});
            window->addSubview(view);
            release(each.velocity);
            clock.advance(1e-6);
            std::vector<double> path;
            for (int frame = 0; frame < 120; ++frame) {
                path.push_back(y());
                clock.advance(1.0 / 30);
            }
            clock.advance(8);
            path.push_back(y());
            paths.push_back(path);
        }
        EXPECT_EQ(paths[0], paths[1]) << each.velocity << " from " << each.start;
        EXPECT_EQ(paths[0], paths[2]) << each.velocity << " from " << each.start;
        EXPECT_NE(paths[0].front(), paths[0].back());
    }
}

TEST_F(ScrollDecelerationTest, ReachesEdgesAndComesBackToThem) {
    struct Case {
        double velocity;
        double start;
        bool bounces;
        double end;
    };
    const Case cases[] = {{-3000, 400, true, -20},  {-3000, 400, false, -20},
                          {4000, 4000, true, 4343}, {4000, 4000, false, 4343},
                          {150, -200, true, -20},   {-150, 4500, true, 4343}};
    view->setContentInset({20, 0, 10, 0});
    for (const Case& each : cases) {
        double furthest = 0;
        listener->whenScrolled = {};
        view->setBounces(each.bounces);
        view->setContentOffset({0, each.start}, false);
        listener->whenScrolled = [&](const UIScrollView& scrolled) {
            const double offset = scrolled.contentOffset().y;
            furthest = std::max({furthest, -20 - offset, offset - 4343});
        };
        release(each.velocity);
        clock.advance(10);
        EXPECT_EQ(y(), each.end) << each.velocity;
        EXPECT_EQ(furthest > 10, each.bounces) << furthest;
        EXPECT_LT(furthest, 200);
    }
}

TEST_F(ScrollDecelerationTest, PagesByFlickAndByHalf) {
    view->setContentSize({375 * 5 + 100, 667});
    view->setPagingEnabled(true);
    struct Case {
        double start;
        double dragged;
        double seconds;
        double end;
    };
    const Case cases[] = {
        {0, 60, 0.1, 375},                         // a short flick
        {0, 330, 0.05, 375},                       // a wild one
        {750, -60, 0.1, 375},                      // the other way
        {375, 180, 2, 375},                        // slowly, less than half
        {375, 210, 2, 750},                        // slowly, more than half
        {375, -210, 2, 0},     {0, -200, 0.2, 0},  // at the first page
        {1600, 200, 0.1, 1600}                     // at the last one, which is not a whole page
    };
    for (const Case& each : cases) {
        view->setContentOffset({each.start, 0}, false);
        flick({187, 300}, {187 - each.dragged, 300}, each.seconds);
        clock.advance(5);
        EXPECT_EQ(x(), each.end) << each.start << " " << each.dragged;
    }
}

TEST_F(ScrollDecelerationTest, WithoutASizeThereAreNoPages) {
    view->setPagingEnabled(true);
    view->setFrame({0, 0, 0, 0});
    view->setContentSize({0, 0});
    view->setAlwaysBounceVertical(true);
    listener->whenScrolled = [](UIScrollView& scrolled) { scrolled.setContentOffset({0, 0}); };
    view->setContentOffset({0, 0});
    view->setContentOffset({10, 10}, true);
    clock.advance(1);
    EXPECT_EQ(view->contentOffset(), (Point{0, 0}));
    EXPECT_LE(listener->scrolls, 80);
    // A finger cannot reach it, but a gesture that began may outlive the size.
    view->setFrame({0, 0, 375, 667});
    fling({100, 100}, {100, 300}, 0.1);
    view->setFrame({0, 0, 0, 0});
    play("m100,400 u +5");
    EXPECT_EQ(y(), 0);
}

TEST_F(ScrollDecelerationTest, TheDelegateMayChooseTheEnd) {
    for (const double wish : {3000.0, 1234.5, 100.0, 500.0, 9000.0, -50.0}) {
        view->setContentOffset({0, 500}, false);
        Point velocity, proposed;
        listener->whenReleased = [&](const UIScrollView&, Point speed, Point& target) {
            velocity = speed;
            proposed = target;
            target.y = wish;
        };
        release(1000);
        EXPECT_NEAR(velocity.y, 1, 1e-6) << "points a millisecond";
        EXPECT_NEAR(proposed.y, 590 + 499.5, 1);
        clock.advance(10);
        EXPECT_EQ(y(), std::clamp(wish, 0.0, 4333.0));
    }
    listener->whenReleased = nullptr;
}

TEST_F(ScrollDecelerationTest, FrameAndContentMayChangeOnTheWay) {
    release(3000);
    clock.advance(0.1);
    view->setContentSize({375, 900});
    clock.advance(5);
    EXPECT_EQ(y(), 900 - 667);
    view->setContentSize({375, 5000});
    view->setContentOffset({0, 500}, false);
    release(1000);
    clock.advance(0.1);
    const double before = y();
    view->setContentOffset({0, before + 1000});
    EXPECT_TRUE(view->isDecelerating()) << "it flies on from there";
    clock.advance(10);
    EXPECT_NEAR(y(), 500 + 90 + 499.5 + 1000, 1);
}

TEST_F(ScrollDecelerationTest, PagesStayPagesWhenTheHandlerMovesThem) {
    view->setPagingEnabled(true);
    view->setContentSize({375 * 5, 667});
    view->setContentOffset({375, 0}, false);
    // An endless row of three pages, with a copy at either end.
    listener->whenScrolled = [](UIScrollView& scrolled) {
        const double offset = scrolled.contentOffset().x;
        if (offset >= 375 * 4)
            scrolled.setContentOffset({offset - 375 * 3, 0});
        else if (offset <= 0)
            scrolled.setContentOffset({offset + 375 * 3, 0});
    };
    std::vector<double> pages;
    for (const double dragged : {150.0, 150.0, 150.0, 150.0, -150.0, -150.0, -150.0}) {
        flick({187, 300}, {187 - dragged, 300}, 0.1);
        clock.advance(5);
        pages.push_back(x() / 375);
    }
    EXPECT_THAT(pages, testing::ElementsAre(2, 3, 1, 2, 1, 3, 2));
}

TEST_F(ScrollDecelerationTest, TimersOfTheDefaultModeWait) {
    int plain = 0, common = 0;
    const auto loop = NSRunLoop::mainRunLoop();
    const auto first = NSTimer::timerWithTimeInterval(0.05, true, [&](const auto&) { ++plain; });
    const auto second = NSTimer::timerWithTimeInterval(0.05, true, [&](const auto&) { ++common; });
    loop->addTimer(first, NSRunLoopMode::Default);
    loop->addTimer(second, NSRunLoopMode::Common);
    fling({100, 600}, {100, 400}, 0.1);
    plain = common = 0;
    clock.advance(0.2);
    application->touchUp(1, {100, 400});
    clock.advance(0.2);
    EXPECT_GT(plain, 0) << "a finger that rested leaves no flight";
    release(2000);
    plain = common = 0;
    clock.advance(0.3);
    EXPECT_EQ(plain, 0);
    EXPECT_GE(common, 5);
    view->removeFromSuperview();
    EXPECT_FALSE(view->isDecelerating()) << "out of sight it is at its end";
    clock.advance(0.2);
    EXPECT_GT(plain, 0);
    first->invalidate();
    second->invalidate();
}

}  // namespace
}  // namespace zn::test
