#include "tests/uikit/scrolling/ScrollFixture.h"
#include "zarnic/platform/uikit/UIButton.h"
#include "zarnic/platform/uikit/UIScreenEdgePanGestureRecognizer.h"

namespace zn::test {
namespace {

class ScrollTouchTest : public ScrollTest {};

TEST_F(ScrollTouchTest, TheCallsOfADragComeInOrder) {
    struct Case {
        const char* name;
        double from, to, seconds, rest;
        const char* calls;
    };
    const Case cases[] = {
        {"a flick", 500, 300, 0.1, 0, "begin scroll release left:fly fly scroll rest"},
        {"a slow drag that stops", 500, 300, 0.5, 0.2, "begin scroll release left:stay"},
        {"beyond the top", 200, 400, 0.5, 0.2, "begin scroll release left:fly fly scroll rest"},
        {"less than ten points", 300, 291, 0.1, 0, ""},
    };
    for (const Case& each : cases) {
        view->setContentOffset({}, false);
        listener->take();
        fling({100, each.from}, {100, each.to}, each.seconds);
        clock.advance(each.rest);
        application->touchUp(1, {100, each.to});
        clock.advance(10);
        EXPECT_EQ(listener->take(), each.calls) << each.name;
    }
}

TEST_F(ScrollTouchTest, SaysWhatGoesOn) {
    const auto state = [this] {
        return std::string(view->isTracking() ? "t" : "") + (view->isDragging() ? "d" : "") +
               (view->isDecelerating() ? "f" : "");
    };
    EXPECT_EQ(state(), "");
    play("d100,500");
    EXPECT_EQ(state(), "t");
    play("+0.02 m100,400");
    EXPECT_EQ(state(), "td");
    play("+0.02 m100,300 u");
    EXPECT_EQ(state(), "f");
    play("+0.1 d100,300");
    EXPECT_EQ(state(), "t");
    play("u");
    EXPECT_EQ(state(), "");
    play("d100,500 m100,400 c");
    EXPECT_EQ(state(), "");
}

TEST_F(ScrollTouchTest, AFingerCatchesWhatMoves) {
    addView("inner", {0, 0, 375, 5000}, view);
    flick({100, 500}, {100, 300}, 0.1);
    clock.advance(0.1);
    listener->take();
    journal.take();
    play("d100,400");
    const double caught = y();
    EXPECT_EQ(listener->take(), "rest");
    // It drags without the ten points, and what is inside does not hear of it.
    play("+0.3 m100,398");
    EXPECT_EQ(y(), caught + 2);
    EXPECT_EQ(listener->take(), "begin scroll");
    play("+0.3 u +1");
    EXPECT_EQ(journal.take(), "");
    // Let go without moving it, beyond the edge, it springs back.
    flick({100, 100}, {100, 600}, 0.1);
    while (y() > -30)
        clock.advance(0.005);
    play("d100,400 +1");
    EXPECT_LT(y(), -20);
    listener->take();
    play("u +5");
    EXPECT_EQ(y(), 0);
    EXPECT_EQ(listener->take(), "fly scroll rest");
}

TEST_F(ScrollTouchTest, BeyondTheEdgeItFollowsLessAndLess) {
    const auto banded = [](double pulled) { return (1 - 1 / (pulled * 0.55 / 667 + 1)) * 667; };
    play("d100,100 m100,110");
    for (const double pulled : {10.0, 50.0, 200.0, 500.0}) {
        play("m100," + std::to_string(110 + pulled));
        EXPECT_NEAR(y(), -banded(pulled), 0.26) << pulled;
    }
    // And back the same way.
    play("m100,160");
    EXPECT_NEAR(y(), -banded(50), 0.26);
    play("m100,100");
    EXPECT_EQ(y(), 10);
}

TEST_F(ScrollTouchTest, MovesOnlyAlongTheAxesThatItMay) {
    struct Case {
        const char* name;
        Size content;
        bool bounces, alwaysHorizontal, alwaysVertical;
        Point finger;
        bool movesX, movesY;
    };
    const Case cases[] = {
        {"too little content", {375, 667}, true, false, false, {40, 40}, false, false},
        {"but always bounces", {375, 667}, true, false, true, {40, 40}, false, true},
        {"not without bouncing", {375, 667}, false, true, true, {40, 40}, false, false},
        {"wide", {900, 667}, true, false, false, {-40, -40}, true, false},
        {"high", {375, 900}, true, false, false, {-40, -40}, false, true},
        {"both", {900, 900}, true, false, false, {-40, -40}, true, true},
        {"pulled beyond", {900, 900}, true, false, false, {40, 40}, true, true},
        {"without bouncing", {900, 900}, false, false, false, {40, 40}, false, false},
        {"no content", {0, 0}, true, false, false, {40, 40}, false, false},
    };
    for (const Case& each : cases) {
        view->setContentOffset({}, false);
        view->setContentSize(each.content);
        view->setBounces(each.bounces);
        view->setAlwaysBounceHorizontal(each.alwaysHorizontal);
        view->setAlwaysBounceVertical(each.alwaysVertical);
        fling({200, 300}, {200 + each.finger.x, 300 + each.finger.y}, 0.1);
        EXPECT_EQ(x() != 0, each.movesX) << each.name;
        EXPECT_EQ(y() != 0, each.movesY) << each.name;
        play("c +2");
    }
    view->setContentSize({900, 900});
    view->setScrollEnabled(false);
    flick({200, 300}, {100, 200}, 0.1);
    EXPECT_EQ(view->contentOffset(), (Point{}));
}

TEST_F(ScrollTouchTest, ADirectionalLockKeepsToTheWayItBegan) {
    view->setContentSize({2000, 2000});
    view->setDirectionalLockEnabled(true);
    const struct {
        const char* way;
        bool movesX, movesY;
    } cases[] = {{"m205,280 m100,180", false, true},
                 {"m180,305 m100,180", true, false},
                 {"m190,290 m100,180", true, true}};
    for (const auto& each : cases) {
        view->setContentOffset({500, 500}, false);
        play(std::string("d200,300 ") + each.way + " +0.2 u +2");
        EXPECT_EQ(x() != 500, each.movesX) << each.way;
        EXPECT_EQ(y() != 500, each.movesY) << each.way;
    }
}

TEST_F(ScrollTouchTest, TouchesReachWhatIsInsideLateOrNot) {
    addView("inner", {0, 0, 375, 5000}, view);
    struct Case {
        bool delays;
        const char* steps;
        const char* journal;
    };
    const Case cases[] = {
        {true, "d100,300 +0.14", ""},
        {true, "d100,300 +0.16", "inner:began"},
        {true, "d100,300 +0.05 u", "inner:began inner:ended"},
        {true, "d100,300 +0.05 m100,295 u", "inner:began inner:moved inner:ended"},
        {true, "d100,300 +0.05 m100,280 u", ""},
        {true, "d100,300 +0.16 m100,295 m100,280 u", "inner:began inner:moved inner:cancelled"},
        {false, "d100,300", "inner:began"},
        {false, "d100,300 m100,280 u", "inner:began inner:cancelled"},
    };
    for (const Case& each : cases) {
        view->setDelaysContentTouches(each.delays);
        view->setContentOffset({0, 1000}, false);
        play(each.steps);
        EXPECT_EQ(journal.take(), each.journal) << each.steps;
        play("c +5");
        journal.take();
    }
    // What cannot be dragged is told at once.
    view->setDelaysContentTouches(true);
    view->setContentSize({375, 600});
    play("d100,300");
    EXPECT_EQ(journal.take(), "inner:began");
}

/// Answers the questions about touches inside as it is told.
class AskingScrollView : public UIScrollView {
    ZN_OBJECT(AskingScrollView, UIScrollView)
public:
    using UIScrollView::UIScrollView;
    std::optional<bool> cancels;
    bool begins = true;
    int asked = 0;

    bool touchesShouldBegin(const TouchSet&, const Ref<UIEvent>&, const Ref<UIView>&) override {
        ++asked;
        return begins;
    }
    bool touchesShouldCancelInContentView(const Ref<UIView>& content) override {
        return cancels ? *cancels : UIScrollView::touchesShouldCancelInContentView(content);
    }
};

TEST_F(ScrollTouchTest, AViewInsideKeepsTheFingerThatItMay) {
    const auto asking = make<AskingScrollView>(Rect(0, 0, 375, 667));
    asking->setContentSize({375, 5000});
    window->addSubview(asking);
    addView("inner", {0, 0, 200, 5000}, asking);
    const auto button = make<UIButton>(Rect(200, 0, 175, 5000));
    asking->addSubview(button);
    struct Case {
        const char* name;
        double at;
        std::optional<bool> cancels;
        bool can;
        double waits;
        bool scrolls;
    };
    const Case cases[] = {
        {"a view", 100, {}, true, 0.2, true},
        {"a view that may not be cancelled", 100, {}, false, 0.2, false},
        {"a view whose hook says no", 100, false, true, 0.2, false},
        {"a control", 300, {}, true, 0.2, false},
        {"a control whose hook says yes", 300, true, true, 0.2, true},
        {"a control, hook or not, that may not", 300, true, false, 0.2, false},
        {"a control that has not heard of it", 300, {}, true, 0.05, true},
    };
    for (const Case& each : cases) {
        asking->setContentOffset({0, 1000}, false);
        asking->cancels = each.cancels;
        asking->setCanCancelContentTouches(each.can);
        const std::string place = std::to_string(each.at) + ",";
        play("d" + place + "400 +" + std::to_string(each.waits) + " m" + place + "380 m" + place +
             "300");
        EXPECT_EQ(asking->contentOffset().y != 1000, each.scrolls) << each.name;
        EXPECT_EQ(asking->isTracking(), each.scrolls) << each.name;
        EXPECT_EQ(button->highlighted(), each.at == 300 && !each.scrolls) << each.name;
        play("c +5");
    }
    asking->begins = false;
    asking->asked = 0;
    journal.take();
    play("d100,300 +0.5 m100,302 u +1");
    EXPECT_EQ(journal.take(), "");
    EXPECT_EQ(asking->asked, 1);
}

TEST_F(ScrollTouchTest, ATapOnAButtonInsideFiresOnce) {
    const auto button = make<UIButton>(Rect(0, 0, 200, 100));
    view->addSubview(button);
    struct Counter : NSObject {
        int taps = 0;
        void tapped() { ++taps; }
    };
    const auto counter = make<Counter>();
    button->addTarget(ZN_ACTION(counter, tapped), UIControlEvents::TouchUpInside);
    play("d50,50 +0.05 u +1");
    EXPECT_EQ(counter->taps, 1);
    play("d50,50 +0.3 u +1");
    EXPECT_EQ(counter->taps, 2);
    play("d50,50 +0.02 m50,20 u +5");
    EXPECT_EQ(counter->taps, 2);
}

TEST_F(ScrollTouchTest, OfTwoCrossingOnesEachTakesItsWay) {
    const auto row = make<UIScrollView>(Rect(0, 100, 375, 200));
    row->setContentSize({1500, 200});
    view->addSubview(row);
    const auto after = [&](const char* steps) {
        row->setContentOffset({}, false);
        view->setContentOffset({}, false);
        play(steps);
        const std::string moved =
            std::string(row->contentOffset().x != 0 ? "row" : "") + (y() != 0 ? "page" : "");
        play("c +5");
        return moved;
    };
    EXPECT_EQ(after("d200,200 m185,200 m150,180"), "row");
    EXPECT_EQ(after("d200,200 m200,185 m150,100"), "page");
    EXPECT_EQ(after("d200,200 m192,188 m150,100"), "page");
    EXPECT_EQ(after("d200,200 m188,192 m100,150"), "row");
}

TEST_F(ScrollTouchTest, AtItsEndTheInnerOneLeavesTheFingerToTheOuter) {
    const auto inner = make<UIScrollView>(Rect(0, 100, 375, 200));
    inner->setContentSize({375, 600});
    view->addSubview(inner);
    const auto moved = [&](double innerOffset, double outerOffset, double finger) {
        inner->setContentOffset({0, innerOffset}, false);
        view->setContentOffset({0, outerOffset}, false);
        fling({100, 200}, {100, 200 + finger}, 0.1);
        const std::string who =
            std::string(inner->contentOffset().y != innerOffset ? "inner" : "") +
            (y() != outerOffset ? "outer" : "");
        play("c +5");
        return who;
    };
    EXPECT_EQ(moved(0, 0, -40), "inner");
    EXPECT_EQ(moved(400, 0, -40), "outer");
    EXPECT_EQ(moved(0, 60, 40), "outer");
    EXPECT_EQ(moved(0, 0, 40), "inner") << "nobody can go on: the inner one bounces";
}

TEST_F(ScrollTouchTest, TheEdgeOfTheScreenComesFirst) {
    view->setContentSize({2000, 667});
    view->setContentOffset({500, 0}, false);
    const auto edge = make<UIScreenEdgePanGestureRecognizer>();
    edge->setEdges(UIRectEdge::Left);
    window->addGestureRecognizer(edge);
    play("d5,300 m60,300");
    EXPECT_EQ(edge->state(), UIGestureRecognizerState::Began);
    EXPECT_EQ(x(), 500);
    play("u +1 d100,300 m160,300");
    EXPECT_EQ(x(), 450);
    play("c +5");
    view->setContentOffset({500, 0}, false);
    view->setContentSize({2000, 2000});
    // Not inward: the edge gives it up.
    play("d5,300 m5,260");
    EXPECT_EQ(y(), 30);
}

TEST_F(ScrollTouchTest, TheDelegateMayInterfereAnywhere) {
    view->setContentOffset({0, 1000}, false);
    listener->take();
    const auto drag = [this] {
        flick({100, 500}, {100, 300}, 0.1);
        clock.advance(10);
        return listener->take();
    };
    listener->whenDragged = [](UIScrollView& scrolled) { scrolled.setScrollEnabled(false); };
    EXPECT_EQ(drag(), "begin release left:stay");
    view->setScrollEnabled(true);
    listener->whenDragged = nullptr;
    listener->whenLeft = [](UIScrollView& scrolled) { scrolled.setContentOffset({0, 7}, false); };
    EXPECT_EQ(drag(), "begin scroll release left:fly scroll");
    EXPECT_EQ(y(), 7);
    listener->whenLeft = [](UIScrollView& scrolled) { scrolled.setContentOffset({0, 99}, true); };
    EXPECT_EQ(drag(), "begin scroll release left:fly scroll animated");
    EXPECT_EQ(y(), 99);
    listener->whenLeft = nullptr;
    // An offset that the handler sets is where the finger goes on from.
    listener->whenScrolled = [](UIScrollView& scrolled) {
        if (scrolled.contentOffset().y < 1000)
            scrolled.setContentOffset({0, scrolled.contentOffset().y + 1000});
    };
    fling({100, 500}, {100, 290}, 0.1);
    EXPECT_NEAR(y(), 1000 + 99 + 200, 1);
    play("c +1");
    listener->whenScrolled = [this](UIScrollView&) {
        if (view)
            std::exchange(view, nullptr)->removeFromSuperview();
    };
    flick({100, 500}, {100, 300}, 0.1);
    EXPECT_EQ(view, nullptr);
    clock.advance(1);
}

TEST_F(ScrollTouchTest, AnAnimatedChangeEndsUnderAFinger) {
    view->setContentOffset({0, 1000}, true);
    clock.advance(0.15);
    play("d100,300");
    const double there = y();
    play("+1 u +1");
    EXPECT_EQ(y(), there);
    EXPECT_EQ(listener->take(), "scroll");
}

TEST_F(ScrollTouchTest, ADragMayPutTheKeyboardAway) {
    class Field : public UIView {
    public:
        using UIView::UIView;
        bool canBecomeFirstResponder() const override { return true; }
    };
    const auto field = make<Field>(Rect(0, 0, 10, 10));
    view->addSubview(field);
    field->becomeFirstResponder();
    flick({100, 500}, {100, 300}, 0.1);
    EXPECT_TRUE(field->isFirstResponder());
    view->setKeyboardDismissMode(UIScrollViewKeyboardDismissMode::OnDrag);
    flick({100, 500}, {100, 300}, 0.1);
    EXPECT_FALSE(field->isFirstResponder());
}

}  // namespace
}  // namespace zn::test
