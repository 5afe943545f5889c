#include "zarnic/platform/uikit/UIControl.h"

#include "tests/uikit/touch/TouchFixture.h"
#include "zarnic/platform/uikit/UIButton.h"

namespace zn::test {
namespace {

/// Writes a word down each time it is told to.
class Listener : public NSObject {
    ZN_OBJECT(Listener, NSObject)
public:
    Listener(Journal& journal, std::string word) : journal_(journal), word_(std::move(word)) {}
    std::function<void(const Ref<UIControl>&)> whenTold;
    void hear(const Ref<UIControl>& sender) {
        journal_.add(word_);
        if (whenTold)
            std::exchange(whenTold, {})(sender);
    }

private:
    Journal& journal_;
    std::string word_;
};

class UIControlTest : public TouchTest {
protected:
    /// A listener for every touch event, named by its number.
    void listen(const Ref<UIControl>& control) {
        for (const unsigned event : {1u, 2u, 4u, 8u, 16u, 32u, 64u, 128u, 256u, 8192u}) {
            listeners.push_back(make<Listener>(journal, std::to_string(event)));
            control->addTarget(ZN_ACTION(listeners.back(), hear), event);
        }
    }

    template <class T>
    Ref<T> addControl() {
        const auto control = make<T>(Rect{100, 200, 80, 40});
        window->addSubview(control);
        listen(control);
        return control;
    }

    std::vector<Ref<Listener>> listeners;
};

TEST_F(UIControlTest, OneFingerSendsTheEventsOfItsWay) {
    addControl<UIControl>();
    struct Case {
        const char* steps;
        const char* events;
    };
    const Case cases[] = {
        {"d110,210 u", "1 64"},
        {"d110,210 m120,220 u", "1 4 64"},
        // 70 points below still count as inside, for dragging and for letting go.
        {"d110,210 m110,309 u", "1 4 64"},
        {"d110,210 u110,309", "1 64"},
        {"d110,210 m110,310 m110,311 u", "1 32 8 8 128"},
        {"d110,210 u110,310", "1 128"},
        {"d110,210 m110,320 m110,300 u", "1 32 8 16 4 64"},
        {"d110,210 c", "1 256"},
        {"d110,210 m110,320 c", "1 32 8 256"},
        {"d110,210 u d110,210 u", "1 64 1 2 64"},
        {"d110,210 2:d120,220 2:u u", "1 64"},
    };
    for (const Case& each : cases) {
        play(each.steps);
        EXPECT_EQ(journal.take(), each.events) << each.steps;
        play("+1");
    }
}

TEST_F(UIControlTest, AButtonSendsItsPrimaryActionToo) {
    addControl<UIButton>();
    play("d110,210 u +1 d110,210 m110,320 u");
    EXPECT_EQ(journal.take(), "1 64 8192 1 32 8 128");
}

TEST_F(UIControlTest, TheFingerHighlightsWhileItIsInside) {
    const auto control = addControl<UIControl>();
    play("d110,210");
    EXPECT_EQ(control->state(), UIControlState::Highlighted);
    EXPECT_TRUE(control->tracking());
    play("m110,320");
    EXPECT_EQ(control->state(), UIControlState::Normal);
    play("m110,220");
    control->setSelected(true);
    EXPECT_EQ(control->state(), UIControlState::Highlighted | UIControlState::Selected);
    play("u");
    EXPECT_EQ(control->state(), UIControlState::Selected);
    EXPECT_FALSE(control->tracking());
}

TEST_F(UIControlTest, TheSameActionForAnEventCountsOnce) {
    const auto control = make<UIControl>(Rect{0, 0, 50, 50});
    const auto listener = make<Listener>(journal, "told");
    control->addTarget(ZN_ACTION(listener, hear), UIControlEvents::TouchDown);
    control->addTarget(ZN_ACTION(listener, hear), UIControlEvents::TouchDown);
    control->addTarget(ZN_ACTION(listener, hear), UIControlEvents::TouchUpInside);
    control->sendActionsForControlEvents(UIControlEvents::TouchDown);
    EXPECT_EQ(journal.take(), "told");
    control->removeTarget(ZN_ACTION(listener, hear), UIControlEvents::TouchDown);
    control->sendActionsForControlEvents(UIControlEvents::TouchDown |
                                         UIControlEvents::TouchUpInside);
    EXPECT_EQ(journal.take(), "told");
    control->removeTarget({}, UIControlEvents::AllEvents);
    control->sendActionsForControlEvents(UIControlEvents::AllEvents);
    EXPECT_EQ(journal.take(), "");
}

TEST_F(UIControlTest, AnActionThatAnEarlierOneRemovedIsNotSent) {
    const auto control = make<UIControl>(Rect{0, 0, 50, 50});
    const auto first = make<Listener>(journal, "first");
    const auto second = make<Listener>(journal, "second");
    control->addTarget(ZN_ACTION(first, hear), 1);
    control->addTarget(ZN_ACTION(second, hear), 1);
    first->whenTold = [&](const auto& sender) { sender->removeTarget(ZN_ACTION(second, hear), 1); };
    control->sendActionsForControlEvents(1);
    EXPECT_EQ(journal.take(), "first");
}

TEST_F(UIControlTest, AControlMayBeDestroyedByItsOwnAction) {
    auto control = addControl<UIControl>();
    const WeakRef<UIControl> weak = control;
    control = nullptr;
    listeners.front()->whenTold = [](const auto& sender) { sender->removeFromSuperview(); };
    play("d110,210");
    EXPECT_TRUE(weak.expired());
    play("m120,220 u");
    EXPECT_EQ(journal.take(), "1");
}

TEST_F(UIControlTest, ADisabledControlLeavesTouchesToItsSuperview) {
    const auto parent = addView("parent", {0, 0, 375, 667});
    const auto control = make<UIControl>(Rect{100, 200, 80, 40});
    parent->addSubview(control);
    listen(control);
    control->setEnabled(false);
    play("d110,210 u");
    EXPECT_EQ(journal.take(), "parent:began parent:ended");
    EXPECT_EQ(control->state(), UIControlState::Disabled);
}

TEST_F(UIControlTest, DisablingCancelsTheTouchInProgress) {
    const auto control = addControl<UIControl>();
    play("d110,210");
    control->setEnabled(false);
    play("m120,220 u");
    EXPECT_EQ(journal.take(), "1 256");
    EXPECT_EQ(control->state(), UIControlState::Disabled);
}

TEST_F(UIControlTest, LeavingTheWindowCancelsTheTouchInProgress) {
    const auto control = addControl<UIControl>();
    play("d110,210");
    control->removeFromSuperview();
    clock.settle();
    EXPECT_EQ(journal.take(), "1 256");
    EXPECT_FALSE(control->highlighted());
}

}  // namespace
}  // namespace zn::test
