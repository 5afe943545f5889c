#include "zarnic/platform/uikit/UIGestureRecognizer.h"

#include "tests/uikit/touch/TouchFixture.h"
#include "zarnic/platform/uikit/UIButton.h"
#include "zarnic/platform/uikit/UILongPressGestureRecognizer.h"
#include "zarnic/platform/uikit/UIPanGestureRecognizer.h"
#include "zarnic/platform/uikit/UIScreenEdgePanGestureRecognizer.h"
#include "zarnic/platform/uikit/UITapGestureRecognizer.h"

namespace zn::test {
namespace {

/// Writes "name:began", "name:changed", "name:ended" or "name:cancelled" for a recogniser.
class Listener : public NSObject {
    ZN_OBJECT(Listener, NSObject)
public:
    Listener(Journal& journal, std::string name) : journal_(journal), name_(std::move(name)) {}
    std::function<void(const Ref<UIGestureRecognizer>&)> whenTold;

    void hear(const Ref<UIGestureRecognizer>& sender) {
        static const char* const words[] = {"possible", "began",     "changed",
                                            "ended",    "cancelled", "failed"};
        journal_.add(name_ + ":" + words[static_cast<int>(sender->state())]);
        if (whenTold)
            whenTold(sender);
    }

private:
    Journal& journal_;
    std::string name_;
};

class Decider : public NSObject, public UIGestureRecognizerDelegate {
    ZN_OBJECT(Decider, NSObject)
public:
    bool begins = true, receives = true, together = false;
    bool gestureRecognizerShouldBegin(const Ref<UIGestureRecognizer>&) override { return begins; }
    bool gestureRecognizerShouldReceiveTouch(const Ref<UIGestureRecognizer>&,
                                             const Ref<UITouch>&) override {
        return receives;
    }
    bool gestureRecognizerShouldRecognizeSimultaneouslyWithGestureRecognizer(
        const Ref<UIGestureRecognizer>&, const Ref<UIGestureRecognizer>&) override {
        return together;
    }
};

class UIGestureRecognizerTest : public TouchTest {
protected:
    void SetUp() override {
        TouchTest::SetUp();
        view = addView("view", {0, 0, 375, 667});
    }

    template <class T>
    Ref<T> add(const std::string& name, Ref<UIView> to = nullptr) {
        listeners.push_back(make<Listener>(journal, name));
        const auto recognizer = make<T>(ZN_ACTION(listeners.back(), hear));
        (to ? to : view)->addGestureRecognizer(recognizer);
        return recognizer;
    }

    struct Case {
        const char* steps;
        const char* journal;
    };
    template <std::size_t Count>
    void expect(const Case (&cases)[Count]) {
        for (const Case& each : cases) {
            play(each.steps);
            EXPECT_EQ(journal.take(), each.journal) << each.steps;
            play("c 2:c +2");
            journal.take();
        }
    }

    Ref<TouchedView> view;
    std::vector<Ref<Listener>> listeners;
};

TEST_F(UIGestureRecognizerTest, ATapIsShortAndStays) {
    add<UITapGestureRecognizer>("tap");
    expect({{"d10,10 u", "view:began view:cancelled tap:ended"},
            {"d10,10 m40,10 u", "view:began view:moved view:cancelled tap:ended"},
            {"d10,10 m60,10 u", "view:began view:moved view:ended"},
            {"d10,10 u60,10", "view:began view:ended"},
            {"d10,10 +0.8 u", "view:began view:ended"},
            {"d10,10 c", "view:began view:cancelled"},
            {"d10,10 2:d50,50 u 2:u", "view:began view:ended"}});
}

TEST_F(UIGestureRecognizerTest, ADoubleTapHasAShortPauseAndOnePlace) {
    add<UITapGestureRecognizer>("twice")->setNumberOfTapsRequired(2);
    view->setUserInteractionEnabled(true);
    expect({{"d10,10 u +0.1 d12,12 u",
             "view:began view:began2 view:cancelled view:cancelled2 twice:ended"},
            {"d10,10 u +0.4", "view:began view:ended"},
            {"d10,10 u +0.4 d10,10 u", "view:began view:ended view:began"},
            {"d10,10 u +0.1 d100,100 u +1", "view:began view:ended view:began view:ended"}});
}

TEST_F(UIGestureRecognizerTest, ATapOfTwoFingersNeedsBothTogether) {
    add<UITapGestureRecognizer>("two")->setNumberOfTouchesRequired(2);
    view->setMultipleTouchEnabled(true);
    expect(
        {{"d10,10 2:d90,90 2:u u", "view:began view:began view:cancelled view:cancelled two:ended"},
         {"d10,10 u", "view:began view:ended"},
         {"d10,10 u 2:d90,90 2:u", "view:began view:ended view:began view:ended"}});
}

TEST_F(UIGestureRecognizerTest, ALongPressLasts) {
    add<UILongPressGestureRecognizer>("press");
    expect(
        {{"d10,10 +0.4 u", "view:began view:ended"},
         {"d10,10 +0.5 m20,20 u",
          "view:began view:cancelled press:began press:changed press:ended"},
         {"d10,10 m15,10 +0.5 u", "view:began view:moved view:cancelled press:began press:ended"},
         {"d10,10 m25,10 +0.6 u", "view:began view:moved view:ended"},
         {"d10,10 +0.5 c", "view:began view:cancelled press:began press:cancelled"}});
}

TEST_F(UIGestureRecognizerTest, APanBeginsAfterTenPoints) {
    add<UIPanGestureRecognizer>("pan");
    expect({{"d10,10 m19,10 u", "view:began view:moved view:ended"},
            {"d10,10 m20,10 m30,10 u", "view:began view:cancelled pan:began pan:changed pan:ended"},
            {"d10,10 m20,10 c", "view:began view:cancelled pan:began pan:cancelled"},
            {"d10,10 m20,10 2:d90,90 u 2:m95,95 2:u",
             "view:began view:cancelled pan:began pan:changed pan:ended"}});
}

TEST_F(UIGestureRecognizerTest, APanKnowsHowFarAndHowFast) {
    const auto pan = add<UIPanGestureRecognizer>("pan");
    play("d10,10 +0.02 m20,10 +0.02 m40,14");
    EXPECT_EQ(pan->translationInView(view), (Point{30, 4}));
    EXPECT_EQ(pan->locationInView(view), (Point{40, 14}));
    EXPECT_NEAR(pan->velocityInView(view).x, 30 / 0.04, 1e-6);
    EXPECT_NEAR(pan->velocityInView(view).y, 4 / 0.04, 1e-6);
    pan->setTranslation({1, 2}, view);
    // A second finger and a lifted one do not move it.
    play("2:d200,200 m50,14 u 2:m206,200");
    EXPECT_EQ(pan->translationInView(view), (Point{12, 2}));
    play("+0.2");
    EXPECT_EQ(pan->velocityInView(view), (Point{0, 0}));
}

TEST_F(UIGestureRecognizerTest, APanMeasuresInTheDirectionsOfTheView) {
    const auto pan = add<UIPanGestureRecognizer>("pan");
    const auto small = make<UIView>(Rect{50, 50, 100, 100});
    small->setTransform(AffineTransform::scale(2, 2));
    view->addSubview(small);
    play("d300,300 m320,300");
    EXPECT_EQ(pan->translationInView(small), (Point{10, 0}));
    pan->setTranslation({4, 0}, small);
    EXPECT_EQ(pan->translationInView(view), (Point{8, 0}));
}

TEST_F(UIGestureRecognizerTest, APanTakesTheFingersThatItMay) {
    const auto pan = add<UIPanGestureRecognizer>("pan");
    pan->setMinimumNumberOfTouches(2);
    pan->setMaximumNumberOfTouches(2);
    expect({{"d10,10 m50,10 u", "view:began view:moved view:ended"},
            {"d10,10 2:d90,90 m50,10 u 2:u", "view:began view:cancelled pan:began pan:ended"},
            {"d10,10 2:d90,90 3:d50,50 m50,10 u 2:u 3:u", "view:began view:moved view:ended"}});
}

TEST_F(UIGestureRecognizerTest, AnEdgePanComesInFromItsEdge) {
    add<UIScreenEdgePanGestureRecognizer>("edge")->setEdges(UIRectEdge::Left);
    expect({{"d5,100 m30,100 u", "view:began view:cancelled edge:began edge:ended"},
            {"d21,100 m60,100 u", "view:began view:moved view:ended"},
            {"d5,100 m8,130 m60,130 u", "view:began view:moved view:moved view:ended"},
            {"d370,100 m330,100 u", "view:began view:moved view:ended"}});
}

TEST_F(UIGestureRecognizerTest, TheOneThatRecognisesFirstMakesTheOthersFail) {
    const auto inner = addView("inner", {0, 0, 100, 100}, view);
    add<UIPanGestureRecognizer>("pan", inner);
    add<UIPanGestureRecognizer>("outer");
    play("d10,10 m30,10 u");
    EXPECT_EQ(journal.take(), "inner:began inner:cancelled pan:began pan:ended");
}

TEST_F(UIGestureRecognizerTest, EitherDelegateMayLetTwoRunTogether) {
    const auto first = add<UIPanGestureRecognizer>("first");
    const auto second = add<UIPanGestureRecognizer>("second");
    const auto decider = make<Decider>();
    decider->together = true;
    for (const auto& asked : {first, second}) {
        asked->setDelegate(decider);
        play("d10,10 m30,10 u");
        EXPECT_EQ(journal.take(),
                  "view:began view:cancelled first:began second:began first:ended second:ended");
        asked->setDelegate(nullptr);
        play("+1");
    }
}

TEST_F(UIGestureRecognizerTest, TheDelegateDecidesWhatItSeesAndWhetherItBegins) {
    const auto pan = add<UIPanGestureRecognizer>("pan");
    const auto decider = make<Decider>();
    pan->setDelegate(decider);
    decider->begins = false;
    play("d10,10 m30,10 m60,10 u");
    EXPECT_EQ(journal.take(), "view:began view:moved view:moved view:ended");
    decider->begins = true;
    decider->receives = false;
    play("+1 d10,10 m30,10 u");
    EXPECT_EQ(journal.take(), "view:began view:moved view:ended");
}

TEST_F(UIGestureRecognizerTest, ARequirementIsWaitedFor) {
    const auto once = add<UITapGestureRecognizer>("once");
    const auto twice = add<UITapGestureRecognizer>("twice");
    twice->setNumberOfTapsRequired(2);
    once->requireGestureRecognizerToFail(twice);
    expect({{"d10,10 u", "view:began"},
            {"d10,10 u +0.4", "view:began view:cancelled once:ended"},
            {"d10,10 u +0.1 d10,10 u",
             "view:began view:began2 view:cancelled view:cancelled2 twice:ended"}});
    // One that is off is no obstacle.
    twice->setEnabled(false);
    play("d10,10 u");
    EXPECT_EQ(journal.take(), "view:began view:cancelled once:ended");
}

TEST_F(UIGestureRecognizerTest, ASingleTapDoesNotKeepADoubleTapFromHappening) {
    add<UITapGestureRecognizer>("once");
    add<UITapGestureRecognizer>("twice")->setNumberOfTapsRequired(2);
    play("d10,10 u +0.1 d10,10 u");
    EXPECT_EQ(journal.take(),
              "view:began view:cancelled once:ended view:began2 view:cancelled2 "
              "once:ended twice:ended");
}

TEST_F(UIGestureRecognizerTest, DisablingEndsARunningGesture) {
    const auto pan = add<UIPanGestureRecognizer>("pan");
    play("d10,10 m30,10");
    pan->setEnabled(false);
    pan->setEnabled(true);
    // The same finger does not begin another one.
    play("m60,10 m90,10 u");
    EXPECT_EQ(journal.take(), "view:began view:cancelled pan:began pan:cancelled");
    play("+1 d10,10 m30,10 u");
    EXPECT_EQ(journal.take(), "view:began view:cancelled pan:began pan:ended");
}

TEST_F(UIGestureRecognizerTest, ItMayBeDisabledInItsOwnAction) {
    const auto pan = add<UIPanGestureRecognizer>("pan");
    listeners.back()->whenTold = [](const auto& sender) { sender->setEnabled(false); };
    play("d10,10 m30,10 m60,10 u");
    EXPECT_EQ(journal.take(), "view:began view:cancelled pan:began pan:cancelled");
    EXPECT_EQ(pan->state(), UIGestureRecognizerState::Possible);
}

TEST_F(UIGestureRecognizerTest, ATouchMayOutliveItsViewAndItsRecogniser) {
    const auto inner = addView("inner", {0, 0, 100, 100}, view);
    add<UIPanGestureRecognizer>("outer");
    add<UIPanGestureRecognizer>("inner", inner);
    play("d10,10");
    inner->removeFromSuperview();
    // The superview's recogniser goes on with the finger.
    play("m30,10 u");
    EXPECT_EQ(journal.take(), "inner:began inner:cancelled outer:began outer:ended");
    play("+1 d10,10 m30,10");
    view->removeFromSuperview();
    clock.settle();
    play("m60,10 u");
    EXPECT_EQ(journal.take(), "view:began view:cancelled outer:began outer:cancelled");
}

TEST_F(UIGestureRecognizerTest, DelayedTouchesReachTheViewOnceTheGestureHasFailed) {
    const auto pan = add<UIPanGestureRecognizer>("pan");
    pan->setDelaysTouchesBegan(true);
    expect({{"d10,10 m15,10 u", "view:began view:moved view:ended"},
            {"d10,10 m15,10", ""},
            {"d10,10 m30,10 u", "pan:began pan:ended"}});
    pan->setCancelsTouchesInView(false);
    play("d10,10 m30,10 u");
    EXPECT_EQ(journal.take(), "pan:began view:began view:moved pan:ended view:ended");
}

TEST_F(UIGestureRecognizerTest, WithoutCancellingTheViewKeepsItsTouch) {
    add<UIPanGestureRecognizer>("pan")->setCancelsTouchesInView(false);
    play("d10,10 m30,10 u");
    EXPECT_EQ(journal.take(), "view:began pan:began view:moved pan:ended view:ended");
}

TEST_F(UIGestureRecognizerTest, ASingleTapOnAControlBelongsToTheControl) {
    add<UITapGestureRecognizer>("tap");
    const auto button = make<UIButton>(Rect{0, 0, 50, 50});
    view->addSubview(button);
    const auto listener = make<Listener>(journal, "button");
    button->addTarget(ZN_ACTION(view, setNeedsLayout), UIControlEvents::TouchUpInside);
    play("d10,10 u");
    EXPECT_EQ(journal.take(), "");
    button->setEnabled(false);
    play("+1 d10,10 u");
    EXPECT_EQ(journal.take(), "view:began view:cancelled tap:ended");
    add<UITapGestureRecognizer>("own", button);
    button->setEnabled(true);
    play("+1 d10,10 u");
    EXPECT_EQ(journal.take(), "own:ended");
}

TEST_F(UIGestureRecognizerTest, TheSameActionCountsOnceAndCanBeRemoved) {
    const auto tap = add<UITapGestureRecognizer>("tap");
    const Action action = ZN_ACTION(listeners.back(), hear);
    tap->addTarget(action);
    play("d10,10 u");
    EXPECT_EQ(journal.take(), "view:began view:cancelled tap:ended");
    tap->removeTarget(action);
    play("+1 d10,10 u");
    EXPECT_EQ(journal.take(), "view:began view:cancelled");
}

}  // namespace
}  // namespace zn::test
