#include "tests/uikit/controllers/NavigationFixture.h"

namespace zn {
namespace {

using ::testing::ElementsAre;
constexpr double width = 375;

class BackSwipeTest : public NavigationTest {
protected:
    BackSwipeTest() {
        showOnScreen();
        navigation->pushViewController(b, false);
        record.clear();
    }
    /// The finger comes down at the edge and rests after `distance` points.
    void drag(double distance) {
        stage.touchDown({2, 300});
        stage.touchMove({2 + distance / 2, 300});
        stage.touchMove({2 + distance, 300});
        stage.advance(0.2);
    }
    void letGo(double distance) {
        stage.touchUp({2 + distance, 300});
        stage.advance(1);
    }
    static double shownX(const Ref<UIViewController>& screen) {
        return screen->view()->layer()->presentationFrame().minX();
    }
};

TEST_F(BackSwipeTest, ScreensFollowTheFinger) {
    drag(100);
    EXPECT_EQ(shownX(b), 100);
    EXPECT_NEAR(shownX(a), -0.3 * width * (1 - 100 / width), 1e-9);
    EXPECT_EQ(navigation->topViewController(), a) << "popped, as long as nobody changes his mind";
    EXPECT_EQ(b->navigationController(), navigation);
    EXPECT_THAT(record, ElementsAre("show", "b-", "a+"));
    stage.touchMove({22, 300});
    EXPECT_EQ(shownX(b), 20);
    stage.touchMove({302, 300});
    EXPECT_EQ(shownX(b), 300);
    letGo(300);
    EXPECT_THAT(record, ElementsAre("show", "b-", "a+", "B-", "A+", "shown"));
    EXPECT_EQ(shownX(a), 0);
    EXPECT_FALSE(b->view()->window());
    EXPECT_FALSE(b->navigationController());
    EXPECT_EQ(a->view()->superview()->subviews().size(), 1u) << "nothing is left behind";
}

TEST_F(BackSwipeTest, LetGoBeforeTheMiddleItIsAsIfNothingHadBeen) {
    a->setTitle("First");
    b->setTitle("Second");
    drag(150);
    stage.touchUp({152, 300});
    EXPECT_EQ(navigation->viewControllers(), (std::vector<Ref<UIViewController>>{a, b}));
    stage.advance(0.05);
    EXPECT_GT(shownX(b), 0);
    stage.advance(1);
    EXPECT_THAT(record, ElementsAre("show", "b-", "a+", "show", "a-", "b+", "A-", "B+", "shown"));
    EXPECT_EQ(shownX(b), 0);
    EXPECT_FALSE(a->view()->window());
    EXPECT_EQ(b->navigationController(), navigation);
    EXPECT_EQ(navigation->navigationBar()->items().back()->title(), "Second");
    navigation->popViewControllerAnimated(false);
    EXPECT_EQ(navigation->topViewController(), a);
}

TEST_F(BackSwipeTest, PlaceAndPaceTogetherDecide) {
    struct Case {
        double from, to, seconds;
        bool back;
    };
    const Case cases[] = {{0, 200, 2, true},      {0, 160, 2, false},  {0, 60, 0.05, true},
                          {0, 60, 0.5, false},    {0, 100, 0.1, true}, {0, 11, 1, false},
                          {0, width - 3, 1, true}};
    for (const Case& each : cases) {
        stage.drag({2 + each.from, 300}, {2 + each.to, 300}, each.seconds);
        stage.advance(1);
        EXPECT_EQ(navigation->topViewController() == a, each.back) << each.to;
        if (each.back)
            navigation->pushViewController(b, false);
    }
    // Far in, then quickly back to the edge.
    drag(220);
    stage.touchMove({180, 300});
    stage.advance(0.02);
    stage.touchMove({140, 300});
    letGo(138);
    EXPECT_EQ(navigation->topViewController(), b);
}

TEST_F(BackSwipeTest, TheBarGoesAlongAndComesBack) {
    watcher->onWillShow = [&] { navigation->setNavigationBarHidden(true, true); };
    navigation->pushViewController(c, true);
    stage.advance(0.1);
    const Ref<UINavigationBar>& bar = navigation->navigationBar();
    const auto barX = [&] { return bar->layer()->presentationFrame().minX(); };
    EXPECT_NEAR(barX(), shownX(c) - width, 0.01) << "it leaves with the screen that has it";
    stage.advance(1);
    EXPECT_TRUE(bar->hidden());

    watcher->onWillShow = [&] { navigation->setNavigationBarHidden(false, true); };
    drag(120);
    EXPECT_FALSE(bar->hidden());
    EXPECT_NEAR(bar->frame().minX(), 120 - width, 1e-9);
    EXPECT_EQ(bar->frame().minY(), 20);
    letGo(120);
    EXPECT_TRUE(navigation->isNavigationBarHidden());
    EXPECT_TRUE(bar->hidden());
    EXPECT_EQ(c->view()->frame(), navigation->view()->bounds());

    watcher->onWillShow = [&] { navigation->setNavigationBarHidden(false, true); };
    drag(300);
    letGo(300);
    EXPECT_FALSE(bar->hidden());
    EXPECT_EQ(bar->frame(), Rect(0, 20, width, 44));
}

TEST_F(BackSwipeTest, ApplicationsMayMoveOnMeanwhile) {
    drag(100);
    navigation->pushViewController(c, true);
    EXPECT_THAT(record, ElementsAre("show", "b-", "a+", "B-", "A+", "shown", "show", "a-", "c+"));
    stage.touchMove({200, 300});
    letGo(300);
    EXPECT_EQ(navigation->viewControllers(), (std::vector<Ref<UIViewController>>{a, c}));
    EXPECT_EQ(shownX(c), 0);
    EXPECT_EQ(c->view()->superview()->subviews().size(), 1u);
}

TEST_F(BackSwipeTest, TurnedOffItLetsGo) {
    drag(300);
    navigation->interactivePopGestureRecognizer()->setEnabled(false);
    stage.advance(1);
    EXPECT_EQ(navigation->topViewController(), b);
    EXPECT_EQ(shownX(b), 0);
    letGo(300);
    stage.drag({2, 300}, {350, 300});
    stage.advance(1);
    EXPECT_EQ(navigation->topViewController(), b);
}

TEST_F(BackSwipeTest, OnlyTheLeftEdgeAndOnlyAboveTheRoot) {
    stage.drag({60, 300}, {370, 300});
    stage.drag({2, 300}, {20, 600});
    stage.advance(1);
    EXPECT_EQ(navigation->topViewController(), b);
    navigation->popViewControllerAnimated(false);
    record.clear();
    stage.drag({2, 300}, {350, 300});
    stage.advance(1);
    EXPECT_THAT(record, ElementsAre());
    EXPECT_EQ(shownX(a), 0);
}

}  // namespace
}  // namespace zn
