#include "zarnic/platform/foundation/NSCondition.h"

#include <gtest/gtest.h>

#include <deque>
#include <thread>

#include "tests/support/TestClock.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSThread.h"

namespace zn {
namespace {

struct Waiters {
    explicit Waiters(int count) {
        testClock();
        for (int i = 0; i < count; ++i)
            make<NSThread>([this] {
                condition->lock();
                ++waiting;
                condition->wait();
                ++woken;
                condition->unlock();
            })->start();
        testClock().settle();
    }
    Ref<NSCondition> condition = make<NSCondition>();
    int waiting = 0;
    int woken = 0;
};

TEST(NSConditionTest, SignalWakesOneAndBroadcastAll) {
    Waiters waiters(5);
    EXPECT_EQ(waiters.waiting, 5);
    waiters.condition->signal();
    testClock().settle();
    EXPECT_EQ(waiters.woken, 1);
    waiters.condition->signal();
    waiters.condition->signal();
    testClock().settle();
    EXPECT_EQ(waiters.woken, 3);
    waiters.condition->broadcast();
    testClock().settle();
    EXPECT_EQ(waiters.woken, 5);
}

TEST(NSConditionTest, ASignalThatNobodyWaitsForIsLost) {
    testClock();
    const auto condition = make<NSCondition>();
    condition->signal();
    condition->broadcast();
    condition->lock();
    EXPECT_FALSE(condition->waitUntilDate(NSDate::dateWithTimeIntervalSinceNow(1)));
    EXPECT_FALSE(condition->waitUntilDate(NSDate::distantPast()));
    condition->unlock();
    EXPECT_EQ(testClock().monotonic(), 1);
}

TEST(NSConditionTest, TheWokenOneWaitsForTheLock) {
    Waiters waiters(1);
    waiters.condition->lock();
    waiters.condition->signal();
    EXPECT_EQ(waiters.woken, 0);
    waiters.condition->unlock();
    testClock().settle();
    EXPECT_EQ(waiters.woken, 1);
}

/// With the machine's clock: every item arrives though half of the waits run out all the time, when
/// a signal could be given to one that is just leaving.
TEST(NSConditionTest, SignalsAreNotLostToWaitsThatRunOut) {
    const auto condition = make<NSCondition>();
    std::deque<int> items;
    constexpr int count = 20000;
    int taken = 0;
    std::vector<std::jthread> consumers;
    for (int i = 0; i < 4; ++i)
        consumers.emplace_back([&, i] {
            condition->lock();
            while (taken < count) {
                if (items.empty()) {
                    if (i < 2)
                        condition->wait();
                    else
                        condition->waitUntilDate(NSDate::dateWithTimeIntervalSinceNow(2e-6));
                } else {
                    items.pop_front();
                    ++taken;
                }
            }
            condition->broadcast();
            condition->unlock();
        });
    for (int i = 0; i < count; ++i) {
        condition->lock();
        items.push_back(i);
        condition->unlock();
        condition->signal();
    }
    consumers.clear();
    EXPECT_EQ(taken, count);
}

}  // namespace
}  // namespace zn
