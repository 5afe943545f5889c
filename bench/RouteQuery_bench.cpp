#include <benchmark/benchmark.h>

#include <QUrlQuery>
#include <cstdio>
#include <cstdlib>

#include "zarnic/ZNControllerHelper.h"

namespace {

constexpr const char* query =
    "id=7&name=anna&page=12;sort=descending&filter=unread&from=2026-11-01&to=2026-11-22&"
    "view=list&token=0123456789abcdef&last=yes";
constexpr qsizetype pairCount = 10;

/// Ends the program when the two did not find the same pairs.
void requireSame() {
    QUrlQuery peer(QString::fromUtf8(query).replace(';', '&'));
    const zn::Dictionary ours = zn::ZNControllerHelper::DictionaryFromQuery(query);
    bool same = peer.queryItems().size() == pairCount && ours.count() == pairCount;
    for (const auto& [key, value] : peer.queryItems())
        same = same && ours[key.toStdString()].string() == value.toStdString();
    if (same)
        return;
    std::fprintf(stderr, "the queries' pairs differ\n");
    std::exit(1);
}

void QueryOfTenPairs_Zarnic(benchmark::State& state) {
    requireSame();
    const std::string text = query;
    for (auto _ : state) {
        const zn::Dictionary pairs = zn::ZNControllerHelper::DictionaryFromQuery(text);
        benchmark::DoNotOptimize(pairs.count());
    }
}
BENCHMARK(QueryOfTenPairs_Zarnic);

void QueryOfTenPairs_Qt(benchmark::State& state) {
    const QString text = QString::fromUtf8(query).replace(';', '&');
    for (auto _ : state) {
        const QUrlQuery pairs(text);
        benchmark::DoNotOptimize(pairs.isEmpty());
    }
}
BENCHMARK(QueryOfTenPairs_Qt);

}  // namespace
