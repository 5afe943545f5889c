#include <gmock/gmock.h>

#include <optional>

#include "tests/support/LayerScreen.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A white view on a black screen.
struct Stage {
    LayerScreen screen;
    Ref<UIView> view = make<UIView>(Rect(0, 0, 10, 10));
    std::vector<bool> completions;

    Stage() {
        view->setBackgroundColor(UIColor::whiteColor());
        screen.show(view);
        testClock().settle();
    }
    UIView::Completion completion() {
        return [this](bool finished) { completions.push_back(finished); };
    }
    double shownAlpha() const { return view->layer()->presentationOpacity(); }
    double shownX() const { return view->layer()->presentationFrame().origin.x; }
};

TEST(UIViewAnimationTest, ModelIsFinalAtOnceAndTheScreenFollows) {
    Stage stage;
    stage.view->setAlpha(0);
    UIView::animateWithDuration(
        1, [&] { stage.view->setAlpha(1); }, stage.completion());
    EXPECT_EQ(stage.view->alpha(), 1);
    EXPECT_EQ(stage.shownAlpha(), 0);
    EXPECT_TRUE(stage.view->layer()->animates("opacity"));
    testClock().settle();
    testClock().advance(0.5);
    EXPECT_NEAR(stage.shownAlpha(), 0.5, 0.001);
    testClock().advance(0.25);
    EXPECT_GT(stage.shownAlpha(), 0.8) << "ease in and out is past its middle";
    EXPECT_THAT(stage.completions, IsEmpty());
    testClock().advance(0.25);
    EXPECT_EQ(stage.shownAlpha(), 1);
    EXPECT_THAT(stage.completions, ElementsAre(true));
    EXPECT_FALSE(stage.view->layer()->animates("opacity"));
}

TEST(UIViewAnimationTest, NothingToAnimateCompletesInTheNextPass) {
    const auto expectNextPass = [](const char* what, double duration, const auto& change) {
        SCOPED_TRACE(what);
        Stage stage;
        UIView::animateWithDuration(
            duration, [&] { change(*stage.view); }, stage.completion());
        EXPECT_THAT(stage.completions, IsEmpty()) << "never inside the call";
        EXPECT_THAT(stage.view->layer()->animationKeys(), IsEmpty());
        testClock().settle();
        EXPECT_THAT(stage.completions, ElementsAre(true));
    };
    expectNextPass("nothing", 1, [](UIView&) {});
    expectNextPass("same values", 1, [](UIView& view) {
        view.setAlpha(1);
        view.setFrame(view.frame());
        view.setBackgroundColor(UIColor::whiteColor());
    });
    expectNextPass("no time", 0, [](UIView& view) { view.setAlpha(0.5); });
    expectNextPass("switched off", 1, [](UIView& view) {
        UIView::performWithoutAnimation([&] { view.setAlpha(0.5); });
    });
}

TEST(UIViewAnimationTest, FrameMovesAndResizes) {
    Stage stage;
    UIView::animateWithDuration(
        1, 0, UIViewAnimationOptions::CurveLinear,
        [&] {
            stage.view->setFrame({40, 0, 30, 10});
        },
        stage.completion());
    testClock().settle();
    testClock().advance(0.5);
    const Rect shown = stage.view->layer()->presentationFrame();
    EXPECT_NEAR(shown.origin.x, 20, 1e-6);
    EXPECT_NEAR(shown.size.width, 20, 1e-6);
    EXPECT_EQ(stage.screen.pixel(25, 5), 0xffffffffu);
    EXPECT_EQ(stage.screen.pixel(15, 5) & 0xffffffu, 0u);
    testClock().advance(0.5);
    EXPECT_THAT(stage.completions, ElementsAre(true)) << "once for all the animations";
}

TEST(UIViewAnimationTest, SecondAnimationTakesOverFromWhatIsShown) {
    Stage stage;
    UIView::animateWithDuration(
        1, [&] { stage.view->setAlpha(0); }, stage.completion());
    testClock().settle();
    testClock().advance(0.5);
    UIView::animateWithDuration(
        1, [&] { stage.view->setAlpha(1); }, stage.completion());
    EXPECT_NEAR(stage.shownAlpha(), 0.5, 0.001);
    testClock().settle();
    EXPECT_THAT(stage.completions, ElementsAre(false));
    testClock().advance(1);
    EXPECT_THAT(stage.completions, ElementsAre(false, true));
}

TEST(UIViewAnimationTest, ChangeOutsideABlockJumpsAndEndsTheAnimation) {
    Stage stage;
    UIView::animateWithDuration(
        1, [&] { stage.view->setAlpha(0); }, stage.completion());
    testClock().settle();
    testClock().advance(0.5);
    stage.view->setAlpha(0.8);
    EXPECT_EQ(stage.shownAlpha(), 0.8);
    testClock().settle();
    EXPECT_THAT(stage.completions, ElementsAre(false));
}

TEST(UIViewAnimationTest, RemovedAnimationsCompleteUnfinishedAndKeepTheModel) {
    Stage stage;
    UIView::animateWithDuration(
        1,
        [&] {
            stage.view->setAlpha(0);
            stage.view->setCenter({50, 50});
        },
        stage.completion());
    testClock().settle();
    testClock().advance(0.5);
    stage.view->layer()->removeAnimationForKey("opacity");
    testClock().settle();
    EXPECT_THAT(stage.completions, IsEmpty()) << "the other one still runs";
    testClock().advance(0.5);
    EXPECT_THAT(stage.completions, ElementsAre(false));
    EXPECT_EQ(stage.view->alpha(), 0);
}

TEST(UIViewAnimationTest, DelayShowsWhereItComesFrom) {
    Stage stage;
    UIView::animateWithDuration(
        1, 2, UIViewAnimationOptions::CurveLinear, [&] { stage.view->setAlpha(0); },
        stage.completion());
    testClock().settle();
    testClock().advance(1.9);
    EXPECT_EQ(stage.shownAlpha(), 1);
    testClock().advance(0.6);
    EXPECT_NEAR(stage.shownAlpha(), 0.5, 1e-6);
    testClock().advance(0.5);
    EXPECT_THAT(stage.completions, ElementsAre(true));
}

TEST(UIViewAnimationTest, InnerBlockTakesOverDurationUnlessItOverridesIt) {
    Stage stage;
    std::optional<double> inherited, overridden;
    UIView::animateWithDuration(1, [&] {
        UIView::animateWithDuration(5, [&] { inherited = UIView::inheritedAnimationDuration(); });
        UIView::animateWithDuration(5, 0, UIViewAnimationOptions::OverrideInheritedDuration,
                                    [&] { overridden = UIView::inheritedAnimationDuration(); });
    });
    EXPECT_EQ(inherited, 1);
    EXPECT_EQ(overridden, 5);
    EXPECT_EQ(UIView::inheritedAnimationDuration(), 0);
}

TEST(UIViewAnimationTest, RepeatsAndTurnsBackUntilRemoved) {
    Stage stage;
    UIView::animateWithDuration(
        1, 0,
        UIViewAnimationOptions::Repeat | UIViewAnimationOptions::Autoreverse |
            UIViewAnimationOptions::CurveLinear,
        [&] {
            stage.view->setCenter({105, 5});
        },
        stage.completion());
    testClock().settle();
    testClock().advance(3.25);
    EXPECT_NEAR(stage.shownX(), 75, 1e-6);
    EXPECT_THAT(stage.completions, IsEmpty());
    stage.view->layer()->removeAllAnimations();
    testClock().settle();
    EXPECT_THAT(stage.completions, ElementsAre(false));
}

TEST(UIViewAnimationTest, TouchesPassOverAMovingViewUnlessAllowed) {
    Stage stage;
    UIView::animateWithDuration(1, [&] { stage.view->setAlpha(0.5); });
    EXPECT_EQ(stage.view->hitTest({5, 5}, nullptr), nullptr);
    testClock().settle();
    testClock().advance(1);
    EXPECT_EQ(stage.view->hitTest({5, 5}, nullptr), stage.view);
    UIView::animateWithDuration(1, 0, UIViewAnimationOptions::AllowUserInteraction,
                                [&] { stage.view->setAlpha(1); });
    EXPECT_EQ(stage.view->hitTest({5, 5}, nullptr), stage.view);
}

TEST(UIViewAnimationTest, LaysOutInsideTheBlockWhenAsked) {
    class Filled final : public UIView {
        ZN_OBJECT(Filled, UIView)
    public:
        void layoutSubviews() override { subviews()[0]->setFrame(bounds()); }
    };
    Stage stage;
    const auto filled = make<Filled>();
    const auto child = make<UIView>();
    filled->addSubview(child);
    stage.screen.show(filled);
    testClock().settle();
    UIView::animateWithDuration(1, 0, UIViewAnimationOptions::LayoutSubviews, [&] {
        filled->setFrame({0, 0, 50, 50});
    });
    EXPECT_TRUE(child->layer()->animates("bounds"));
}

TEST(UIViewAnimationTest, ViewMadeInABlockDoesNotGrowFromNothing) {
    Stage stage;
    Ref<UIView> made;
    UIView::animateWithDuration(1, [&] { made = make<UIView>(Rect(5, 5, 20, 20)); });
    EXPECT_THAT(made->layer()->animationKeys(), IsEmpty());
}

TEST(UIViewAnimationTest, BlockThatThrowsIsOver) {
    Stage stage;
    EXPECT_THROW(UIView::animateWithDuration(1, [] { throw std::runtime_error("no"); }),
                 std::runtime_error);
    stage.view->setAlpha(0.5);
    EXPECT_THAT(stage.view->layer()->animationKeys(), IsEmpty());
}

TEST(UIViewAnimationTest, CompletionMayDestroyTheView) {
    Stage stage;
    bool called = false;
    UIView::animateWithDuration(
        1, [&] { stage.view->setAlpha(0); },
        [&](bool) {
            stage.view.reset();
            called = true;
        });
    testClock().settle();
    testClock().advance(1);
    EXPECT_TRUE(called);
}

}  // namespace
}  // namespace zn
