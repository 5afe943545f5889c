#include "tests/uikit/controllers/NavigationFixture.h"
#include "zarnic/platform/uikit/UITabBarController.h"

namespace zn {
namespace {

using ::testing::ElementsAre;
constexpr double duration = UIViewController::PresentationDuration;

class PresentationTest : public NavigationTest {
protected:
    PresentationTest() { navigation->setViewControllers({}, false); }
    void showA() {
        stage.show(a);
        stage.settle();
        record.clear();
        stage.takeLog();
    }
    UIViewController::Completion counting() {
        return [this] { ++completions; };
    }
    int completions = 0;
};

TEST_F(PresentationTest, CoversFromBelowAndTellsBothWays) {
    showA();
    a->presentViewController(b, true, counting());
    EXPECT_EQ(a->presentedViewController(), b);
    EXPECT_EQ(b->presentingViewController(), a);
    EXPECT_THAT(record, ElementsAre("b+", "a-"));
    EXPECT_EQ(b->view()->layer()->presentationFrame().minY(), 667);
    stage.advance(duration + 0.01);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(b->view()->layer()->presentationFrame().minY(), 0);
    EXPECT_THAT(record, ElementsAre("b+", "a-", "A-", "B+"));
    record.clear();
    b->dismissViewControllerAnimated(true, counting());
    stage.advance(duration + 0.01);
    EXPECT_EQ(completions, 2);
    EXPECT_EQ(b->view()->window(), nullptr);
    EXPECT_THAT(record, ElementsAre("b-", "a+", "B-", "A+"));
}

TEST_F(PresentationTest, WhatCannotBePresentedIsLoggedAndNotCompleted) {
    a->presentViewController(b, true, counting());
    EXPECT_EQ(a->presentedViewController(), nullptr) << "in no window";
    showA();
    a->presentViewController(nullptr, false, counting());
    a->presentViewController(a, false, counting());
    navigation->pushViewController(c, false);
    a->presentViewController(c, false, counting());
    EXPECT_EQ(a->presentedViewController(), nullptr);
    a->presentViewController(b, false, {});
    a->presentViewController(navigation, false, counting());
    a->presentViewController(b, false, counting());
    stage.advance(1);
    EXPECT_EQ(a->presentedViewController(), b);
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(stage.takeLog().size(), 5u);
    a->dismissViewControllerAnimated(false, counting());
    a->dismissViewControllerAnimated(false, counting());
    EXPECT_EQ(completions, 1) << "with nothing presented nothing happens";
}

TEST_F(PresentationTest, AChangeDuringOneFinishesItFirst) {
    showA();
    a->presentViewController(b, true, counting());
    stage.advance(duration / 2);
    a->dismissViewControllerAnimated(true, counting());
    EXPECT_EQ(completions, 1);
    EXPECT_THAT(record, ElementsAre("b+", "a-", "A-", "B+", "b-", "a+"));
    stage.advance(duration / 2);
    a->presentViewController(c, true, counting());
    EXPECT_EQ(completions, 2);
    EXPECT_FALSE(b->view()->window());
    stage.advance(2 * duration);
    EXPECT_EQ(completions, 3);
    EXPECT_EQ(a->presentedViewController(), c);
    EXPECT_EQ(c->view()->layer()->presentationFrame().minY(), 0);
}

TEST_F(PresentationTest, TheSameScreenMayComeBackBeforeItIsGone) {
    showA();
    a->presentViewController(b, false, {});
    a->dismissViewControllerAnimated(true, counting());
    stage.advance(duration / 2);
    a->presentViewController(b, true, counting());
    stage.advance(2 * duration);
    EXPECT_EQ(completions, 2);
    EXPECT_TRUE(b->view()->window());
    EXPECT_EQ(b->view()->layer()->presentationFrame().minY(), 0);
}

TEST_F(PresentationTest, AChainGoesAtOnceAndOnlyItsLastIsSeenGoing) {
    showA();
    a->presentViewController(b, false, {});
    b->presentViewController(c, false, {});
    record.clear();
    a->dismissViewControllerAnimated(true, counting());
    EXPECT_FALSE(b->view()->window());
    EXPECT_TRUE(c->view()->window());
    stage.advance(2 * duration);
    EXPECT_THAT(record, ElementsAre("c-", "a+", "C-", "A+"));
    EXPECT_EQ(completions, 1);
    EXPECT_FALSE(b->presentingViewController() || b->presentedViewController() ||
                 c->presentingViewController() || a->presentedViewController());
}

TEST_F(PresentationTest, TheTopmostControllerPresentsSoThatBarsAreCovered) {
    const auto tabs = make<UITabBarController>();
    tabs->setViewControllers({navigation});
    navigation->pushViewController(a, false);
    stage.show(tabs);
    record.clear();
    const auto inside = make<UINavigationController>(b);
    a->presentViewController(inside, true, {});
    EXPECT_EQ(inside->presentingViewController(), tabs);
    EXPECT_EQ(b->presentingViewController(), tabs);
    EXPECT_EQ(a->presentedViewController(), inside);
    EXPECT_EQ(navigation->visibleViewController(), inside);
    stage.advance(2 * duration);
    EXPECT_THAT(record, ElementsAre("b+", "a-", "A-", "B+"));
    EXPECT_EQ(inside->navigationBar()->frame().minY(), 20) << "below the status bar";
    EXPECT_EQ(b->view()->frame(), inside->view()->bounds());
    b->dismissViewControllerAnimated(false, {});
    EXPECT_EQ(tabs->presentedViewController(), nullptr);
}

TEST_F(PresentationTest, TheStatusBarAsksTheScreenInFront) {
    struct Bare : UIViewController {
        bool prefersStatusBarHidden() const override { return true; }
    };
    showA();
    a->presentViewController(make<Bare>(), false, {});
    stage.advance(1);
    EXPECT_TRUE(UIApplication::sharedApplication()->statusBarHidden());
    a->dismissViewControllerAnimated(false, {});
    stage.advance(1);
    EXPECT_FALSE(UIApplication::sharedApplication()->statusBarHidden());
}

}  // namespace
}  // namespace zn
