#include "zarnic/platform/foundation/NSDate.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/TestClock.h"

namespace zn {
namespace {

TEST(NSDateTest, PrintsTheMomentInUtc) {
    const struct {
        double since1970;
        const char* text;
    } cases[] = {
        {0, "1970-01-01 00:00:00 +0000"},
        {0.999, "1970-01-01 00:00:00 +0000"},
        {-0.5, "1969-12-31 23:59:59 +0000"},
        {951782399, "2000-02-28 23:59:59 +0000"},
        {951782400, "2000-02-29 00:00:00 +0000"},
        {64092211200, "4001-01-01 00:00:00 +0000"},
        {std::numeric_limits<double>::infinity(), "32391-03-11 02:40:00 +0000"},
        {std::numeric_limits<double>::quiet_NaN(), "1970-01-01 00:00:00 +0000"},
    };
    for (const auto& [since1970, text] : cases)
        EXPECT_EQ(NSDate::dateWithTimeIntervalSince1970(since1970)->description(), text);
    EXPECT_EQ(NSDate::distantFuture()->timeIntervalSince1970(), 64092211200);
    EXPECT_LT(NSDate::distantPast()->timeIntervalSince1970(), -62135596800);
}

TEST(NSDateTest, EqualDatesAreEqualObjects) {
    const auto date = NSDate::dateWithTimeIntervalSince1970(1.5);
    EXPECT_TRUE(date->isEqual(*NSDate::dateWithTimeIntervalSince1970(1.5)));
    EXPECT_EQ(date->hash(), NSDate::dateWithTimeIntervalSince1970(1.5)->hash());
    EXPECT_FALSE(date->isEqual(*NSDate::dateWithTimeIntervalSince1970(1.25)));
    EXPECT_FALSE(date->isEqual(*make<NSObject>()));
}

TEST(NSDateTest, NowFollowsTheSharedWallClock) {
    auto& clock = testClock();
    const auto date = NSDate::dateWithTimeIntervalSinceNow(60);
    clock.advance(10);
    EXPECT_EQ(date->timeIntervalSinceNow(), 50);
    clock.setNow(0);
    EXPECT_EQ(NSDate::date()->timeIntervalSince1970(), 0);
}

}  // namespace
}  // namespace zn
