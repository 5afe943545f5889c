#include "zarnic/platform/foundation/ManualClock.h"

#include <gmock/gmock.h>

#include <atomic>
#include <future>
#include <string>
#include <thread>

#include "tests/support/TestClock.h"
#include "zarnic/platform/foundation/Dispatch.h"
#include "zarnic/platform/foundation/NSCondition.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/foundation/NSThread.h"
#include "zarnic/platform/foundation/NSTimer.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

void start(std::string_view name, std::function<void()> body) {
    const auto thread = make<NSThread>(std::move(body));
    thread->setName(name);
    thread->start();
}

TEST(ManualClockTest, WallAndMonotonicTimeGoOnTogether) {
    auto& clock = testClock();
    EXPECT_EQ(clock.now(), 1514764800);
    EXPECT_EQ(clock.monotonic(), 0);
    for (int i = 0; i < 10; ++i)
        clock.advance(0.1);
    // Kept in whole nanoseconds: nothing adds up.
    EXPECT_EQ(clock.monotonic(), 1);
    EXPECT_EQ(clock.now(), 1514764801);
    clock.setNow(100);
    EXPECT_EQ(clock.monotonic(), 1);
    clock.advance(-5);
    clock.advance(2);
    EXPECT_EQ(clock.now(), 102);
    EXPECT_EQ(clock.monotonic(), 3);
}

TEST(ManualClockTest, SleepersWakeInOrderBeforeTheMainLoopsTimersOfTheirMoment) {
    auto& clock = testClock();
    std::vector<std::string> notes;
    const auto note = [&](const std::string& text) {
        dispatchMain([&, text, at = clock.monotonic()] {
            notes.push_back(text + " " + std::to_string(at).substr(0, 1));
        });
    };
    start("sleeper", [&] {
        for (int i = 0; i < 3; ++i) {
            clock.sleep(1);
            note("thread");
        }
    });
    const auto timer =
        NSTimer::timerWithTimeInterval(1, true, [&](const Ref<NSTimer>&) { note("timer"); });
    NSRunLoop::mainRunLoop()->addTimer(timer, NSRunLoopMode::Default);
    clock.advance(3);
    timer->invalidate();
    EXPECT_THAT(notes,
                ElementsAre("thread 1", "timer 1", "thread 2", "timer 2", "thread 3", "timer 3"));
}

TEST(ManualClockTest, SleepersOfOneMomentWakeInTheOrderOfTheirThreads) {
    auto& clock = testClock();
    std::vector<int> order, expected;
    for (int i = 0; i < 20; ++i)
        start("sleeper", [&, i] {
            for (int round = 0; round < 50; ++round) {
                clock.sleep(1);
                // No lock: only one of them is awake.
                order.push_back(i);
            }
        });
    for (int i = 0; i < 1000; ++i)
        expected.push_back(i % 20);
    clock.advance(50);
    EXPECT_EQ(order, expected);
}

TEST(ManualClockTest, WaitsForAChainOfWakeUpsBeforeTimeGoesOn) {
    auto& clock = testClock();
    // Main, pool, condition, thread, main: each link wakes the next; none of it takes time.
    const auto condition = make<NSCondition>();
    int requests = 0, answers = 0;
    std::vector<double> moments;
    start("server", [&] {
        for (;;) {
            condition->lock();
            while (requests == 0)
                condition->wait();
            --requests;
            condition->unlock();
            dispatchMain([&] {
                moments.push_back(clock.monotonic());
                ++answers;
            });
        }
    });
    for (int i = 0; i < 500; ++i)
        dispatchMainAfter(i, [&] {
            dispatchGlobal([&] {
                condition->lock();
                ++requests;
                condition->signal();
                condition->unlock();
            });
        });
    clock.advance(1000);
    ASSERT_EQ(answers, 500);
    for (int i = 0; i < 500; ++i)
        EXPECT_EQ(moments[static_cast<std::size_t>(i)], i);
}

TEST(ManualClockTest, TimedWaitsEndAtTheirMomentOrWithTheSignal) {
    auto& clock = testClock();
    const auto condition = make<NSCondition>();
    std::vector<std::string> notes;
    start("waiter", [&] {
        condition->lock();
        for (int i = 0; i < 3; ++i) {
            const bool signalled =
                condition->waitUntilDate(NSDate::dateWithTimeIntervalSinceNow(0.5));
            notes.push_back(std::to_string(clock.monotonic()).substr(0, 4) +
                            (signalled ? "!" : ""));
        }
        condition->unlock();
    });
    dispatchMainAfter(0.75, [&] { condition->signal(); });
    clock.advance(2);
    EXPECT_THAT(notes, ElementsAre("0.50", "0.75!", "1.25"));
}

TEST(ManualClockTest, TheMainThreadsOwnWaitsMoveTime) {
    auto& clock = testClock();
    const auto condition = make<NSCondition>();
    start("signaller", [&] {
        clock.sleep(2);
        condition->lock();
        condition->signal();
        condition->unlock();
    });
    condition->lock();
    EXPECT_FALSE(condition->waitUntilDate(NSDate::dateWithTimeIntervalSinceNow(1)));
    EXPECT_EQ(clock.monotonic(), 1);
    condition->wait();
    EXPECT_EQ(clock.monotonic(), 2);
    condition->unlock();
    clock.sleep(0.5);
    EXPECT_EQ(clock.monotonic(), 2.5);
}

TEST(ManualClockTest, RegisteredForeignThreadsCount) {
    auto& clock = testClock();
    std::vector<std::thread> threads;
    std::atomic<int> woken = 0;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back(
            [&, counted = std::make_unique<ClockParticipant>("foreign " + std::to_string(i))] {
                counted->attach();
                for (int round = 0; round < 50; ++round) {
                    clock.sleep(1);
                    ++woken;
                }
            });
    for (int round = 1; round <= 50; ++round) {
        clock.advance(1);
        ASSERT_EQ(woken, 8 * round);
    }
    for (auto& thread : threads)
        thread.join();
}

TEST(ManualClockTest, UnregisteredThreadsSleepToo) {
    auto& clock = testClock();
    double woken = 0;
    std::promise<void> done;
    std::thread thread([&] {
        clock.sleep(5);
        woken = clock.monotonic();
        done.set_value();
    });
    // Nobody waits for it to fall asleep, so time is let pass until it has woken.
    const auto future = done.get_future();
    while (future.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        clock.advance(1);
    thread.join();
    EXPECT_GE(woken, 5);
}

TEST(ManualClockTest, RunsAWholeProgramByItself) {
    auto& clock = testClock();
    const auto loop = NSRunLoop::mainRunLoop();
    std::vector<double> fires;
    const auto timer = NSTimer::timerWithTimeInterval(3600, true, [&](const Ref<NSTimer>&) {
        fires.push_back(clock.monotonic());
        if (fires.size() == 3)
            dispatchGlobal([&] {
                clock.sleep(60);
                loop->stop();
            });
    });
    loop->addTimer(timer, NSRunLoopMode::Default);
    loop->run();
    EXPECT_THAT(fires, ElementsAre(3600, 7200, 10800));
    EXPECT_EQ(clock.monotonic(), 10860);
}

TEST(ManualClockTest, ARunWithNothingDueNoticesANewDeadline) {
    auto& clock = testClock();
    const auto loop = NSRunLoop::mainRunLoop();
    for (int i = 0; i < 100; ++i) {
        // Unregistered, so that the main thread may well be waiting already.
        std::thread outside([&] {
            dispatchGlobal([&] {
                clock.sleep(1);
                loop->stop();
            });
        });
        loop->run();
        outside.join();
    }
    EXPECT_EQ(clock.monotonic(), 100);
}

TEST(ManualClockTest, NamesTheThreadThatNeverRests) {
    auto& clock = testClock();
    clock.setPatience(0.05);
    std::promise<void> release;
    start("stuck one", [&] { release.get_future().wait(); });
    start("sleeping one", [&] { clock.sleep(1e6); });
    dispatchGlobal([&] { clock.sleep(1); });
    try {
        clock.advance(1);
        ADD_FAILURE() << "time went on";
    } catch (const NSException& exception) {
        EXPECT_EQ(exception.name(), NSInternalInconsistencyException);
        EXPECT_THAT(exception.reason(), HasSubstr("stuck one"));
        EXPECT_THAT(exception.reason(), testing::Not(HasSubstr("sleeping one")));
    }
    EXPECT_EQ(clock.monotonic(), 0);
    release.set_value();
    clock.setPatience(30);
    clock.advance(1);
    EXPECT_EQ(clock.monotonic(), 1);
}

TEST(ManualClockTest, AMainLoopThatNeverRestsIsAnErrorToo) {
    auto& clock = testClock();
    clock.setPatience(0.01);
    std::function<void()> again = [&] { dispatchMain(again); };
    dispatchMain(again);
    EXPECT_THROW(clock.advance(1), NSException);
}

TEST(ManualClockTest, OnlyTheMainThreadAdvancesTheSharedClock) {
    auto& clock = testClock();
    std::thread other([&] { EXPECT_THROW(clock.advance(1), NSException); });
    other.join();
    EXPECT_THROW(ManualClock().advance(1), NSException);
    EXPECT_THROW(Clock::setShared(std::make_shared<ManualClock>()), NSException);
}

TEST(ManualClockTest, AdvancesInsideACallBackOfTheMainLoop) {
    auto& clock = testClock();
    std::vector<double> moments;
    dispatchMainAfter(2, [&] { moments.push_back(clock.monotonic()); });
    dispatchMainAfter(1, [&] {
        clock.advance(3);
        moments.push_back(clock.monotonic());
    });
    clock.advance(1);
    EXPECT_THAT(moments, ElementsAre(2, 4));
}

/// The same mixture of threads, timers and delays must give the same history each time.
std::vector<std::string> historyOfAMixture() {
    auto& clock = testClock();
    const double begin = clock.monotonic();
    std::vector<std::string> history;
    const auto note = [&](const std::string& text) {
        dispatchMain([&, text, at = clock.monotonic() - begin] {
            history.push_back(text + "@" + std::to_string(at).substr(0, 6));
        });
    };
    for (int i = 0; i < 6; ++i)
        start("thread " + std::to_string(i), [&, i] {
            for (int round = 0; round < 20; ++round) {
                clock.sleep(0.1 + 0.0101 * i);
                note("thread " + std::to_string(i));
            }
        });
    for (int i = 0; i < 20; ++i) {
        // Never at the moment of a thread: which of the pool's threads is begun first may differ.
        dispatchGlobalAfter(0.0503 * i, [&clock, note, i] {
            clock.sleep(0.20031);
            note("pool " + std::to_string(i));
        });
        dispatchMainAfter(0.0707 * i, [note, i] { note("main " + std::to_string(i)); });
    }
    clock.advance(10);
    return history;
}

TEST(ManualClockTest, SoakHistoriesRepeatThemselves) {
    const auto first = historyOfAMixture();
    EXPECT_EQ(first.size(), 160U);
    for (int i = 0; i < 300; ++i)
        ASSERT_EQ(historyOfAMixture(), first) << "in repetition " << i;
}

}  // namespace
}  // namespace zn
