#include <limits>

#include "tests/uikit/touch/TouchFixture.h"

namespace zn::test {
namespace {

class TouchDispatcherTest : public TouchTest {};

TEST_F(TouchDispatcherTest, SequencesReachTheViewThatTheyBeganIn) {
    addView("left", {0, 0, 100, 100});
    addView("right", {100, 0, 100, 100});
    struct Case {
        const char* steps;
        const char* journal;
    };
    const Case cases[] = {
        {"d10,10 m20,20 m150,20 u", "left:began left:moved left:moved left:ended"},
        {"d100,10 u99,10", "right:began right:ended"},
        {"d10,10 m10,10 u", "left:began left:ended"},
        {"d10,10 c u m5,5", "left:began left:cancelled"},
        {"d10,300 m10,10 u", ""},
        {"m10,10 u", ""},
        {"d10,10 d110,10 u", "left:began left:cancelled right:began right:ended"},
        {"+1 d10,10 u +0.1 d12,12 u +0.1 d11,11 u",
         "left:began left:ended left:began2 left:ended2 left:began3 left:ended3"},
        {"+1 d10,10 u +0.5 d10,10 u", "left:began left:ended left:began left:ended"},
        {"+1 d10,10 u +0.1 d90,90 u", "left:began left:ended left:began left:ended"},
        {"+1 d10,10 m90,90 u +0.1 d10,10 u",
         "left:began left:moved left:ended left:began left:ended"},
    };
    for (const Case& each : cases) {
        play(each.steps);
        EXPECT_EQ(journal.take(), each.journal) << each.steps;
        play("+2");
    }
}

TEST_F(TouchDispatcherTest, PlacesThatAreNoNumbersAreIgnored) {
    addView("view", {0, 0, 100, 100});
    const double nan = std::numeric_limits<double>::quiet_NaN();
    application->touchDown(1, {nan, 10});
    application->touchDown(2, {10, 10});
    application->touchMove(2, {10, nan});
    application->touchUp(2, {nan, nan});
    EXPECT_EQ(journal.take(), "view:began view:ended");
}

TEST_F(TouchDispatcherTest, AViewWithoutMultipleTouchesHearsOfOneFinger) {
    const auto view = addView("view", {0, 0, 100, 100});
    play("d10,10 2:d20,20 2:m30,30 2:u u");
    EXPECT_EQ(journal.take(), "view:began view:ended");
    view->setMultipleTouchEnabled(true);
    play("+1 d10,10 2:d80,80 2:u u");
    EXPECT_EQ(journal.take(), "view:began view:began view:ended view:ended");
}

TEST_F(TouchDispatcherTest, AnExclusiveViewSharesItsWindowWithNoOther) {
    addView("plain", {0, 0, 100, 100});
    addView("exclusive", {100, 0, 100, 100})->setExclusiveTouch(true);
    play("d110,10 2:d10,10 2:u u");
    EXPECT_EQ(journal.take(), "exclusive:began exclusive:ended");
    play("+1 d10,10 2:d110,10 2:u u");
    EXPECT_EQ(journal.take(), "plain:began plain:ended");
    play("+1 d110,10 u 2:d10,10 2:u");
    EXPECT_EQ(journal.take(), "exclusive:began exclusive:ended plain:began plain:ended");
}

TEST_F(TouchDispatcherTest, ARemovedViewHearsThatItsTouchIsCancelledAndNothingMore) {
    const auto view = addView("view", {0, 0, 100, 100});
    play("d10,10");
    view->removeFromSuperview();
    play("m20,20 u");
    EXPECT_EQ(journal.take(), "view:began view:cancelled");
    window->addSubview(view);
    play("+1 d10,10 u");
    EXPECT_EQ(journal.take(), "view:began view:ended");
}

TEST_F(TouchDispatcherTest, ARemovedViewHearsOfItByTheEndOfThePass) {
    const auto view = addView("view", {0, 0, 100, 100});
    play("d10,10");
    view->removeFromSuperview();
    clock.settle();
    EXPECT_EQ(journal.take(), "view:began view:cancelled");
}

TEST_F(TouchDispatcherTest, AViewMayBeDestroyedInItsOwnHandler) {
    auto view = addView("view", {0, 0, 100, 100});
    const WeakRef<UIView> weak = view;
    view->whenTouched = [this, &view] {
        view->removeFromSuperview();
        view = nullptr;
    };
    play("d10,10");
    EXPECT_TRUE(weak.expired());
    play("m20,20 u d10,10 u");
    EXPECT_EQ(journal.take(), "view:began");
}

TEST_F(TouchDispatcherTest, HidingTheWindowCancelsItsTouches) {
    addView("view", {0, 0, 100, 100});
    play("d10,10");
    window->setHidden(true);
    EXPECT_EQ(journal.take(), "view:began view:cancelled");
    window->setHidden(false);
    play("m20,20 u");
    EXPECT_EQ(journal.take(), "");
}

TEST_F(TouchDispatcherTest, AWindowMayBeHiddenAndDestroyedInAHandler) {
    auto overlay = make<UIWindow>(Rect{0, 0, 375, 667});
    const auto view = addView("overlay", {0, 0, 100, 100}, overlay);
    overlay->setHidden(false);
    view->whenTouched = [&overlay] {
        overlay->setHidden(true);
        overlay = nullptr;
    };
    play("d10,10 m20,20 u");
    EXPECT_EQ(journal.take(), "overlay:began overlay:cancelled");
}

TEST_F(TouchDispatcherTest, ASmallWindowLetsTheOtherTouchesThrough) {
    addView("below", {0, 0, 375, 667});
    const auto toast = make<UIWindow>(Rect{100, 100, 50, 50});
    addView("toast", {0, 0, 50, 50}, toast);
    toast->setHidden(false);
    play("d10,10 u");
    EXPECT_EQ(journal.take(), "below:began below:ended");
    play("+1 d110,110 u");
    EXPECT_EQ(journal.take(), "toast:began toast:ended");
    toast->setAlpha(0.005);
    play("+1 d110,110 u");
    EXPECT_EQ(journal.take(), "below:began below:ended");
}

TEST_F(TouchDispatcherTest, TheEventHoldsTheFingersThatAreDown) {
    struct Watcher : UIView {
        using UIView::UIView;
        std::size_t all = 0, own = 0;
        Point place;
        void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) override {
            all = event->allTouches().size();
            own = event->touchesForView(ref(this)).size();
            place = touches.front()->locationInView(ref(this));
        }
    };
    addView("other", {0, 0, 100, 100});
    const auto watcher = make<Watcher>(Rect{100, 50, 100, 100});
    window->addSubview(watcher);
    play("2:d10,10 d110,70");
    EXPECT_EQ(watcher->all, 2u);
    EXPECT_EQ(watcher->own, 1u);
    EXPECT_EQ(watcher->place, (Point{10, 20}));
}

}  // namespace
}  // namespace zn::test
