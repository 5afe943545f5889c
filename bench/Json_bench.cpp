#include <benchmark/benchmark.h>
#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <simdjson.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <nlohmann/json.hpp>

#include "bench/JsonText.h"
#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/foundation/NSJSONSerialization.h"

using namespace zn;

namespace {

// Reading: from the text to the tree, whose destruction is included for everybody.

Value readOurs() {
    return NSJSONSerialization::JSONObjectWithData(std::as_bytes(std::span(bench::largeJson())),
                                                   NSJSONReadingOptions::MutableContainers);
}

/// By default RapidJSON reads some reals as a neighbour of the nearest double, and is faster so.
template <unsigned flags = rapidjson::kParseDefaultFlags>
rapidjson::Document readRapidJson() {
    rapidjson::Document document;
    document.Parse<flags>(bench::largeJson().data(), bench::largeJson().size());
    return document;
}

std::string strippedRapidJson(const rapidjson::Document& document) {
    rapidjson::StringBuffer pretty;
    rapidjson::PrettyWriter writer(pretty);
    writer.SetIndent(' ', 2);
    document.Accept(writer);
    const std::string_view text(pretty.GetString(), pretty.GetSize());
    std::string stripped;
    stripped.reserve(text.size());
    std::ranges::copy_if(text, std::back_inserter(stripped),
                         [](char byte) { return byte != ' ' && byte != '\n'; });
    return stripped;
}

void requireSame(bool same) {
    if (!same) {
        std::fprintf(stderr, "json: results differ\n");
        std::exit(1);
    }
}

/// Everybody has read the same: what ours writes is what the peer reads from the text itself.
void requireSameTrees() {
    static const bool once = [] {
        const Value data = NSJSONSerialization::dataWithJSONObject(readOurs());
        const std::string again(reinterpret_cast<const char*>(data.bytes().data()),
                                data.bytes().size());
        requireSame(nlohmann::json::parse(again) == nlohmann::json::parse(bench::largeJson()));
        return true;
    }();
    benchmark::DoNotOptimize(once);
}

void ReadJson_Zarnic(benchmark::State& state) {
    requireSameTrees();
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(readOurs());
}

void ReadJson_RapidJson(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(readRapidJson());
}

void ReadJson_SimdJson(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state) {
        simdjson::dom::parser parser;
        benchmark::DoNotOptimize(parser.parse(bench::largeJson()).error());
    }
}

void ReadJson_Nlohmann(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(nlohmann::json::parse(bench::largeJson()));
}

void ReadJson_Qt(benchmark::State& state) {
    const auto bytes = QByteArray::fromStdString(bench::largeJson());
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(bytes));
}

void StripJson_Zarnic(benchmark::State& state) {
    const Value value = readOurs();
    // Not letter by letter: RapidJSON leaves slashes as they are, and some reals a digit too long.
    requireSame(nlohmann::json::parse(zn_convertToJsonString(value).value()) ==
                nlohmann::json::parse(
                    strippedRapidJson(readRapidJson<rapidjson::kParseFullPrecisionFlag>())));
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(zn_convertToJsonString(value));
}

void StripJson_RapidJson(benchmark::State& state) {
    const auto document = readRapidJson<rapidjson::kParseFullPrecisionFlag>();
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(strippedRapidJson(document));
}

BENCHMARK(ReadJson_Zarnic)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadJson_RapidJson)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadJson_SimdJson)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadJson_Nlohmann)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadJson_Qt)->Unit(benchmark::kMillisecond);
BENCHMARK(StripJson_Zarnic)->Unit(benchmark::kMillisecond);
BENCHMARK(StripJson_RapidJson)->Unit(benchmark::kMillisecond);

}  // namespace
