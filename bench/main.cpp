#include <benchmark/benchmark.h>

#include <QApplication>

#include "bench/Machine.h"

/// Qt needs its application object before anything else of it is used.
int main(int count, char** values) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, values);
    benchmark::Initialize(&count, values);
    if (benchmark::ReportUnrecognizedArguments(count, values))
        return 1;
    benchmark::AddCustomContext("peer", std::string("Qt ") + qVersion());
    benchmark::AddCustomContext("processor", bench::processorName());
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
