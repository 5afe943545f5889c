#include <benchmark/benchmark.h>
#include <fontconfig/fontconfig.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "zarnic/UIFont+ZNCategory.h"

/// All fonts as text, beside what `fc-list : family postscriptname` does once fontconfig has read
/// its caches, which both need.
namespace {

struct Free {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
    void operator()(FcChar8* text) const { FcStrFree(text); }
};

std::string linesOfFcList() {
    const std::unique_ptr<FcPattern, Free> any(FcPatternCreate());
    const std::unique_ptr<FcObjectSet, Free> objects(
        FcObjectSetBuild(FC_FAMILY, FC_POSTSCRIPT_NAME, nullptr));
    const std::unique_ptr<FcFontSet, Free> fonts(FcFontList(nullptr, any.get(), objects.get()));
    std::string lines;
    for (int i = 0; i < fonts->nfont; ++i) {
        const std::unique_ptr<FcChar8, Free> line(
            FcPatternFormat(fonts->fonts[i], reinterpret_cast<const FcChar8*>("%{=fclist}")));
        lines.append(reinterpret_cast<const char*>(line.get())).append("\n");
    }
    return lines;
}

/// Each of our fonts must be in the other list.
void requireSame() {
    const std::string other = linesOfFcList();
    constexpr std::string_view font = "  Font name: ";
    std::size_t known = 0, all = 0;
    for (const std::string& line : zn::ZN_GetAllFontNames()) {
        if (!line.starts_with(font))
            continue;
        ++all;
        known += other.find(line.substr(font.size())) != other.npos;
    }
    // Those that have no PostScript name are called by their family and style.
    if (all > 0 && known * 10 >= all * 9)
        return;
    std::fprintf(stderr, "fonts: %zu of %zu are known\n", known, all);
    std::exit(1);
}

void AllFonts_Zarnic(benchmark::State& state) {
    requireSame();
    for (auto _ : state)
        benchmark::DoNotOptimize(zn::ZN_GetAllFontNames());
}
BENCHMARK(AllFonts_Zarnic)->Unit(benchmark::kMicrosecond);

void AllFonts_FcList(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(linesOfFcList());
}
BENCHMARK(AllFonts_FcList)->Unit(benchmark::kMicrosecond);

}  // namespace
