#include "zarnic/platform/uikit/UIScrollView.h"

#include <gmock/gmock.h>

#include "tests/support/LayerScreen.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Follower : UIScrollViewDelegate {
    void scrollViewDidScroll(const Ref<UIScrollView>& view) override {
        offsets.push_back(view->contentOffset().x);
        if (whenScrolled)
            whenScrolled(*view);
    }
    void scrollViewDidEndScrollingAnimation(const Ref<UIScrollView>&) override { ++ends; }
    std::vector<double> offsets;
    std::function<void(UIScrollView&)> whenScrolled;
    int ends = 0;
};

struct Scene {
    Ref<UIScrollView> view = make<UIScrollView>(Rect(0, 0, 100, 100));
    Ref<Follower> follower = std::make_shared<Follower>();
    Scene() {
        testClock();
        view->setContentSize({500, 100});
        view->setDelegate(follower);
    }
};

TEST(UIScrollViewTest, DelegateHearsOfRealChangesAtOnce) {
    const Scene scene;
    scene.view->setContentOffset({30, 0});
    EXPECT_THAT(scene.follower->offsets, ElementsAre(30));
    scene.view->setContentOffset({30, 0});
    scene.view->setContentOffset({30, 0}, true);
    scene.view->setBounds({30, 0, 50, 50});
    scene.view->setFrame({1, 2, 80, 80});
    EXPECT_THAT(scene.follower->offsets, ElementsAre(30));
    scene.view->setBounds({31, 0, 50, 50});
    EXPECT_THAT(scene.follower->offsets, ElementsAre(30, 31));
}

TEST(UIScrollViewTest, OffsetSetByTheDelegateNestsTheCalls) {
    const Scene scene;
    std::vector<std::string> order;
    scene.follower->whenScrolled = [&](UIScrollView& view) {
        order.push_back("begin");
        if (view.contentOffset().x >= 400)
            view.setContentOffset({100, 0});
        order.push_back("end");
    };
    scene.view->setContentOffset({400, 0});
    EXPECT_THAT(scene.follower->offsets, ElementsAre(400, 100));
    EXPECT_THAT(order, ElementsAre("begin", "begin", "end", "end"));
}

TEST(UIScrollViewTest, OffsetOutsideTheContentIsKept) {
    const Scene scene;
    scene.view->setContentOffset({-40, 9000});
    EXPECT_EQ(scene.view->contentOffset(), (Point{-40, 9000}));
}

TEST(UIScrollViewTest, AnimatedChangeTellsEveryFrameAndTheEnd) {
    const Scene scene;
    scene.view->setContentOffset({300, 0}, true);
    EXPECT_EQ(scene.view->contentOffset().x, 0);
    testClock().advance(0.15);
    EXPECT_NEAR(scene.view->contentOffset().x, 150, 15);
    EXPECT_EQ(scene.follower->ends, 0);
    testClock().advance(0.2);
    EXPECT_EQ(scene.view->contentOffset().x, 300);
    EXPECT_EQ(scene.follower->ends, 1);
    EXPECT_TRUE(std::is_sorted(scene.follower->offsets.begin(), scene.follower->offsets.end()));
    EXPECT_GE(scene.follower->offsets.size(), 15u);
    testClock().advance(1);
    EXPECT_EQ(scene.follower->ends, 1);
}

TEST(UIScrollViewTest, PlainChangeEndsAnAnimatedOne) {
    const Scene scene;
    scene.view->setContentOffset({300, 0}, true);
    testClock().advance(0.1);
    scene.view->setContentOffset({20, 0});
    testClock().advance(1);
    EXPECT_EQ(scene.view->contentOffset().x, 20);
    EXPECT_EQ(scene.follower->ends, 0);
}

TEST(UIScrollViewTest, DelegateMayTurnAnAnimationRoundOrDropTheView) {
    Scene scene;
    scene.follower->whenScrolled = [](UIScrollView& view) {
        if (view.contentOffset().x > 200)
            view.setContentOffset({0, 0}, true);
    };
    scene.view->setContentOffset({300, 0}, true);
    testClock().advance(1);
    EXPECT_EQ(scene.view->contentOffset().x, 0);
    EXPECT_EQ(scene.follower->ends, 1);
    scene.follower->whenScrolled = [&](UIScrollView&) { scene.view.reset(); };
    scene.view->setContentOffset({300, 0}, true);
    testClock().advance(1);
    EXPECT_EQ(scene.view, nullptr);
}

TEST(UIScrollViewTest, ScrollsAsLittleAsShowsTheRectangle) {
    const Scene scene;
    const auto offsetAfter = [&](double start, const Rect& rect) {
        scene.view->setContentOffset({start, 0});
        scene.view->scrollRectToVisible(rect, false);
        return scene.view->contentOffset().x;
    };
    EXPECT_EQ(offsetAfter(0, {150, 0, 50, 10}), 100);
    EXPECT_EQ(offsetAfter(300, {150, 0, 50, 10}), 150);
    EXPECT_EQ(offsetAfter(120, {150, 0, 50, 10}), 120) << "visible already";
    EXPECT_EQ(offsetAfter(0, {450, 0, 100, 10}), 400) << "not beyond the content";
    EXPECT_EQ(offsetAfter(0, {150, 0, 200, 10}), 150) << "as much as fits";
    EXPECT_EQ(offsetAfter(200, {150, 0, 200, 10}), 200) << "full of it already";
}

TEST(UIScrollViewTest, ClipsAndShowsTheContentAtTheOffset) {
    LayerScreen screen;
    const auto view = make<UIScrollView>(Rect(10, 10, 20, 20));
    const auto content = make<UIView>(Rect(50, 0, 100, 10));
    content->setBackgroundColor(UIColor::redColor());
    view->addSubview(content);
    view->setContentOffset({50, 0});
    screen.show(view);
    EXPECT_EQ(screen.pixel(11, 11), 0xffff0000u);
    EXPECT_EQ(screen.pixel(29, 19), 0xffff0000u);
    EXPECT_EQ(screen.pixel(31, 11) & 0xffffffu, 0u) << "clipped";
}

}  // namespace
}  // namespace zn
