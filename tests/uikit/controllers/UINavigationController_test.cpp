#include "zarnic/platform/uikit/UINavigationController.h"

#include "tests/uikit/controllers/NavigationFixture.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/uikit/UITabBarController.h"

namespace zn {
namespace {

using ::testing::ElementsAre;
constexpr double transition = UINavigationController::TransitionDuration;

TEST_F(NavigationTest, RootIsShownWhenTheControllerFirstAppears) {
    EXPECT_EQ(navigation->topViewController(), a);
    EXPECT_THAT(record, ElementsAre());
    stage.show(navigation);
    EXPECT_THAT(record, ElementsAre("show", "a+", "A+", "shown"));
}

TEST_F(NavigationTest, OnlyTheTopOfAPreparedStackIsShown) {
    navigation->pushViewController(b, true);
    navigation->pushViewController(c, false);
    stage.show(navigation);
    EXPECT_THAT(record, ElementsAre("show", "c+", "C+", "shown"));
}

TEST_F(NavigationTest, AnimatedPushTellsInOrderAndEndsWithTheTransition) {
    showOnScreen();
    navigation->pushViewController(b, true);
    EXPECT_THAT(record, ElementsAre("show", "a-", "b+"));
    EXPECT_NE(b->view()->window(), nullptr);
    stage.advance(transition - 0.01);
    EXPECT_EQ(record.size(), 3u);
    stage.advance(0.02);
    EXPECT_THAT(record, ElementsAre("show", "a-", "b+", "A-", "B+", "shown"));
    EXPECT_EQ(a->view()->window(), nullptr);
}

TEST_F(NavigationTest, PlainPushAndPopEndAtOnce) {
    showOnScreen();
    navigation->pushViewController(b, false);
    EXPECT_THAT(record, ElementsAre("show", "a-", "b+", "A-", "B+", "shown"));
    record.clear();
    EXPECT_EQ(navigation->popViewControllerAnimated(false), b);
    EXPECT_THAT(record, ElementsAre("show", "b-", "a+", "B-", "A+", "shown"));
    EXPECT_EQ(b->navigationController(), nullptr);
    EXPECT_EQ(a->navigationController(), navigation);
}

TEST_F(NavigationTest, ChangeDuringATransitionFinishesItFirst) {
    showOnScreen();
    navigation->pushViewController(b, true);
    stage.advance(transition / 2);
    navigation->pushViewController(c, true);
    EXPECT_THAT(record, ElementsAre("show", "a-", "b+", "A-", "B+", "shown", "show", "b-", "c+"));
    navigation->popToRootViewControllerAnimated(true);
    stage.advance(2 * transition);
    EXPECT_EQ(std::count(record.begin(), record.end(), "show"), 3);
    EXPECT_EQ(std::count(record.begin(), record.end(), "shown"), 3);
    EXPECT_EQ(a->view()->superview()->subviews().size(), 1u) << "nothing is left behind";
    EXPECT_EQ(a->view()->frame().minX(), 0);
}

TEST_F(NavigationTest, DelegateMayMoveOnInsideWillShow) {
    showOnScreen();
    watcher->onWillShow = [this] { navigation->pushViewController(c, false); };
    navigation->pushViewController(b, true);
    stage.advance(2 * transition);
    EXPECT_EQ(navigation->topViewController(), c);
    EXPECT_NE(c->view()->window(), nullptr);
    EXPECT_EQ(a->view()->window(), nullptr);
    EXPECT_EQ(std::count(record.begin(), record.end(), "C+"), 1);
    EXPECT_EQ(std::count(record.begin(), record.end(), "A-"), 1);
}

TEST_F(NavigationTest, WrongCallsThrowOrDoNothing) {
    EXPECT_THROW(navigation->pushViewController(nullptr, false), NSException);
    EXPECT_THROW(navigation->pushViewController(a, false), NSException);
    EXPECT_THROW(navigation->pushViewController(make<UITabBarController>(), false), NSException);
    EXPECT_THROW(navigation->popToViewController(b, false), NSException);
    EXPECT_EQ(navigation->popViewControllerAnimated(true), nullptr);
    EXPECT_TRUE(navigation->popToRootViewControllerAnimated(true).empty());
    EXPECT_EQ(make<UINavigationController>()->topViewController(), nullptr);
    EXPECT_EQ(make<UINavigationController>()->popViewControllerAnimated(true), nullptr);
}

TEST_F(NavigationTest, StackCanBeSetAsAWhole) {
    showOnScreen();
    navigation->setViewControllers({a, b, c}, false);
    EXPECT_THAT(record, ElementsAre("show", "a-", "c+", "A-", "C+", "shown"));
    record.clear();
    navigation->setViewControllers({b, c}, true);
    EXPECT_THAT(record, ElementsAre()) << "the top stays";
    EXPECT_EQ(a->parentViewController(), nullptr);
    EXPECT_EQ(navigation->navigationBar()->items().size(), 2u);
}

TEST_F(NavigationTest, BackButtonPops) {
    showOnScreen();
    navigation->pushViewController(b, true);
    stage.advance(2 * transition);
    stage.tap(Point{20, 42});
    stage.advance(2 * transition);
    EXPECT_EQ(navigation->topViewController(), a);
}

TEST_F(NavigationTest, BarMovesOutOfTheWayInItsTime) {
    showOnScreen();
    const Ref<UINavigationBar>& bar = navigation->navigationBar();
    EXPECT_EQ(bar->frame(), Rect(0, 20, 375, 44));
    navigation->setNavigationBarHidden(true, true);
    EXPECT_FALSE(bar->hidden());
    stage.advance(UINavigationController::BarDuration + 0.01);
    EXPECT_TRUE(bar->hidden());
    navigation->setNavigationBarHidden(false, false);
    EXPECT_FALSE(bar->hidden());
    EXPECT_EQ(bar->frame(), Rect(0, 20, 375, 44));
}

TEST_F(NavigationTest, PoppedScreensLeaveTheFamilyWhenTheTransitionEnds) {
    showOnScreen();
    navigation->setViewControllers({a, b, c}, false);
    navigation->popToRootViewControllerAnimated(true);
    EXPECT_EQ(c->navigationController(), navigation) << "it is still seen";
    EXPECT_EQ(navigation->viewControllers().size(), 1u);
    stage.advance(2 * transition);
    EXPECT_EQ(b->navigationController(), nullptr);
    EXPECT_EQ(c->navigationController(), nullptr);
    navigation->popToRootViewControllerAnimated(true);
    navigation->pushViewController(c, true);
    navigation->popViewControllerAnimated(true);
    navigation->pushViewController(c, true);
    stage.advance(2 * transition);
    EXPECT_EQ(c->navigationController(), navigation) << "back before it was gone";
}

TEST_F(NavigationTest, AScreenMayPushAnotherWhenItIsToldThatItAppears) {
    struct Hasty : UIViewController {
        void viewWillAppear(bool) override {
            if (next)
                navigationController()->pushViewController(std::exchange(next, nullptr), true);
        }
        Ref<UIViewController> next;
    };
    showOnScreen();
    const auto hasty = make<Hasty>();
    hasty->next = c;
    navigation->pushViewController(hasty, true);
    stage.advance(transition / 2);
    EXPECT_TRUE(hasty->view()->window()) << "it slides away under the next one";
    stage.advance(transition);
    EXPECT_THAT(record, ElementsAre("show", "a-", "A-", "shown", "show", "c+", "C+", "shown"));
    EXPECT_EQ(c->view()->superview()->subviews().size(), 1u);
}

TEST_F(NavigationTest, UnderAPresentedScreenItChangesAtOnce) {
    showOnScreen();
    navigation->presentViewController(c, false, {});
    record.clear();
    navigation->pushViewController(b, true);
    EXPECT_THAT(record, ElementsAre("show", "shown"));
    navigation->dismissViewControllerAnimated(false, {});
    EXPECT_THAT(record, ElementsAre("show", "shown", "c-", "b+", "C-", "B+"));
}

}  // namespace
}  // namespace zn
