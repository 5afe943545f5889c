#include "zarnic/ZNQuickHelper.h"

#include <gmock/gmock.h>

#include <cmath>
#include <mutex>
#include <string>

#include "tests/support/TestClock.h"
#include "zarnic/platform/foundation/NSThread.h"
#include "zarnic/platform/services/Services.h"
#include "zarnic/testing/FakeURLOpener.h"

namespace zn {
namespace {

enum class From { Main, Background };
using Put = void (*)(bool isNew, double delayTime, std::function<void()> block);

/// One call and what became of its block.
struct Call : std::enable_shared_from_this<Call> {
    void make(Put put, bool isNew, double delay) {
        caller = NSThread::currentThread();
        put(isNew, delay, [self = shared_from_this()] { self->run(); });
        std::lock_guard guard(mutex);
        ranInside = ran && where == "caller";
    }
    void run() {
        std::lock_guard guard(mutex);
        ran = true;
        at = testClock().monotonic();
        where = NSThread::currentThread() == caller ? "caller"
                : NSThread::isMainThread()          ? "main"
                                                    : "pool";
    }

    std::mutex mutex;
    Ref<NSThread> caller;
    bool ran = false;
    bool ranInside = false;
    double at = 0;
    std::string where;
};

/// `inside` when the block ran on the caller's thread before the call returned, else the thread
/// that ran it later; and the seconds after the call.
std::string outcome(Put method, From from, bool isNew, double delay) {
    auto& clock = testClock();
    const double begin = clock.monotonic();
    const auto call = std::make_shared<Call>();
    if (from == From::Main)
        call->make(method, isNew, delay);
    else
        zn::make<NSThread>([=] { call->make(method, isNew, delay); })->start();
    clock.advance(5);
    if (!call->ran)
        return "never";
    const auto after = std::to_string(std::lround((call->at - begin) * 10));
    return (call->ranInside ? "inside" : call->where) + " " + after;
}

struct Case {
    From from;
    bool isNew;
    double delay;
    const char* outcome;  // tenths of a second
};

void check(Put method, std::initializer_list<Case> cases) {
    for (const auto& [from, isNew, delay, expected] : cases)
        EXPECT_EQ(outcome(method, from, isNew, delay), expected)
            << (from == From::Main ? "main" : "background") << (isNew ? ", new, " : ", not new, ")
            << delay << " s";
}

TEST(ZNQuickHelperTest, MainThreadBlocksAskTheDelayFirst) {
    check(ZNQuickHelper::GCDPutOneBlockIntoMainThreadIsNew,
          {
              {From::Main, false, 0, "inside 0"},
              {From::Main, false, -1, "inside 0"},
              {From::Main, false, std::nan(""), "inside 0"},
              {From::Main, true, 0, "caller 0"},
              {From::Main, true, -1, "caller 0"},
              {From::Main, false, 0.5, "caller 5"},
              {From::Main, true, 0.5, "caller 5"},
              {From::Background, false, 0, "main 0"},
              {From::Background, true, 0, "main 0"},
              {From::Background, false, 0.5, "main 5"},
              {From::Background, true, 0.5, "main 5"},
          });
}

TEST(ZNQuickHelperTest, BackgroundBlocksAskWhetherNewFirst) {
    check(ZNQuickHelper::GCDPutOneBlockIntoGlobalThreadIsNew,
          {
              {From::Main, false, 0, "pool 0"},
              {From::Main, true, 0, "pool 0"},
              {From::Main, false, -1, "pool 0"},
              {From::Main, false, 0.5, "pool 5"},
              {From::Background, true, 0, "pool 0"},
              {From::Background, true, 0.5, "pool 5"},
              {From::Background, false, 0, "inside 0"},
              {From::Background, false, -1, "inside 0"},
              {From::Background, false, 1, "inside 10"},
          });
}

TEST(ZNQuickHelperTest, AbsentBlocksDoNothing) {
    auto& clock = testClock();
    for (const auto put : {ZNQuickHelper::GCDPutOneBlockIntoMainThreadIsNew,
                           ZNQuickHelper::GCDPutOneBlockIntoGlobalThreadIsNew})
        for (const double delay : {0.0, 1.0})
            for (const bool isNew : {false, true})
                put(isNew, delay, nullptr);
    clock.advance(2);
    // Not even the caller's sleep.
    make<NSThread>([&] {
        ZNQuickHelper::GCDPutOneBlockIntoGlobalThreadIsNew(false, 100, nullptr);
        EXPECT_EQ(clock.monotonic(), 2);
    })->start();
    clock.advance(101);
}

TEST(ZNQuickHelperTest, DelayedBlocksRunInTheOrderOfTheirMoments) {
    auto& clock = testClock();
    std::vector<int> order;
    for (const int tenths : {3, 1, 2})
        ZNQuickHelper::GCDPutOneBlockIntoMainThreadIsNew(false, tenths / 10.0,
                                                         [&, tenths] { order.push_back(tenths); });
    ZNQuickHelper::GCDPutOneBlockIntoMainThreadIsNew(true, 0, [&] { order.push_back(0); });
    clock.advance(1);
    EXPECT_THAT(order, testing::ElementsAre(0, 1, 2, 3));
}

TEST(ZNQuickHelperTest, DatesBecomeTextAndBack) {
    const auto date = NSDate::dateWithTimeIntervalSince1970(1483228799);
    EXPECT_EQ(ZNQuickHelper::GetDateFormatterStrByDate(date, "yyyy-MM-dd HH:mm:ss"),
              "2016-12-31 23:59:59");
    EXPECT_EQ(ZNQuickHelper::GetDateFormatterStrByDate(date, "dd"), "31");
    EXPECT_EQ(ZNQuickHelper::GetDateFormatterStrByDate(nullptr, "yyyy"), "");
    EXPECT_EQ(
        ZNQuickHelper::GetTimeSince1970ByDateString("2016-12-31 23:59:59", "yyyy-MM-dd HH:mm:ss"),
        1483228799);
    for (const char* text : {"", "2016-13-01", "2016-02-30", "today", "2016-12-31 later"})
        EXPECT_EQ(ZNQuickHelper::GetTimeSince1970ByDateString(text, "yyyy-MM-dd"), 0) << text;
}

TEST(ZNQuickHelperTest, OpensUrlsAndNothingElse) {
    testClock();
    const auto opener = make<FakeURLOpener>();
    Services::replace<URLOpener>(opener);
    for (const char* text : {"https://example.org/a?b=c#d", "", "no scheme", "tel:123"})
        ZNQuickHelper::OpenUrl(text);
    testClock().settle();
    EXPECT_THAT(opener->opened, testing::ElementsAre("https://example.org/a?b=c#d", "tel:123"));
}

}  // namespace
}  // namespace zn
