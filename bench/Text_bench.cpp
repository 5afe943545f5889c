#include <benchmark/benchmark.h>

#include <QFontMetricsF>
#include <QString>

#include <string>
#include <vector>

#include "zarnic/platform/drawing/TextLayout.h"

namespace {

constexpr int textCount = 1000;
constexpr double wrapWidth = 225;

std::string text(int index, int round) {
    return "Message " + std::to_string(round) + "." + std::to_string(index) +
           " is wider than three fifths of the screen, so it wraps onto a few lines of text.";
}

void MeasureTextsAgain_Zarnic(benchmark::State& state) {
    const auto font = zn::UIFont::systemFontOfSize(15);
    std::vector<std::string> texts;
    for (int index = 0; index < textCount; ++index)
        texts.push_back(text(index, 0));
    double height = 0;
    const auto measureAll = [&] {
        for (const std::string& each : texts)
            height += zn::boundingRectWithSize(each, {wrapWidth, 1e6}, 1, font).height();
    };
    measureAll();
    for (auto _ : state)
        measureAll();
    benchmark::DoNotOptimize(height);
}
BENCHMARK(MeasureTextsAgain_Zarnic)->Unit(benchmark::kMicrosecond);

/// Makes each text new to whatever remembers texts; a benchmark is entered more than once.
int newRound() {
    static int round = 0;
    return ++round;
}

template <class Measure>
void measureNewTexts(benchmark::State& state, const Measure& measure) {
    double height = 0;
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<std::string> texts;
        const int round = newRound();
        for (int index = 0; index < textCount; ++index)
            texts.push_back(text(index, round));
        state.ResumeTiming();
        for (const std::string& each : texts)
            height += measure(each);
    }
    benchmark::DoNotOptimize(height);
}

void MeasureTextsFirst_Zarnic(benchmark::State& state) {
    const auto font = zn::UIFont::systemFontOfSize(15);
    measureNewTexts(state, [&](const std::string& each) {
        return zn::boundingRectWithSize(each, {wrapWidth, 1e6}, 1, font).height();
    });
}
BENCHMARK(MeasureTextsFirst_Zarnic)->Unit(benchmark::kMicrosecond);

void MeasureTextsFirst_Qt(benchmark::State& state) {
    QFont font("Inter");
    font.setPixelSize(15);
    const QFontMetricsF metrics(font);
    measureNewTexts(state, [&](const std::string& each) {
        return metrics
            .boundingRect(QRectF(0, 0, wrapWidth, 1e6), Qt::TextWordWrap,
                          QString::fromStdString(each))
            .height();
    });
}
BENCHMARK(MeasureTextsFirst_Qt)->Unit(benchmark::kMicrosecond);

}  // namespace
