#include <benchmark/benchmark.h>

#include <QColor>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "zarnic/UIColor+ZNCategory.h"

using namespace zn;

namespace {

constexpr std::array texts{"#80ff0000", "#FF123456", "#00abcdef", "#7F7f7f7f"};

void requireSame(bool same, const char* name) {
    if (same)
        return;
    std::fprintf(stderr, "%s: results differ\n", name);
    std::exit(1);
}

void ReadHexColor_Zarnic(benchmark::State& state) {
    for (const char* text : texts) {
        const auto color = ZN_ColorWithHexString(text);
        const QColor peer = QColor::fromString(QLatin1StringView(text));
        requireSame(zn_GetRed(color) == peer.red() && zn_GetBlue(color) == peer.blue(), "read");
    }
    std::size_t turn = 0;
    for ([[maybe_unused]] auto each : state)
        benchmark::DoNotOptimize(ZN_ColorWithHexString(texts[turn++ % texts.size()]));
}

void ReadHexColor_Qt(benchmark::State& state) {
    std::size_t turn = 0;
    for ([[maybe_unused]] auto each : state)
        benchmark::DoNotOptimize(
            QColor::fromString(QLatin1StringView(texts[turn++ % texts.size()])));
}

void WriteHexColor_Zarnic(benchmark::State& state) {
    const auto color = ZN_ColorWithHexString(texts[1]);
    const QColor peer = QColor::fromString(QLatin1StringView(texts[1]));
    requireSame(std::string("#").append(ZN_HexStringWithColor(color, true)) ==
                    peer.name(QColor::HexArgb).toStdString(),
                "write");
    for ([[maybe_unused]] auto each : state)
        benchmark::DoNotOptimize(ZN_HexStringWithColor(color, true));
}

void WriteHexColor_Qt(benchmark::State& state) {
    const QColor color = QColor::fromString(QLatin1StringView(texts[1]));
    for ([[maybe_unused]] auto each : state)
        benchmark::DoNotOptimize(color.name(QColor::HexArgb));
}

BENCHMARK(ReadHexColor_Zarnic);
BENCHMARK(ReadHexColor_Qt);
BENCHMARK(WriteHexColor_Zarnic);
BENCHMARK(WriteHexColor_Qt);

}  // namespace
