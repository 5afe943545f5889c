#include <benchmark/benchmark.h>

#include "bench/QtScene.h"
#include "bench/ZarnicScene.h"

namespace {

/// Runs through the opacities of a fade of 18 frames.
class Fade {
public:
    double next() { return 0.05 + 0.05 * (frame_++ % 18); }

private:
    int frame_ = 0;
};

void RepaintAll_Zarnic(benchmark::State& state) {
    auto& scene = bench::ZarnicScene::shared();
    for (auto _ : state)
        scene.paintAll();
}
BENCHMARK(RepaintAll_Zarnic)->Unit(benchmark::kMicrosecond);

void RepaintAll_Qt(benchmark::State& state) {
    bench::QtScene scene;
    for (auto _ : state)
        scene.paintAll();
}
BENCHMARK(RepaintAll_Qt)->Unit(benchmark::kMicrosecond);

void ToastFadeFrame_Zarnic(benchmark::State& state) {
    auto& scene = bench::ZarnicScene::shared();
    Fade fade;
    for (auto _ : state)
        scene.paintToast(fade.next());
    state.counters["pixels"] =
        static_cast<double>(scene.host().screen().compositor().statistics().pixelsRepainted);
}
BENCHMARK(ToastFadeFrame_Zarnic)->Unit(benchmark::kMicrosecond);

void ToastFadeFrame_Qt(benchmark::State& state) {
    bench::QtScene scene;
    Fade fade;
    for (auto _ : state)
        scene.paintToast(fade.next());
}
BENCHMARK(ToastFadeFrame_Qt)->Unit(benchmark::kMicrosecond);

}  // namespace
