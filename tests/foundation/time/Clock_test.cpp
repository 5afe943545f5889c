#include "zarnic/platform/foundation/Clock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

TEST(ClockTest, TheSystemsClockGoesOnAndSleepsLongEnough) {
    SystemClock clock;
    const double begin = clock.monotonic();
    const double now = clock.now();
    clock.sleep(0.01);
    EXPECT_GE(clock.monotonic(), begin + 0.01);
    EXPECT_GT(now, 1.7e9);
    clock.sleep(0);
    clock.sleep(-std::numeric_limits<double>::infinity());
    clock.sleep(std::nan(""));
}

TEST(ClockTest, CannotBeReplacedOnceItIsInUse) {
    const auto replacement = std::make_shared<SystemClock>();
    Clock::setShared(std::make_shared<SystemClock>());
    Clock::setShared(replacement);
    EXPECT_EQ(&Clock::shared(), replacement.get());
    EXPECT_THROW(Clock::setShared(std::make_shared<SystemClock>()), NSException);
    EXPECT_EQ(&Clock::shared(), replacement.get());
}

TEST(ClockTest, SecondsBecomeTicks) {
    const struct {
        double seconds;
        std::int64_t ticks;
    } cases[] = {
        {0.1, 100000000},
        {1e-9, 1},
        {4e-10, 0},
        {-2.5, -2500000000},
        {1e300, 504911232000000000},
        {-std::numeric_limits<double>::infinity(), -504911232000000000},
        {std::nan(""), 0},
    };
    for (const auto& [seconds, ticks] : cases)
        EXPECT_EQ(ticksFromSeconds(seconds).count(), ticks) << seconds;
    EXPECT_EQ(secondsFromTicks(Clock::never), std::numeric_limits<double>::infinity());
    EXPECT_EQ(secondsFromTicks(Clock::Ticks(300000000)), 0.3);
}

}  // namespace
}  // namespace zn
