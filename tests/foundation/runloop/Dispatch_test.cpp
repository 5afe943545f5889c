#include "zarnic/platform/foundation/Dispatch.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/support/TestClock.h"
#include "zarnic/platform/foundation/NSCondition.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/foundation/NSThread.h"
#include "zarnic/platform/foundation/NSTimer.h"

namespace zn {
namespace {

using testing::ElementsAre;

TEST(DispatchTest, MainBlocksRunLaterOnTheMainThreadInOrder) {
    std::vector<int> order;
    for (int i = 0; i < 3; ++i)
        dispatchMain([&order, i] { order.push_back(NSThread::isMainThread() ? i : -1); });
    dispatchMain(nullptr);
    EXPECT_THAT(order, ElementsAre());
    testClock().settle();
    EXPECT_THAT(order, ElementsAre(0, 1, 2));
}

TEST(DispatchTest, MainBlocksOfEachThreadKeepTheirOrder) {
    constexpr int threads = 4, blocks = 20000;
    std::vector<int> next(threads);
    int left = threads * blocks;
    bool ordered = true;
    std::vector<std::jthread> producers;
    for (std::size_t thread = 0; thread < threads; ++thread)
        producers.emplace_back([&, thread] {
            for (int i = 0; i < blocks; ++i)
                dispatchMain([&, thread, i] {
                    ordered = ordered && next[thread]++ == i;
                    if (--left == 0)
                        NSRunLoop::mainRunLoop()->stop();
                });
        });
    NSRunLoop::mainRunLoop()->run();
    EXPECT_TRUE(ordered);
    EXPECT_THAT(next, testing::Each(blocks));
}

TEST(DispatchTest, BlocksReleaseWhatTheyHoldWhenTheyHaveRun) {
    auto& clock = testClock();
    for (const auto submit : {dispatchMain, dispatchGlobal}) {
        auto object = make<NSObject>();
        const WeakRef<NSObject> weak = object;
        submit([held = std::move(object)] {});
        clock.settle();
        EXPECT_TRUE(weak.expired());
    }
}

TEST(DispatchTest, DelayedBlocksComeInOrderOfTheirMoments) {
    auto& clock = testClock();
    std::vector<std::string> notes;
    const auto note = [&](const char* text) {
        return [&, text] {
            const bool onMain = NSThread::isMainThread();
            dispatchMain([&, text, onMain, at = clock.monotonic()] {
                notes.push_back(text + std::to_string(at).substr(0, 3) + (onMain ? "m" : "g"));
            });
        };
    };
    dispatchMainAfter(0.5, note("a"));
    dispatchGlobalAfter(0.3, note("b"));
    dispatchMainAfter(0.1, note("c"));
    dispatchGlobalAfter(0.2, note("d"));
    dispatchGlobalAfter(-1, note("e"));
    clock.settle();
    dispatchMainAfter(0, note("f"));
    dispatchMainAfter(0.4, nullptr);
    dispatchGlobalAfter(0.4, nullptr);
    clock.advance(1);
    EXPECT_THAT(notes, ElementsAre("e0.0g", "f0.0m", "c0.1m", "d0.2g", "b0.3g", "a0.5m"));
}

TEST(DispatchTest, AThousandDelayedBlocksCostNoThread) {
    auto& clock = testClock();
    std::atomic<int> ran = 0;
    std::atomic<int> atOnce = 0, most = 0;
    for (int i = 0; i < 1000; ++i)
        dispatchGlobalAfter(1 + i * 0.001, [&] {
            most = std::max<int>(most, ++atOnce);
            ++ran;
            --atOnce;
        });
    clock.advance(3);
    EXPECT_EQ(ran, 1000);
    // One moment for each, and each is served before time goes on.
    EXPECT_EQ(most, 1);
}

TEST(DispatchTest, ThePoolRunsSixtyFourBlocksAtOnceAndTheOthersInTurn) {
    auto& clock = testClock();
    std::vector<double> ends;
    for (int i = 0; i < 100; ++i)
        dispatchGlobal([&] {
            clock.sleep(1);
            dispatchMain([&, at = clock.monotonic()] { ends.push_back(at); });
        });
    clock.advance(1);
    EXPECT_EQ(ends.size(), 64U);
    clock.advance(1);
    EXPECT_EQ(ends.size(), 100U);
    EXPECT_EQ(ends.back(), 2);
}

TEST(DispatchTest, BlocksStartInOrderOfSubmission) {
    auto& clock = testClock();
    for (int i = 0; i < 63; ++i)
        dispatchGlobal([&] { clock.sleep(1000); });
    clock.settle();
    // One thread is left, and takes these one after the other.
    std::vector<int> order, expected;
    for (int i = 0; i < 50; ++i) {
        dispatchGlobal([&, i] { order.push_back(i); });
        expected.push_back(i);
    }
    clock.settle();
    EXPECT_EQ(order, expected);
}

TEST(DispatchTest, IdleThreadsEndAfterAWhile) {
    auto& clock = testClock();
    std::string name;
    const auto nameOfTheThread = [&] {
        dispatchGlobal([&] { name = NSThread::currentThread()->name(); });
        clock.settle();
        return name;
    };
    EXPECT_EQ(nameOfTheThread(), "global queue 1");
    clock.advance(10);
    EXPECT_EQ(nameOfTheThread(), "global queue 1");
    clock.advance(10);
    EXPECT_EQ(nameOfTheThread(), "global queue 1");
    clock.advance(20);
    EXPECT_EQ(nameOfTheThread(), "global queue 2");
}

TEST(DispatchDeathTest, AnExceptionOnThePoolIsLoggedAndEndsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            dispatchGlobal([] { throw std::runtime_error("what went wrong"); });
            Clock::shared().sleep(60);
        },
        "uncaught exception on thread global queue 1: what went wrong");
}

TEST(DispatchDeathTest, AProgramEndsCleanlyWithThreadsAndTimersAlive) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            std::atomic<int> running = 0;
            for (int i = 0; i < 4; ++i)
                dispatchGlobal([&] {
                    ++running;
                    for (;;)
                        dispatchMain([] {});
                });
            make<NSThread>([&] {
                const auto condition = make<NSCondition>();
                condition->lock();
                ++running;
                condition->wait();
            })->start();
            dispatchGlobalAfter(0.001, [] {});
            const auto timer = NSTimer::timerWithTimeInterval(0.001, true, [](auto&) {});
            NSRunLoop::mainRunLoop()->addTimer(timer, NSRunLoopMode::Common);
            while (running < 5)
                NSRunLoop::mainRunLoop()->runPass(0.001);
            std::exit(7);
        },
        testing::ExitedWithCode(7), "^$");
}

TEST(DispatchTest, SoakManyThreadsSubmitEverything) {
    constexpr int threads = 8, rounds = 20000;
    std::atomic<int> left = threads * rounds;
    const auto done = [&] {
        if (--left == 0)
            NSRunLoop::mainRunLoop()->stop();
    };
    std::vector<std::jthread> producers;
    for (int thread = 0; thread < threads; ++thread)
        producers.emplace_back([&, thread] {
            for (int i = 0; i < rounds; ++i)
                switch ((i + thread) % 4) {
                    case 0:
                        dispatchMain(done);
                        break;
                    case 1:
                        dispatchGlobal([&] { dispatchMain(done); });
                        break;
                    case 2:
                        dispatchMainAfter(0.0001 * (i % 7), done);
                        break;
                    default:
                        dispatchGlobalAfter(0.0001 * (i % 5), done);
                }
        });
    NSRunLoop::mainRunLoop()->run();
    EXPECT_EQ(left, 0);
}

}  // namespace
}  // namespace zn
