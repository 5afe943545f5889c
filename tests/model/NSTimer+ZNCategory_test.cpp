#include "zarnic/NSTimer+ZNCategory.h"

#include <gtest/gtest.h>

#include "tests/support/TestClock.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

using namespace zn;

namespace {

struct Ticks {
    Ticks() : timer(NSTimer::timerWithTimeInterval(1, true, [this](const auto&) { ++count; })) {
        NSRunLoop::currentRunLoop()->addTimer(timer, NSRunLoopMode::Default);
    }
    int after(double seconds) {
        testClock().advance(seconds);
        return count;
    }

    int count = 0;
    Ref<NSTimer> timer;
};

}  // namespace

TEST(NSTimerCategory, pausesAndResumes) {
    testClock();
    Ticks ticks;
    EXPECT_EQ(ticks.after(2.5), 2);
    zn_Pause(ticks.timer);
    EXPECT_TRUE(ticks.timer->valid());
    EXPECT_EQ(ticks.after(100), 2);
    zn_Resume(ticks.timer);
    EXPECT_EQ(ticks.after(0), 3);
    EXPECT_EQ(ticks.after(1.5), 4);
    zn_Pause(ticks.timer);
    zn_ResumeAfterTimeInterval(ticks.timer, 5);
    EXPECT_EQ(ticks.after(4.9), 4);
    EXPECT_EQ(ticks.after(0.2), 5);
    EXPECT_EQ(ticks.after(1), 6);
    zn_Stop(ticks.timer);
}

TEST(NSTimerCategory, aStoppedOrAbsentTimerStays) {
    testClock();
    Ticks ticks;
    zn_Stop(ticks.timer);
    EXPECT_FALSE(ticks.timer->valid());
    const double date = ticks.timer->fireDate()->timeIntervalSince1970();
    zn_Pause(ticks.timer);
    zn_Resume(ticks.timer);
    zn_ResumeAfterTimeInterval(ticks.timer, 1);
    zn_Stop(ticks.timer);
    EXPECT_EQ(ticks.after(10), 0);
    EXPECT_EQ(ticks.timer->fireDate()->timeIntervalSince1970(), date);
    for (const auto& call : {zn_Pause, zn_Resume, zn_Stop})
        call(nullptr);
    zn_ResumeAfterTimeInterval(nullptr, 1);
}
