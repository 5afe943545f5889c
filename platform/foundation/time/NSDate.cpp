#include "zarnic/platform/foundation/NSDate.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "zarnic/platform/foundation/Clock.h"

namespace zn {

NSDate::NSDate(double since1970) : since1970_(since1970) {}

Ref<NSDate> NSDate::date() {
    return dateWithTimeIntervalSinceNow(0);
}

Ref<NSDate> NSDate::dateWithTimeIntervalSince1970(double seconds) {
    return make<NSDate>(seconds);
}

Ref<NSDate> NSDate::dateWithTimeIntervalSinceNow(double seconds) {
    return make<NSDate>(Clock::shared().now() + seconds);
}

Ref<NSDate> NSDate::distantFuture() {
    return make<NSDate>(64092211200.0);
}

Ref<NSDate> NSDate::distantPast() {
    return make<NSDate>(-62135769600.0);
}

double NSDate::timeIntervalSinceNow() const {
    return since1970_ - Clock::shared().now();
}

bool NSDate::isEqual(const NSObject& other) const {
    const auto* date = dynamic_cast<const NSDate*>(&other);
    return date != nullptr && date->since1970_ == since1970_;
}

std::size_t NSDate::hash() const {
    return std::hash<double>{}(since1970_);
}

std::string NSDate::description() const {
    using namespace std::chrono;
    // The calendar's years end at 32767; what lies beyond prints as its last day.
    constexpr double farthest = 9.6e11;
    const double whole = std::isnan(since1970_) ? 0 : std::floor(since1970_);
    const sys_seconds moment(
        seconds(static_cast<std::int64_t>(std::clamp(whole, -farthest, farthest))));
    const auto day = floor<days>(moment);
    const year_month_day calendar(day);
    const hh_mm_ss time(moment - day);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d +0000",
                  static_cast<int>(calendar.year()), static_cast<unsigned>(calendar.month()),
                  static_cast<unsigned>(calendar.day()), static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text;
}

}  // namespace zn
