#include "zarnic/platform/foundation/NSTimer.h"

#include <gmock/gmock.h>

#include "tests/support/TestClock.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;

Ref<NSRunLoop> loop() {
    return NSRunLoop::mainRunLoop();
}

Ref<NSDate> inSeconds(double seconds) {
    return NSDate::dateWithTimeIntervalSinceNow(seconds);
}

/// A timer on the main loop that notes when it fires and may do something then.
struct Recorder {
    explicit Recorder(double interval, bool repeats = true,
                      NSRunLoopMode mode = NSRunLoopMode::Default) {
        testClock();
        timer = NSTimer::timerWithTimeInterval(interval, repeats, [this](const Ref<NSTimer>&) {
            fires.push_back(testClock().monotonic());
            if (whenFired)
                whenFired();
        });
        loop()->addTimer(timer, mode);
    }
    ~Recorder() { timer->invalidate(); }

    Ref<NSTimer> timer;
    std::vector<double> fires;
    std::function<void()> whenFired;
};

class Target final : public NSObject {
    ZN_OBJECT(Target, NSObject)
public:
    void tick(const Ref<NSTimer>& timer) {
        ++ticks;
        lastUserInfo = timer->userInfo();
        wasValid = timer->valid();
    }
    int ticks = 0;
    bool wasValid = false;
    Value lastUserInfo;
};

TEST(NSTimerTest, FiresOnTheGridOfItsInterval) {
    Recorder third(0.1);
    Recorder once(0.25, false);
    for (int i = 0; i < 3; ++i)
        testClock().advance(0.1);
    EXPECT_THAT(third.fires, ElementsAre(0.1, 0.2, 0.3));
    EXPECT_THAT(once.fires, ElementsAre(0.25));
    EXPECT_FALSE(once.timer->valid());
    EXPECT_TRUE(third.timer->valid());
}

TEST(NSTimerTest, RaisesIntervalsThatAreTooShort) {
    Recorder single(-5, false), repeating(0), negative(-1);
    EXPECT_EQ(repeating.timer->timeInterval(), 0.0001);
    EXPECT_EQ(negative.timer->timeInterval(), 0.0001);
    EXPECT_EQ(single.timer->timeInterval(), 0);
    testClock().settle();
    EXPECT_EQ(single.fires.size(), 1U);
    testClock().advance(0.001);
    EXPECT_EQ(repeating.fires.size(), 10U);
}

TEST(NSTimerTest, SkipsLateFiresAndKeepsTheGrid) {
    Recorder timer(1);
    timer.whenFired = [&] {
        if (timer.fires.size() == 1)
            testClock().sleep(2.5);
    };
    testClock().advance(5);
    // Fired at 1, slept to 3.5: the fires of 2 and 3 are lost.
    EXPECT_THAT(timer.fires, ElementsAre(1, 4, 5));
    testClock().sleep(3.2);
    testClock().settle();
    // The fire of 6 comes late and alone.
    EXPECT_THAT(timer.fires, ElementsAre(1, 4, 5, 8.2));
    testClock().advance(0.8);
    EXPECT_THAT(timer.fires, ElementsAre(1, 4, 5, 8.2, 9));
}

TEST(NSTimerTest, SettingTheFireDateAnchorsTheGridAnew) {
    Recorder timer(1);
    testClock().advance(1.25);
    timer.timer->setFireDate(inSeconds(0.5));
    testClock().advance(2);
    EXPECT_THAT(timer.fires, ElementsAre(1, 1.75, 2.75));
    timer.timer->setFireDate(NSDate::distantPast());
    EXPECT_EQ(timer.timer->fireDate()->timeIntervalSinceNow(), 0);
    testClock().advance(1);
    EXPECT_THAT(timer.fires, ElementsAre(1, 1.75, 2.75, 3.25, 4.25));
}

TEST(NSTimerTest, FireDateSetInTheCallBackCountsOnlyWhenLaterThanTheOneFired) {
    const struct {
        const char* name;
        double set;  // seconds from the call-back, which comes at 1
        std::vector<double> fires;
    } cases[] = {
        {"later than the grid", 2.5, {1, 3.5}},
        {"before the grid", 0.25, {1, 1.25, 2.25, 3.25}},
        {"the moment that fired", 0, {1, 2, 3}},
        {"past", -3, {1, 2, 3}},
    };
    for (const auto& [name, set, fires] : cases) {
        SCOPED_TRACE(name);
        const double start = testClock().monotonic();
        Recorder timer(1);
        timer.whenFired = [&] {
            if (timer.fires.size() == 1)
                timer.timer->setFireDate(inSeconds(set));
        };
        testClock().advance(3.5);
        for (double& fire : timer.fires)
            fire -= start;
        EXPECT_THAT(timer.fires, Pointwise(DoubleEq(), fires));
    }
}

TEST(NSTimerTest, PastFireDateSetInALongCallBackFiresAtOnce) {
    Recorder timer(1);
    timer.whenFired = [&] {
        if (timer.fires.size() > 1)
            return;
        testClock().sleep(0.25);
        timer.timer->setFireDate(NSDate::distantPast());
    };
    testClock().advance(2.5);
    EXPECT_THAT(timer.fires, ElementsAre(1, 1.25, 2.25));
}

TEST(NSTimerTest, FarDatesAreClamped) {
    Recorder timer(1e300);
    EXPECT_EQ(timer.timer->timeInterval(), 504911232);
    const double now = testClock().now();
    timer.timer->setFireDate(NSDate::distantFuture());
    EXPECT_EQ(timer.timer->fireDate()->timeIntervalSince1970(), now + 504911232);
    testClock().advance(504911231);
    EXPECT_THAT(timer.fires, IsEmpty());
    testClock().advance(1);
    EXPECT_EQ(timer.fires.size(), 1U);
}

TEST(NSTimerTest, PausesAtADistantDateAndGoesOn) {
    Recorder timer(1);
    timer.timer->setFireDate(NSDate::distantFuture());
    testClock().advance(100);
    EXPECT_THAT(timer.fires, IsEmpty());
    timer.timer->setFireDate(NSDate::date());
    testClock().advance(1);
    EXPECT_THAT(timer.fires, ElementsAre(100, 101));
}

TEST(NSTimerTest, FireDateReadsBackAsSet) {
    Recorder timer(0.3);
    const auto date = inSeconds(0.7);
    timer.timer->setFireDate(date);
    EXPECT_TRUE(timer.timer->fireDate()->isEqual(*date));
    testClock().advance(0.7);
    EXPECT_EQ(timer.fires.size(), 1U);
    EXPECT_DOUBLE_EQ(timer.timer->fireDate()->timeIntervalSinceNow(),
                     inSeconds(0.3)->timeIntervalSinceNow());
}

TEST(NSTimerTest, LaterChangesOfTheWallClockMoveNothing) {
    Recorder timer(10);
    timer.timer->setFireDate(inSeconds(5));
    testClock().setNow(testClock().now() + 3600);
    testClock().advance(4);
    EXPECT_THAT(timer.fires, IsEmpty());
    testClock().setNow(0);
    testClock().advance(1);
    EXPECT_THAT(timer.fires, ElementsAre(5));
}

TEST(NSTimerTest, DoesNotFireInsideItsOwnCallBack) {
    Recorder outer(1), other(0.5);
    int depth = 0, deepest = 0;
    outer.whenFired = [&] {
        deepest = std::max(deepest, ++depth);
        loop()->runUntilDate(testClock().now() + 2);
        --depth;
    };
    testClock().advance(1);
    EXPECT_EQ(deepest, 1);
    EXPECT_THAT(outer.fires, ElementsAre(1));
    // The nested run served the other one all the while.
    EXPECT_THAT(other.fires, ElementsAre(0.5, 1, 1.5, 2, 2.5, 3));
    testClock().advance(1);
    EXPECT_THAT(outer.fires, ElementsAre(1, 4));
}

TEST(NSTimerTest, FiresInTheRunningModeAndTheCommonModesOnly) {
    Recorder normal(1), tracking(1, true, NSRunLoopMode::Tracking);
    Recorder common(1, true, NSRunLoopMode::Common), both(1);
    loop()->addTimer(both.timer, NSRunLoopMode::Tracking);
    loop()->setMode(NSRunLoopMode::Tracking);
    testClock().advance(2);
    loop()->setMode(NSRunLoopMode::Default);
    EXPECT_THAT(normal.fires, IsEmpty());
    EXPECT_THAT(tracking.fires, ElementsAre(1, 2));
    EXPECT_THAT(common.fires, ElementsAre(1, 2));
    EXPECT_THAT(both.fires, ElementsAre(1, 2));
    testClock().advance(1);
    // The first comes late, the second on the grid.
    EXPECT_THAT(normal.fires, ElementsAre(2, 3));
    EXPECT_THAT(tracking.fires, ElementsAre(1, 2));
    EXPECT_THAT(both.fires, ElementsAre(1, 2, 3));
}

TEST(NSTimerTest, InvalidTimersDoNothing) {
    Recorder timer(1);
    timer.whenFired = [&] { timer.timer->invalidate(); };
    testClock().advance(3);
    EXPECT_THAT(timer.fires, ElementsAre(1));
    timer.timer->setFireDate(inSeconds(1));
    timer.timer->fire();
    loop()->addTimer(timer.timer, NSRunLoopMode::Common);
    testClock().advance(3);
    EXPECT_THAT(timer.fires, ElementsAre(1));
    EXPECT_EQ(loop()->nextDeadline(), std::numeric_limits<double>::infinity());
}

TEST(NSTimerTest, OneTimerMayInvalidateAnotherThatIsDueInTheSamePass) {
    Recorder first(1), second(1);
    first.whenFired = [&] { second.timer->invalidate(); };
    testClock().advance(1);
    EXPECT_THAT(second.fires, IsEmpty());
}

TEST(NSTimerTest, FiringByHandLeavesTheSchedule) {
    Recorder repeating(1), once(1, false);
    testClock().advance(0.5);
    repeating.timer->fire();
    once.timer->fire();
    EXPECT_FALSE(once.timer->valid());
    testClock().advance(1);
    EXPECT_THAT(repeating.fires, ElementsAre(0.5, 1));
    EXPECT_THAT(once.fires, ElementsAre(0.5));
}

TEST(NSTimerTest, OwnsTargetAndUserInfoUntilInvalid) {
    testClock();
    auto target = make<Target>();
    const WeakRef<Target> weak = target;
    auto timer =
        NSTimer::scheduledTimerWithTimeInterval(1, ZN_ACTION(target, tick), Value("info"), false);
    const WeakRef<NSTimer> weakTimer = timer;
    timer.reset();
    target.reset();
    ASSERT_FALSE(weak.expired());
    target = weak.lock();
    testClock().advance(1);
    EXPECT_EQ(target->ticks, 1);
    EXPECT_TRUE(target->wasValid);
    EXPECT_EQ(target->lastUserInfo, Value("info"));
    target.reset();
    EXPECT_TRUE(weak.expired());
    EXPECT_TRUE(weakTimer.expired());
}

TEST(NSTimerTest, AnExceptionLeavesTheTimerOnItsGrid) {
    Recorder timer(1);
    timer.whenFired = [&] {
        if (timer.fires.size() == 1)
            throw std::runtime_error("from the call-back");
    };
    EXPECT_THROW(testClock().advance(1), std::runtime_error);
    testClock().advance(1);
    EXPECT_THAT(timer.fires, ElementsAre(1, 2));
}

TEST(NSTimerTest, BelongsToTheFirstLoopThatHoldsIt) {
    Recorder timer(1);
    const auto other = make<NSRunLoop>();
    other->addTimer(timer.timer, NSRunLoopMode::Default);
    EXPECT_EQ(other->nextDeadline(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(loop()->nextDeadline(), 1);
}

TEST(NSTimerTest, TenThousandTimersFireInOrderOfTheirDates) {
    testClock();
    std::vector<Ref<NSTimer>> timers;
    std::vector<double> fires;
    for (int i = 0; i < 10000; ++i) {
        const double interval = 1 + (i * 7919 % 10000) * 0.001;
        timers.push_back(NSTimer::timerWithTimeInterval(interval, true, [&](const Ref<NSTimer>&) {
            fires.push_back(testClock().monotonic());
        }));
        loop()->addTimer(timers.back(), NSRunLoopMode::Default);
    }
    testClock().advance(11);
    EXPECT_TRUE(std::ranges::is_sorted(fires));
    std::size_t expected = 0;
    for (int i = 0; i < 10000; ++i)
        expected += static_cast<std::size_t>(11000 / (1000 + i));
    EXPECT_EQ(fires.size(), expected);
    for (const auto& timer : timers)
        timer->invalidate();
    EXPECT_EQ(loop()->nextDeadline(), std::numeric_limits<double>::infinity());
}

}  // namespace
}  // namespace zn
