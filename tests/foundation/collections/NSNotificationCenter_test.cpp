#include "zarnic/platform/foundation/NSNotificationCenter.h"

#include <gmock/gmock.h>

#include <functional>

using namespace zn;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Observer final : public NSObject {
public:
    explicit Observer(std::vector<std::string>& calls, std::string label = {})
        : calls_(calls), label_(std::move(label)) {}

    void note(const Ref<NSNotification>& notification) {
        calls_.push_back(label_ + notification->name() + notification->userInfo().stringValue());
        if (then)
            then();
    }
    void noteNothing() { calls_.push_back(label_ + "called"); }

    std::function<void()> then;

private:
    std::vector<std::string>& calls_;
    std::string label_;
};

class NSNotificationCenterTest : public testing::Test {
protected:
    Ref<Observer> observer(const std::string& label = {}) { return make<Observer>(calls, label); }
    void add(const Ref<Observer>& observer, std::string_view name,
             const Ref<NSObject>& object = {}) {
        center->addObserver(ZN_ACTION(observer, note), name, object);
    }

    std::vector<std::string> calls;
    Ref<NSNotificationCenter> center = make<NSNotificationCenter>();
};

}  // namespace

TEST_F(NSNotificationCenterTest, filtersByNameAndByTheObjectsIdentity) {
    const auto all = observer("all "), named = observer("named "), sent = observer("sent ");
    const auto sender = make<NSObject>(), other = make<NSObject>();
    add(all, "");
    add(named, "a");
    add(sent, "", sender);
    center->postNotificationName("a", nullptr, 5);
    center->postNotificationName("b", sender);
    center->postNotificationName("b", other);
    EXPECT_THAT(calls, ElementsAre("all a5", "named a5", "all b", "sent b", "all b"));
}

TEST_F(NSNotificationCenterTest, callsTwiceWhoIsRegisteredTwiceInOrderOfRegistration) {
    const auto first = observer("1"), second = observer("2");
    add(first, "a");
    center->addObserver(ZN_ACTION(second, noteNothing), "a");
    add(first, "a");
    center->postNotificationName("a");
    EXPECT_THAT(calls, ElementsAre("1a", "2called", "1a"));
}

TEST_F(NSNotificationCenterTest, removesByObserverNameAndObject) {
    const auto kept = observer("kept "), removed = observer("removed ");
    const auto sender = make<NSObject>();
    center->removeObserver(removed);
    add(kept, "a");
    for (const auto* name : {"a", "b", "c"})
        add(removed, name);
    add(removed, "d", sender);
    center->removeObserver(removed, "a");
    center->removeObserver(removed, "", sender);
    for (const auto* name : {"a", "b", "d"})
        center->postNotificationName(name, sender);
    center->removeObserver(removed.get());
    center->postNotificationName("b", sender);
    EXPECT_THAT(calls, ElementsAre("kept a", "removed b"));
}

TEST_F(NSNotificationCenterTest, whilePostingSkipsTheRemovedAndLeavesOutTheAdded) {
    const auto first = observer("1"), second = observer("2"), third = observer("3");
    add(first, "a");
    add(second, "a");
    first->then = [&] {
        center->removeObserver(second);
        add(third, "a");
    };
    center->postNotificationName("a");
    EXPECT_THAT(calls, ElementsAre("1a"));
    first->then = nullptr;
    center->postNotificationName("a");
    EXPECT_THAT(calls, ElementsAre("1a", "1a", "3a"));
}

TEST_F(NSNotificationCenterTest, forgetsDeadObserversAndDeadSenders) {
    auto dead = observer();
    auto sender = make<NSObject>();
    const auto living = observer();
    add(dead, "");
    add(living, "", sender);
    dead = nullptr;
    sender = nullptr;
    center->postNotificationName("a");
    center->postNotificationName("a", make<NSObject>());
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(NSNotificationCenterTest, anObserverMayDieWhileItIsCalled) {
    auto only = observer();
    add(only, "a");
    only->then = [&] { only = nullptr; };
    center->postNotificationName("a");
    center->postNotificationName("a");
    EXPECT_THAT(calls, ElementsAre("a"));
}
