#include "zarnic/platform/UINavigationController.h"

#include <gmock/gmock.h>

#include "tests/uikit/RecordingController.h"
#include "zarnic/platform/NSException.h"
#include "zarnic/platform/UITabBarController.h"
#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

using ::testing::ElementsAre;
constexpr double transition = UINavigationController::TransitionDuration;

/// Writes will-show and did-show into the screens' record, as "show" and "shown".
class Watcher : public NSObject, public UINavigationControllerDelegate {
    ZN_OBJECT(Watcher, NSObject)
public:
    explicit Watcher(RecordingController::Record& record) : record_(record) {}
    void navigationControllerWillShowViewController(const Ref<UINavigationController>&,
                                                    const Ref<UIViewController>&, bool) override {
        record_.push_back("show");
        if (onWillShow)
            std::exchange(onWillShow, {})();
    }
    void navigationControllerDidShowViewController(const Ref<UINavigationController>&,
                                                   const Ref<UIViewController>&, bool) override {
        record_.push_back("shown");
    }
    std::function<void()> onWillShow;

private:
    RecordingController::Record& record_;
};

class NavigationTest : public ::testing::Test {
protected:
    NavigationTest() {
        watcher = make<Watcher>(record);
        navigation = make<UINavigationController>(a);
        navigation->setDelegate(watcher);
    }
    void showOnScreen() {
        stage.show(navigation);
        stage.settle();
        record.clear();
    }

    Stage stage;
    RecordingController::Record record;
    Ref<RecordingController> a = make<RecordingController>('a', record);
    Ref<RecordingController> b = make<RecordingController>('b', record);
    Ref<RecordingController> c = make<RecordingController>('c', record);
    Ref<Watcher> watcher;
    Ref<UINavigationController> navigation;
};

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

TEST_F(NavigationTest, EdgeSwipeGoesBackAndAShortOneDoesNot) {
    showOnScreen();
    navigation->pushViewController(b, false);
    stage.drag({2, 300}, {60, 300}, 1);
    stage.advance(2 * transition);
    EXPECT_EQ(navigation->topViewController(), b);
    stage.drag({2, 300}, {300, 300}, 0.3);
    stage.advance(2 * transition);
    EXPECT_EQ(navigation->topViewController(), a);
}

class PresentationTest : public NavigationTest {};

TEST_F(PresentationTest, CoversFromBelowAndTellsBothWays) {
    stage.show(a);
    stage.settle();
    record.clear();
    bool presented = false;
    a->presentViewController(b, true, [&] { presented = true; });
    EXPECT_EQ(a->presentedViewController(), b);
    EXPECT_EQ(b->presentingViewController(), a);
    EXPECT_THAT(record, ElementsAre("b+", "a-"));
    EXPECT_EQ(b->view()->layer()->presentationFrame().minY(), 667);
    stage.advance(UIViewController::PresentationDuration + 0.01);
    EXPECT_TRUE(presented);
    EXPECT_EQ(b->view()->layer()->presentationFrame().minY(), 0);
    EXPECT_THAT(record, ElementsAre("b+", "a-", "A-", "B+"));
    record.clear();
    bool dismissed = false;
    b->dismissViewControllerAnimated(true, [&] { dismissed = true; });
    stage.advance(UIViewController::PresentationDuration + 0.01);
    EXPECT_TRUE(dismissed);
    EXPECT_EQ(b->view()->window(), nullptr);
    EXPECT_THAT(record, ElementsAre("b-", "a+", "B-", "A+"));
}

TEST_F(PresentationTest, WithoutAWindowOrTwiceNothingIsShown) {
    bool completed = false;
    a->presentViewController(b, true, [&] { completed = true; });
    EXPECT_EQ(a->presentedViewController(), nullptr);
    stage.show(a);
    stage.takeLog();
    a->presentViewController(b, false, {});
    a->presentViewController(c, false, [&] { completed = true; });
    stage.advance(1);
    EXPECT_EQ(a->presentedViewController(), b);
    EXPECT_FALSE(completed);
    EXPECT_EQ(stage.takeLog().size(), 1u);
    a->dismissViewControllerAnimated(false, {});
    a->dismissViewControllerAnimated(false, {});
    EXPECT_EQ(a->presentedViewController(), nullptr);
}

class TabsTest : public NavigationTest {};

TEST_F(TabsTest, ShowsTheChosenControllerOnly) {
    const auto tabs = make<UITabBarController>();
    b->setTitle("Second");
    tabs->setViewControllers({a, b});
    stage.show(tabs);
    stage.settle();
    EXPECT_THAT(record, ElementsAre("a+", "A+"));
    record.clear();
    tabs->setSelectedIndex(7);
    EXPECT_EQ(tabs->selectedIndex(), 0u);
    stage.tap(Point{300, 667 - 20});
    EXPECT_EQ(tabs->selectedViewController(), b);
    EXPECT_THAT(record, ElementsAre("a-", "A-", "b+", "B+"));
    EXPECT_EQ(b->view()->frame(), Rect(0, 0, 375, 667 - 49));
    EXPECT_EQ(a->view()->window(), nullptr);
    EXPECT_EQ(b->tabBarController(), tabs);
}

}  // namespace
}  // namespace zn
