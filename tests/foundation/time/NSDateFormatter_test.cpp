#include "zarnic/platform/foundation/NSDateFormatter.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace zn;

namespace {

constexpr double absent = -1e18;

double secondsOf(std::string_view pattern, std::string_view text, std::string_view zone = "UTC",
                 std::string_view locale = "en_US_POSIX") {
    const auto formatter = make<NSDateFormatter>();
    formatter->setDateFormat(pattern);
    formatter->setTimeZoneName(zone);
    formatter->setLocaleIdentifier(locale);
    const auto date = formatter->dateFromString(text);
    return date ? date->timeIntervalSince1970() : absent;
}

}  // namespace

TEST(NSDateFormatter, readsWholeTextsOnly) {
    const std::tuple<const char*, const char*, double> cases[] = {
        {"yyyy-MM-dd HH:mm:ss", "2017-01-01 00:00:00", 1483228800},
        {"yyyy-MM-dd HH:mm:ss", "2017-1-1 0:0:0", 1483228800},
        {"yyyy-MM-dd HH:mm:ss", "2017-01-01 00:00:00 \n", 1483228800},
        {"yyyy-MM-dd HH:mm:ss.SSS", "2017-01-01 00:00:00.250", 1483228800.25},
        {"yyyy-MM-dd HH:mm:ss Z", "2017-01-01 08:00:00 +0800", 1483228800},
        {"hh:mm a, d MMM yyyy", "12:30 AM, 1 Jan 2017", 1483230600},
        {"yyyy-MM-dd", "2017-01-01 00:00:00", absent},
        {"yyyy-MM-dd", "2017-01-01x", absent},
        {"yyyy-MM-dd HH:mm", "2017-01-01", absent},
        {"yyyy-MM-dd", "", absent},
        {"yyyy-MM-dd", "first of May", absent},
        {"", "2017", absent},
        {"yyyy-MM-dd", "2017/01/01", absent},
        {"yyyy-MM-dd", "20170101", absent},
    };
    for (const auto& [pattern, text, seconds] : cases)
        EXPECT_EQ(secondsOf(pattern, text), seconds) << pattern << " " << text;
}

TEST(NSDateFormatter, refusesMomentsThatDoNotExist) {
    EXPECT_EQ(secondsOf("yyyy-MM-dd", "2017-02-30"), absent);
    EXPECT_EQ(secondsOf("yyyy-MM-dd", "2017-13-01"), absent);
    EXPECT_EQ(secondsOf("yyyy-MM-dd HH", "2017-01-01 25"), absent);
    EXPECT_EQ(secondsOf("MM-dd", "02-29"), 951782400);
}

TEST(NSDateFormatter, whatThePatternLeavesOutIsOfTheYear2000) {
    EXPECT_EQ(secondsOf("MM-dd", "01-02"), 946684800 + 86400);
    EXPECT_EQ(secondsOf("HH:mm", "01:30"), 946684800 + 5400);
    EXPECT_EQ(secondsOf("HH:mm", "01:30", "Asia/Shanghai"), 946684800 + 5400 - 8 * 3600);
    EXPECT_EQ(secondsOf("DDD", "032"), 946684800 + 31 * 86400);
}

TEST(NSDateFormatter, twoDigitYearsLieFrom1950To2049) {
    EXPECT_EQ(secondsOf("yy", "50"), -631152000);
    EXPECT_EQ(secondsOf("yy", "49"), 2493072000);
    EXPECT_LT(secondsOf("yyyy-MM-dd", "17-01-01"), -1900.0 * 365 * 86400);
}

TEST(NSDateFormatter, writesAndReadsInLocaleAndZone) {
    const auto formatter = make<NSDateFormatter>();
    formatter->setDateFormat("EEEE d MMMM yyyy HH:mm:ss");
    formatter->setTimeZoneName("America/New_York");
    formatter->setLocaleIdentifier("fr_FR");
    const auto date = make<NSDate>(1500000000);
    EXPECT_EQ(formatter->stringFromDate(date), "jeudi 13 juillet 2017 22:40:00");
    EXPECT_EQ(formatter->dateFromString("jeudi 13 juillet 2017 22:40:00")->timeIntervalSince1970(),
              1500000000);
    formatter->setLocaleIdentifier("zh-Hans-CN");
    EXPECT_EQ(formatter->stringFromDate(date), "星期四 13 七月 2017 22:40:00");
    EXPECT_EQ(formatter->stringFromDate(nullptr), "");
}

TEST(NSDateFormatter, weekYearsDifferFromYearsAroundNewYear) {
    const auto formatter = make<NSDateFormatter>();
    formatter->setLocaleIdentifier("en_US");
    formatter->setTimeZoneName("UTC");
    formatter->setDateFormat("yyyy YYYY");
    EXPECT_EQ(formatter->stringFromDate(make<NSDate>(1514678400)), "2017 2018");
}

TEST(NSDateFormatter, anUnknownZoneIsTheLocalOne) {
    EXPECT_EQ(secondsOf("yyyy", "2000", "Nowhere/AtAll"), secondsOf("yyyy", "2000", ""));
}
