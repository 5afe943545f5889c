#include "zarnic/platform/foundation/NSRunLoop.h"

#include <gmock/gmock.h>
#include <poll.h>
#include <unistd.h>

#include <atomic>
#include <string>
#include <thread>

#include "tests/support/TestClock.h"
#include "zarnic/platform/foundation/Dispatch.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSTimer.h"

namespace zn {
namespace {

using testing::ElementsAre;

class NSRunLoopTest : public testing::Test {
protected:
    std::function<void()> note(const std::string& text) {
        return [this, text] { notes.push_back(text); };
    }
    Ref<NSRunLoop> loop = NSRunLoop::mainRunLoop();
    std::vector<std::string> notes;
};

struct Pipe {
    Pipe() { EXPECT_EQ(pipe(ends), 0); }
    ~Pipe() {
        close(ends[0]);
        close(ends[1]);
    }
    void put() { EXPECT_EQ(write(ends[1], "x", 1), 1); }
    void take() {
        char byte;
        EXPECT_EQ(read(ends[0], &byte, 1), 1);
    }
    int ends[2];
};

TEST_F(NSRunLoopTest, APassServesDatesThenBlocksThenDescriptorsThenTheCommit) {
    testClock();
    Pipe pipe;
    const auto late = loop->addBeforeWaiting(2, note("before waiting 2"));
    const auto early = loop->addBeforeWaiting(1, note("before waiting 1"));
    const auto readable = loop->addDescriptor(pipe.ends[0], POLLIN, [&](short events) {
        EXPECT_EQ(events & POLLIN, POLLIN);
        pipe.take();
        notes.push_back("descriptor");
    });
    dispatchMain(note("block"));
    const auto second = loop->addDeadline(2, note("deadline 2"));
    const auto first = loop->addDeadline(1, note("deadline 1"));
    const auto timer = NSTimer::timerWithTimeInterval(
        1.5, false, [&](const Ref<NSTimer>&) { notes.push_back("timer 1.5"); });
    loop->addTimer(timer, NSRunLoopMode::Default);
    pipe.put();
    testClock().sleep(2);
    EXPECT_TRUE(loop->runPass());
    EXPECT_THAT(notes, ElementsAre("deadline 1", "timer 1.5", "deadline 2", "block", "descriptor",
                                   "before waiting 1", "before waiting 2"));
    EXPECT_FALSE(loop->runPass());
}

TEST_F(NSRunLoopTest, WhatAPassAddsWaitsForTheNext) {
    testClock();
    dispatchMain([&] {
        notes.push_back("outer");
        dispatchMain(note("inner"));
        loop->addDeadline(0, note("deadline")).detach();
    });
    EXPECT_TRUE(loop->runPass());
    EXPECT_THAT(notes, ElementsAre("outer"));
    EXPECT_TRUE(loop->runPass());
    EXPECT_THAT(notes, ElementsAre("outer", "deadline", "inner"));
}

TEST_F(NSRunLoopTest, NestedRunsKeepBlocksInOrder) {
    testClock();
    dispatchMain([&] {
        notes.push_back("1");
        dispatchMain([&] {
            notes.push_back("3");
            loop->stop();
        });
        loop->run();
        notes.push_back("1 ends");
    });
    dispatchMain(note("2"));
    loop->runPass();
    EXPECT_THAT(notes, ElementsAre("1", "2", "3", "1 ends"));
}

TEST_F(NSRunLoopTest, StopEndsTheInnermostRunOnly) {
    testClock();
    dispatchMainAfter(1, [&] {
        dispatchMainAfter(1, [&] {
            loop->stop();
            loop->stop();
        });
        loop->run();
        notes.push_back("inner ended");
        dispatchMainAfter(1, [&] { loop->stop(); });
    });
    loop->run();
    EXPECT_THAT(notes, ElementsAre("inner ended"));
    EXPECT_EQ(testClock().monotonic(), 3);
}

TEST_F(NSRunLoopTest, AStopBeforeTheRunLetsOnePassThrough) {
    testClock();
    dispatchMain(note("block"));
    loop->stop();
    loop->run();
    EXPECT_THAT(notes, ElementsAre("block"));
}

TEST_F(NSRunLoopTest, RunsUntilADateAndServesWhatIsDueThen) {
    auto& clock = testClock();
    for (const double moment : {0.5, 1.0, 1.5})
        loop->addDeadline(moment, note(std::to_string(moment))).detach();
    loop->runUntilDate(clock.now() + 1);
    EXPECT_THAT(notes, ElementsAre("0.500000", "1.000000"));
    EXPECT_EQ(clock.monotonic(), 1);
    dispatchMain(note("block"));
    loop->runUntilDate(0);
    EXPECT_EQ(notes.back(), "block");
    EXPECT_EQ(clock.monotonic(), 1);
}

TEST_F(NSRunLoopTest, APassWaitsAtMostAsLongAsTold) {
    auto& clock = testClock();
    const auto deadline = loop->addDeadline(5, note("deadline"));
    EXPECT_EQ(loop->nextDeadline(), 5);
    EXPECT_FALSE(loop->runPass());
    EXPECT_EQ(clock.monotonic(), 0);
    EXPECT_FALSE(loop->runPass(4));
    EXPECT_EQ(clock.monotonic(), 4);
    EXPECT_TRUE(loop->runPass(4));
    EXPECT_EQ(clock.monotonic(), 5);
}

TEST_F(NSRunLoopTest, TokensUndoTheirRegistration) {
    Pipe pipe;
    pipe.put();
    auto deadline = loop->addDeadline(0, note("deadline"));
    auto before = loop->addBeforeWaiting(0, note("before"));
    auto descriptor = loop->addDescriptor(pipe.ends[0], POLLIN, [&](short) { note("data")(); });
    RunLoopToken moved = std::move(deadline);
    EXPECT_FALSE(deadline);
    moved.reset();
    before = RunLoopToken();
    descriptor.reset();
    EXPECT_FALSE(loop->runPass());
    EXPECT_THAT(notes, ElementsAre());
    RunLoopToken outlives = make<NSRunLoop>()->addDeadline(1, note("never"));
    EXPECT_TRUE(outlives);
}

TEST_F(NSRunLoopTest, HandlersMayRemoveOneAnother) {
    Pipe one, two;
    one.put();
    two.put();
    RunLoopToken tokens[2], before[2];
    tokens[0] = loop->addDescriptor(one.ends[0], POLLIN, [&](short) {
        note("one")();
        tokens[0].reset();
        tokens[1].reset();
    });
    tokens[1] = loop->addDescriptor(two.ends[0], POLLIN, [&](short) { note("two")(); });
    before[0] = loop->addBeforeWaiting(0, [&] {
        note("before")();
        before[0].reset();
        before[1].reset();
    });
    before[1] = loop->addBeforeWaiting(0, note("removed"));
    loop->runPass();
    loop->runPass();
    EXPECT_THAT(notes, ElementsAre("one", "before"));
}

TEST_F(NSRunLoopTest, ThreadsHaveLoopsOfTheirOwn) {
    auto& clock = testClock();
    EXPECT_EQ(NSRunLoop::currentRunLoop(), loop);
    auto participant = std::make_unique<ClockParticipant>("worker");
    double ended = 0;
    bool own = false;
    std::thread worker([&, counted = std::move(participant)]() mutable {
        counted->attach();
        const auto mine = NSRunLoop::currentRunLoop();
        own = mine != loop && mine == NSRunLoop::currentRunLoop();
        mine->addDeadline(1.5,
                          [&] {
                              dispatchMain(note("from the worker"));
                              mine->stop();
                          })
            .detach();
        mine->run();
        ended = clock.monotonic();
        counted.reset();
    });
    loop->addDeadline(1, note("1")).detach();
    loop->addDeadline(2, note("2")).detach();
    clock.advance(3);
    worker.join();
    EXPECT_TRUE(own);
    EXPECT_EQ(ended, 1.5);
    EXPECT_THAT(notes, ElementsAre("1", "from the worker", "2"));
}

// From here on with the machine's clock: no moment is measured.

TEST_F(NSRunLoopTest, SleepsWhileNothingIsDue) {
    int passes = 0;
    const auto count = loop->addBeforeWaiting(0, [&] { ++passes; });
    const double now = Clock::shared().now();
    const auto timer = NSTimer::timerWithTimeInterval(0.02, true, [&](const Ref<NSTimer>&) {});
    loop->addTimer(timer, NSRunLoopMode::Default);
    loop->runUntilDate(now + 0.1);
    timer->invalidate();
    // Two for each of at most five fires, and the first and last.
    EXPECT_LE(passes, 14);
    EXPECT_GE(Clock::shared().now(), now + 0.1);
}

TEST_F(NSRunLoopTest, OtherThreadsEndAWait) {
    Pipe pipe;
    const auto descriptor = loop->addDescriptor(pipe.ends[0], POLLIN, [&](short) {
        pipe.take();
        loop->stop();
    });
    for (int i = 0; i < 200; ++i) {
        std::thread block([&] { dispatchMain([&] { loop->stop(); }); });
        loop->run();
        block.join();
        std::thread stopping([&] { loop->stop(); });
        loop->run();
        stopping.join();
        std::thread writing([&] { pipe.put(); });
        loop->run();
        writing.join();
        std::thread adding([&] { loop->addDeadline(0, [&] { loop->stop(); }).detach(); });
        loop->run();
        adding.join();
        // One that comes before the wait has nothing to end.
        std::atomic<bool> awake = false;
        std::thread waking([&] {
            while (!awake)
                loop->wakeUp();
        });
        loop->runPass(1e6);
        awake = true;
        waking.join();
    }
}

TEST_F(NSRunLoopTest, OtherThreadsMayMoveAndInvalidateTimers) {
    std::atomic<int> fires = 0;
    std::vector<Ref<NSTimer>> timers;
    for (int i = 0; i < 20; ++i) {
        timers.push_back(
            NSTimer::timerWithTimeInterval(0.0001, true, [&](const Ref<NSTimer>&) { ++fires; }));
        loop->addTimer(timers.back(), NSRunLoopMode::Common);
    }
    std::thread other([&] {
        for (int round = 0; round < 200; ++round)
            for (const auto& timer : timers)
                timer->setFireDate(NSDate::date());
        while (fires == 0)
            std::this_thread::yield();
        for (const auto& timer : timers)
            timer->invalidate();
        loop->stop();
    });
    loop->run();
    other.join();
    EXPECT_GT(fires, 0);
    const int firesAtTheEnd = fires;
    EXPECT_FALSE(loop->runPass(0.001));
    EXPECT_EQ(fires, firesAtTheEnd);
}

}  // namespace
}  // namespace zn
