#include "zarnic/platform/foundation/NSThread.h"

#include <gmock/gmock.h>

#include <future>
#include <thread>

#include "tests/support/TestClock.h"
#include "zarnic/platform/foundation/Dispatch.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

using testing::ContainsRegex;

class Worker final : public NSObject {
    ZN_OBJECT(Worker, NSObject)
public:
    void run() {
        isMain = NSThread::isMainThread();
        NSThread::sleepForTimeInterval(1);
        thread = NSThread::currentThread();
    }
    bool isMain = true;
    Ref<NSThread> thread;
};

TEST(NSThreadTest, OwnsItsTargetUntilItEnds) {
    auto& clock = testClock();
    auto worker = make<Worker>();
    const WeakRef<Worker> weak = worker;
    const auto thread = make<NSThread>(ZN_ACTION(worker, run));
    worker.reset();
    EXPECT_FALSE(thread->executing());
    thread->start();
    clock.advance(0.5);
    EXPECT_TRUE(thread->executing());
    ASSERT_FALSE(weak.expired());
    EXPECT_FALSE(weak.lock()->isMain);
    clock.advance(0.5);
    EXPECT_TRUE(thread->finished());
    EXPECT_TRUE(weak.expired());
    EXPECT_THROW(thread->start(), NSException);
}

TEST(NSThreadTest, KnowsWhichThreadCalls) {
    auto& clock = testClock();
    EXPECT_TRUE(NSThread::isMainThread());
    EXPECT_EQ(NSThread::currentThread(), NSThread::currentThread());
    EXPECT_EQ(NSThread::currentThread()->name(), "main");
    EXPECT_THAT(NSThread::currentThread()->description(),
                ContainsRegex("^<NSThread: 0x[0-9a-f]+>\\{number = 1, name = main\\}$"));
    std::thread([] {
        EXPECT_FALSE(NSThread::isMainThread());
        EXPECT_THAT(NSThread::currentThread()->description(),
                    ContainsRegex("\\{number = 2, name = \\(null\\)\\}$"));
    }).join();
    auto worker = make<Worker>();
    const auto thread = make<NSThread>(ZN_ACTION(worker, run));
    thread->setName("a name longer than debuggers show");
    thread->start();
    clock.advance(1);
    EXPECT_EQ(worker->thread, thread);
    EXPECT_EQ(thread->name(), "a name longer than debuggers show");
}

TEST(NSThreadTest, SleepingNoTimeReturnsAtOnce) {
    auto& clock = testClock();
    for (const double seconds : {0.0, -1.0, std::nan("")})
        NSThread::sleepForTimeInterval(seconds);
    EXPECT_EQ(clock.monotonic(), 0);
}

TEST(NSThreadDeathTest, AnExceptionIsLoggedAndEndsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            const auto thread =
                make<NSThread>([] { throw NSException(NSRangeException, "out of bounds"); });
            thread->setName("the culprit");
            thread->start();
            NSThread::sleepForTimeInterval(60);
        },
        "the culprit: NSRangeException");
}

}  // namespace
}  // namespace zn
