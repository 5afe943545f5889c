#include "zarnic/ZNNavigationController.h"

#include <gtest/gtest.h>

#include "zarnic/ZNViewController.h"
#include "zarnic/platform/uikit/UITabBarController.h"
#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

/// Longer than a push and a bar's coming or going.
constexpr double settled = 0.5;

Ref<ZNViewController> screen(bool barHidden = false, bool slideDisabled = false) {
    const auto made = make<ZNViewController>();
    made->setNavigationBarHide(barHidden);
    made->setDisableSlide(slideDisabled);
    return made;
}

struct Swipe {
    bool enabled;
    bool hasDelegate;
    friend bool operator==(const Swipe&, const Swipe&) = default;
};

Swipe swipeOf(const Ref<ZNNavigationController>& navigation) {
    const auto& recognizer = navigation->interactivePopGestureRecognizer();
    return {recognizer->enabled(), recognizer->delegate() != nullptr};
}

constexpr Swipe off{false, false};
constexpr Swipe on{true, true};

class NavigationTest : public ::testing::Test {
protected:
    NavigationTest() {
        navigation = make<ZNNavigationController>(screen());
        stage.show(navigation);
        stage.settle();
    }

    void push(const Ref<UIViewController>& controller) {
        navigation->pushViewController(controller, true);
        stage.advance(settled);
    }
    void pop() {
        navigation->popViewControllerAnimated(true);
        stage.advance(settled);
    }

    Stage stage;
    Ref<ZNNavigationController> navigation;
};

TEST_F(NavigationTest, RootCannotBeSwipedBack) {
    EXPECT_EQ(swipeOf(navigation), off);
}

TEST_F(NavigationTest, SwipeIsOffFromThePushUntilTheScreenHasAppeared) {
    navigation->pushViewController(screen(), true);
    EXPECT_FALSE(navigation->interactivePopGestureRecognizer()->enabled());
    stage.advance(UINavigationController::TransitionDuration / 2);
    EXPECT_FALSE(navigation->interactivePopGestureRecognizer()->enabled());
    stage.advance(settled);
    EXPECT_EQ(swipeOf(navigation), on);
    pop();
    EXPECT_EQ(swipeOf(navigation), off);
}

TEST_F(NavigationTest, ScreenThatDisablesTheSwipeHasNoneAndTheOneBelowHas) {
    push(screen());
    push(screen(false, true));
    EXPECT_EQ(swipeOf(navigation), off);
    pop();
    EXPECT_EQ(swipeOf(navigation), on);
}

TEST_F(NavigationTest, PlainScreenCanBeSwipedBack) {
    push(make<UIViewController>());
    EXPECT_EQ(swipeOf(navigation), on);
}

TEST_F(NavigationTest, BarFollowsTheScreenOnTop) {
    EXPECT_FALSE(navigation->isNavigationBarHidden());
    push(screen(true));
    EXPECT_TRUE(navigation->isNavigationBarHidden());
    EXPECT_TRUE(navigation->navigationBar()->hidden());
    push(screen(true));
    EXPECT_TRUE(navigation->isNavigationBarHidden());
    push(make<UIViewController>());
    EXPECT_FALSE(navigation->isNavigationBarHidden()) << "a plain screen always gets a bar";
    pop();
    EXPECT_TRUE(navigation->isNavigationBarHidden());
    navigation->popToRootViewControllerAnimated(true);
    stage.advance(settled);
    EXPECT_FALSE(navigation->isNavigationBarHidden());
    EXPECT_FALSE(navigation->navigationBar()->hidden());
}

TEST_F(NavigationTest, ScreenLiesBelowTheBarAndFillsAllWithoutOne) {
    const Rect all = navigation->view()->bounds();
    EXPECT_EQ(navigation->topViewController()->view()->frame(),
              Rect(0, 64, all.width(), all.height() - 64));
    push(screen(true));
    EXPECT_EQ(navigation->topViewController()->view()->frame(), all);
    pop();
    EXPECT_EQ(navigation->topViewController()->view()->frame(),
              Rect(0, 64, all.width(), all.height() - 64));
}

TEST_F(NavigationTest, QueriesGoToTheTopScreen) {
    const auto top = screen();
    top->setStatusBarStyle(1);
    top->setStatusBarHide(true);
    top->setStatusBarAnim(2);
    push(top);
    EXPECT_EQ(navigation->preferredStatusBarStyle(), 1);
    EXPECT_TRUE(navigation->prefersStatusBarHidden());
    EXPECT_EQ(navigation->preferredStatusBarUpdateAnimation(), 2);
    EXPECT_EQ(navigation->supportedInterfaceOrientations(), 2);
    EXPECT_EQ(navigation->preferredInterfaceOrientationForPresentation(), 1);
    pop();
    EXPECT_EQ(navigation->preferredStatusBarStyle(), 0);
    EXPECT_FALSE(navigation->prefersStatusBarHidden());
    EXPECT_EQ(navigation->preferredStatusBarUpdateAnimation(), 1);
}

TEST_F(NavigationTest, StatusBarOfTheScreenFollowsTheTopScreen) {
    const auto application = UIApplication::sharedApplication();
    EXPECT_FALSE(application->statusBarHidden());
    const auto top = screen();
    top->setStatusBarHide(true);
    push(top);
    EXPECT_TRUE(application->statusBarHidden());
    pop();
    EXPECT_FALSE(application->statusBarHidden());
}

TEST(ZNNavigationControllerTest, WithoutATopScreenTheAnswersAreZero) {
    const Stage stage;
    const auto navigation = make<ZNNavigationController>();
    EXPECT_TRUE(navigation->shouldAutorotate());
    EXPECT_EQ(navigation->supportedInterfaceOrientations(), 0);
    EXPECT_EQ(navigation->preferredInterfaceOrientationForPresentation(), 0);
    EXPECT_EQ(navigation->preferredStatusBarStyle(), 0);
    EXPECT_FALSE(navigation->prefersStatusBarHidden());
    EXPECT_EQ(navigation->preferredStatusBarUpdateAnimation(), 0);
}

TEST(ZNNavigationControllerTest, IsItsOwnDelegateAndLeavesNoCycle) {
    const Stage stage;
    WeakRef<ZNNavigationController> weak;
    {
        const auto navigation = make<ZNNavigationController>(screen());
        navigation->loadViewIfNeeded();
        EXPECT_EQ(navigation->delegate(), navigation);
        weak = navigation;
    }
    EXPECT_TRUE(weak.expired());
}

TEST(ZNViewControllerTest, AnswersItsDefaults) {
    const Stage stage;
    const auto made = make<ZNViewController>();
    EXPECT_EQ(made->preferredStatusBarStyle(), 0);
    EXPECT_FALSE(made->prefersStatusBarHidden());
    EXPECT_EQ(made->preferredStatusBarUpdateAnimation(), 1);
    EXPECT_FALSE(made->disableSlide());
    EXPECT_FALSE(made->navigationBarHide());
    EXPECT_FALSE(made->navagationBarSeperatorHide());
    EXPECT_TRUE(made->shouldAutorotate());
    EXPECT_EQ(made->supportedInterfaceOrientations(), 2);
    EXPECT_EQ(made->preferredInterfaceOrientationForPresentation(), 1);
}

TEST(ZNViewControllerTest, LoadingTheViewMakesTheBarAroundItSolid) {
    const Stage stage;
    const auto root = make<ZNViewController>();
    const auto navigation = make<UINavigationController>(root);
    EXPECT_TRUE(navigation->navigationBar()->translucent());
    EXPECT_TRUE(root->automaticallyAdjustsScrollViewInsets());
    root->loadViewIfNeeded();
    EXPECT_FALSE(navigation->navigationBar()->translucent());
    EXPECT_FALSE(root->automaticallyAdjustsScrollViewInsets());
    make<ZNViewController>()->loadViewIfNeeded();
}

TEST(ZNViewControllerTest, SettingAStatusBarPropertyDoesNotRefreshTheBarByItself) {
    Stage stage;
    const auto root = make<ZNViewController>();
    stage.show(root);
    stage.settle();
    root->setStatusBarHide(true);
    stage.settle();
    EXPECT_FALSE(UIApplication::sharedApplication()->statusBarHidden());
    root->setNeedsStatusBarAppearanceUpdate();
    stage.settle();
    EXPECT_TRUE(UIApplication::sharedApplication()->statusBarHidden());
}

}  // namespace
}  // namespace zn
