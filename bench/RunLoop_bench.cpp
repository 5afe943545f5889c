#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTimer>

#include <memory>
#include <vector>

#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/Dispatch.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/foundation/NSTimer.h"

namespace {

constexpr int blockCount = 1'000'000;
constexpr int timerCount = 10'000;
/// Seconds that the timers live for, with intervals between 20 and 119 milliseconds.
constexpr double timerLife = 0.5;

int intervalOf(int index) {
    return 20 + index % 100;
}

void MillionBlocks_Zarnic(benchmark::State& state) {
    const auto loop = zn::NSRunLoop::mainRunLoop();
    for (auto _ : state) {
        int ran = 0;
        for (int index = 0; index < blockCount; ++index)
            zn::dispatchMain([&ran] { ++ran; });
        while (ran < blockCount)
            loop->runPass();
    }
}
BENCHMARK(MillionBlocks_Zarnic)->Unit(benchmark::kMillisecond);

void MillionBlocks_Qt(benchmark::State& state) {
    QObject receiver;
    for (auto _ : state) {
        int ran = 0;
        for (int index = 0; index < blockCount; ++index)
            QMetaObject::invokeMethod(
                &receiver, [&ran] { ++ran; }, Qt::QueuedConnection);
        while (ran < blockCount)
            QCoreApplication::processEvents();
    }
}
BENCHMARK(MillionBlocks_Qt)->Unit(benchmark::kMillisecond);

void TenThousandTimers_Zarnic(benchmark::State& state) {
    const auto loop = zn::NSRunLoop::mainRunLoop();
    long fired = 0;
    for (auto _ : state) {
        std::vector<zn::Ref<zn::NSTimer>> timers;
        for (int index = 0; index < timerCount; ++index) {
            timers.push_back(zn::NSTimer::timerWithTimeInterval(
                intervalOf(index) / 1000.0, true,
                [&fired](const zn::Ref<zn::NSTimer>&) { ++fired; }));
            loop->addTimer(timers.back(), zn::NSRunLoopMode::Common);
        }
        loop->runUntilDate(zn::Clock::shared().now() + timerLife);
        for (const auto& timer : timers)
            timer->invalidate();
    }
    state.counters["fired"] =
        benchmark::Counter(static_cast<double>(fired), benchmark::Counter::kAvgIterations);
}
BENCHMARK(TenThousandTimers_Zarnic)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->Iterations(6);

void TenThousandTimers_Qt(benchmark::State& state) {
    long fired = 0;
    for (auto _ : state) {
        std::vector<std::unique_ptr<QTimer>> timers;
        for (int index = 0; index < timerCount; ++index) {
            timers.push_back(std::make_unique<QTimer>());
            timers.back()->setTimerType(Qt::PreciseTimer);
            QObject::connect(timers.back().get(), &QTimer::timeout, [&fired] { ++fired; });
            timers.back()->start(intervalOf(index));
        }
        const double end = zn::Clock::shared().monotonic() + timerLife;
        for (double left = timerLife; left > 0; left = end - zn::Clock::shared().monotonic())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    state.counters["fired"] =
        benchmark::Counter(static_cast<double>(fired), benchmark::Counter::kAvgIterations);
}
BENCHMARK(TenThousandTimers_Qt)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->Iterations(6);

}  // namespace
