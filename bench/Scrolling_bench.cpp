#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "bench/Peer.h"
#include "bench/QtScrollScene.h"
#include "bench/ScrollScene.h"
#include "bench/ZarnicScrollScene.h"

namespace {

/// Steps of 1/255 by which the two may differ in the mean: their glyphs are smoothed differently.
constexpr double tolerance = 6;

/// How far the pages of the two differ at the beginning and in the middle.
double differenceOfPages() {
    bench::ZarnicScrollScene ours;
    bench::QtScrollScene peer;
    double worst = 0;
    for (const double offset : {0.0, 1001.0}) {
        ours.show(offset);
        peer.show(offset);
        worst = std::max(worst, bench::meanDifference(*ours.picture(), peer.picture()));
    }
    return worst;
}

template <class Scene>
void scrollFrames(benchmark::State& state) {
    static const double difference = differenceOfPages();
    if (difference > tolerance) {
        state.SkipWithError(("pages differ by " + std::to_string(difference)).c_str());
        return;
    }
    Scene scene;
    bench::scroll::Offsets offsets;
    for (auto _ : state)
        scene.show(offsets.next());
}

void ScrollFrame_Zarnic(benchmark::State& state) {
    scrollFrames<bench::ZarnicScrollScene>(state);
}
BENCHMARK(ScrollFrame_Zarnic)->Unit(benchmark::kMicrosecond);

void ScrollFrame_Qt(benchmark::State& state) {
    scrollFrames<bench::QtScrollScene>(state);
}
BENCHMARK(ScrollFrame_Qt)->Unit(benchmark::kMicrosecond);

}  // namespace
