#include "zarnic/platform/uikit/UITabBarController.h"

#include "tests/uikit/controllers/NavigationFixture.h"

namespace zn {
namespace {

using ::testing::ElementsAre;
constexpr double transition = UINavigationController::TransitionDuration;
constexpr double height = 667, barHeight = UITabBar::Height;

class TabsTest : public NavigationTest {
protected:
    /// `a` in the navigation controller, `c` beside it.
    void showTabs() {
        tabs->setViewControllers({navigation, c});
        stage.show(tabs);
        stage.settle();
        record.clear();
    }
    bool barIsAtHome() const {
        return tabs->tabBar()->superview() == tabs->view() &&
               tabs->tabBar()->frame() == Rect(0, height - barHeight, 375, barHeight);
    }
    Ref<UITabBarController> tabs = make<UITabBarController>();
};

TEST_F(TabsTest, ShowsTheChosenControllerOnly) {
    navigation->setViewControllers({}, false);
    b->setTitle("Second");
    tabs->setViewControllers({a, b});
    stage.show(tabs);
    stage.settle();
    EXPECT_THAT(record, ElementsAre("a+", "A+"));
    record.clear();
    tabs->setSelectedIndex(7);
    EXPECT_EQ(tabs->selectedIndex(), 0u);
    stage.tap(Point{300, height - 20});
    EXPECT_EQ(tabs->selectedViewController(), b);
    EXPECT_EQ(tabs->tabBar()->selectedItem()->title(), "Second");
    EXPECT_THAT(record, ElementsAre("a-", "A-", "b+", "B+"));
    EXPECT_EQ(b->view()->frame(), Rect(0, 0, 375, height - barHeight));
    EXPECT_EQ(a->view()->window(), nullptr);
    EXPECT_EQ(b->tabBarController(), tabs);
}

TEST_F(TabsTest, TheBarSlidesAwayUnderAScreenThatHidesIt) {
    showTabs();
    b->setHidesBottomBarWhenPushed(true);
    navigation->pushViewController(b, true);
    stage.advance(transition / 3);
    const auto shown = [](const Ref<UIView>& view) { return view->layer()->presentationFrame(); };
    EXPECT_EQ(tabs->tabBar()->superview(), a->view()->superview()) << "between the two";
    EXPECT_NEAR(shown(tabs->tabBar()).minX(), shown(a->view()).minX(), 0.01);
    EXPECT_EQ(shown(tabs->tabBar()).maxY(), height);
    EXPECT_EQ(shown(b->view()).maxY(), height);
    EXPECT_EQ(shown(a->view()).maxY(), height - barHeight);
    stage.advance(transition);
    EXPECT_TRUE(barIsAtHome() && tabs->isTabBarHidden() && tabs->tabBar()->hidden());
    EXPECT_EQ(b->view()->frame().maxY(), height);

    navigation->popViewControllerAnimated(true);
    stage.advance(transition / 3);
    EXPECT_FALSE(tabs->tabBar()->hidden());
    EXPECT_LT(shown(tabs->tabBar()).minX(), 0);
    EXPECT_EQ(shown(b->view()).maxY(), height);
    stage.advance(transition);
    EXPECT_TRUE(barIsAtHome() && !tabs->isTabBarHidden() && !tabs->tabBar()->hidden());
    EXPECT_EQ(a->view()->frame().maxY(), height - barHeight);
}

TEST_F(TabsTest, TheFlagHoldsForAllAboveAndForAnUnfinishedSwipe) {
    showTabs();
    b->setHidesBottomBarWhenPushed(true);
    navigation->pushViewController(b, false);
    EXPECT_TRUE(tabs->isTabBarHidden());
    const auto d = make<UIViewController>();
    navigation->pushViewController(d, true);
    stage.advance(2 * transition);
    EXPECT_TRUE(tabs->isTabBarHidden());
    navigation->popViewControllerAnimated(false);
    stage.drag({2, 300}, {60, 300}, 1);
    stage.advance(2 * transition);
    EXPECT_EQ(navigation->topViewController(), b);
    EXPECT_TRUE(barIsAtHome() && tabs->tabBar()->hidden());
    EXPECT_EQ(b->view()->frame().maxY(), height);
    tabs->setSelectedIndex(1);
    EXPECT_FALSE(tabs->isTabBarHidden()) << "the other tab has its bar";
    tabs->setSelectedIndex(0);
    EXPECT_TRUE(tabs->isTabBarHidden());
    stage.drag({2, 300}, {350, 300});
    stage.advance(2 * transition);
    EXPECT_TRUE(barIsAtHome() && !tabs->tabBar()->hidden());
}

TEST_F(TabsTest, ATabMayBeChosenInTheMiddleOfAPush) {
    showTabs();
    b->setHidesBottomBarWhenPushed(true);
    navigation->pushViewController(b, true);
    stage.advance(transition / 3);
    tabs->setSelectedIndex(1);
    stage.advance(transition);
    EXPECT_TRUE(barIsAtHome() && !tabs->tabBar()->hidden());
    EXPECT_TRUE(c->view()->window());
    EXPECT_EQ(c->view()->frame().maxY(), height - barHeight);
}

TEST_F(TabsTest, TheBarShowsWhatItsItemsSay) {
    showTabs();
    const Ref<UITabBar>& bar = tabs->tabBar();
    const auto before = bar->subviews().size();
    const auto plain = stage.snapshot();
    navigation->tabBarItem()->setBadgeValue("12");
    stage.settle();
    const auto pixels = [](const Ref<UIImage>& image) {
        const auto bytes = image->cgImage()->pixels();
        return std::vector(bytes.begin(), bytes.end());
    };
    EXPECT_NE(pixels(stage.snapshot()), pixels(plain)) << "at once";
    navigation->tabBarItem()->setBadgeValue("");
    stage.settle();
    EXPECT_EQ(pixels(stage.snapshot()), pixels(plain));
    c->tabBarItem()->setEnabled(false);
    stage.tap(Point{300, height - 20});
    EXPECT_EQ(tabs->selectedIndex(), 0u);
    bar->setItems({nullptr, make<UITabBarItem>("One", nullptr)});
    EXPECT_EQ(bar->items().size(), 1u);
    EXPECT_EQ(bar->subviews().size(), before - 1);
    EXPECT_EQ(bar->selectedItem(), nullptr);
}

}  // namespace
}  // namespace zn
