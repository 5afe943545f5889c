#include "platform/drawing/fonts/FontList.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "platform/drawing/fonts/FontEngine.h"
#include "platform/drawing/fonts/FontFamilies.h"

namespace zn {
namespace {

struct FreeFontconfig {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};
template <class T>
using FontconfigRef = std::unique_ptr<T, FreeFontconfig>;

std::string text(FcPattern* pattern, const char* property) {
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, property, 0, &value) != FcResultMatch)
        return {};
    return reinterpret_cast<const char*>(value);
}

int number(FcPattern* pattern, const char* property, int otherwise) {
    int value = otherwise;
    FcPatternGetInteger(pattern, property, 0, &value);
    return value;
}

/// The installed scalable fonts whose `property` has this value, or all.
FontconfigRef<FcFontSet> installedFonts(const char* property = nullptr,
                                        std::string_view value = {}) {
    const FontconfigRef<FcPattern> pattern(FcPatternCreate());
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    if (property)
        FcPatternAddString(pattern.get(), property,
                           reinterpret_cast<const FcChar8*>(std::string(value).c_str()));
    const FontconfigRef<FcObjectSet> objects(
        FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_POSTSCRIPT_NAME, FC_WEIGHT, FC_WIDTH, FC_SLANT,
                         FC_FONTFORMAT, nullptr));
    return FontconfigRef<FcFontSet>(FcFontList(nullptr, pattern.get(), objects.get()));
}

std::vector<FcPattern*> patterns(const FontconfigRef<FcFontSet>& fonts) {
    if (!fonts)
        return {};
    return {fonts->fonts, fonts->fonts + fonts->nfont};
}

/// Text is shaped by HarfBuzz, which reads these two formats.
bool usable(FcPattern* font) {
    const std::string format = text(font, FC_FONTFORMAT);
    return format == "TrueType" || format == "CFF";
}

/// As fontconfig compares the names of families.
struct IgnoringCase {
    bool operator()(const std::string& left, const std::string& right) const {
        return FcStrCmpIgnoreCase(reinterpret_cast<const FcChar8*>(left.c_str()),
                                  reinterpret_cast<const FcChar8*>(right.c_str())) < 0;
    }
};

bool anyFontInstalled() {
    const auto fonts = installedFonts();
    return std::ranges::any_of(patterns(fonts), usable);
}

bool familyInstalled(const char* family) {
    const auto fonts = installedFonts(FC_FAMILY, family);
    return std::ranges::any_of(patterns(fonts), usable);
}

std::string anySansSerif() {
    const FontconfigRef<FcPattern> wanted(
        FcNameParse(reinterpret_cast<const FcChar8*>("sans-serif")));
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result{};
    const FontconfigRef<FcPattern> match(FcFontMatch(nullptr, wanted.get(), &result));
    return match ? text(match.get(), FC_FAMILY) : "sans-serif";
}

/// How far a font is from upright, regular and of normal width.
double oddity(FcPattern* font) {
    const int weight = number(font, FC_WEIGHT, FC_WEIGHT_REGULAR);
    return std::abs(weight - FC_WEIGHT_REGULAR) + 1000 * (number(font, FC_SLANT, 0) != 0) +
           10 * std::abs(number(font, FC_WIDTH, FC_WIDTH_NORMAL) - FC_WIDTH_NORMAL);
}

/// Fonts of another width than normal carry a second family name that means them alone.
std::string describingFamily(FcPattern* font) {
    FcChar8* second = nullptr;
    if (number(font, FC_WIDTH, FC_WIDTH_NORMAL) != FC_WIDTH_NORMAL &&
        FcPatternGetString(font, FC_FAMILY, 1, &second) == FcResultMatch)
        return reinterpret_cast<const char*>(second);
    return text(font, FC_FAMILY);
}

UIFont::Description described(FcPattern* font) {
    UIFont::Description description;
    description.family = describingFamily(font);
    description.weight =
        platformWeight(FcWeightToOpenTypeDouble(number(font, FC_WEIGHT, FC_WEIGHT_REGULAR)));
    description.italic = number(font, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
    return description;
}

}  // namespace

const std::string& systemFontFamily() {
    static const std::string family = []() -> std::string {
        for (const char* name : {"Inter", "Roboto", "Noto Sans", "DejaVu Sans"})
            if (familyInstalled(name))
                return name;
        return anySansSerif();
    }();
    return family;
}

std::optional<UIFont::Description> installedFontNamed(std::string_view name) {
    if (name.empty())
        return std::nullopt;
    for (const char* property : {FC_FAMILY, FC_POSTSCRIPT_NAME}) {
        const auto fonts = installedFonts(property, name);
        auto candidates = patterns(fonts);
        std::erase_if(candidates, [](FcPattern* font) { return !usable(font); });
        const auto nearest = std::ranges::min_element(candidates, {}, oddity);
        if (nearest != candidates.end())
            return described(*nearest);
    }
    return std::nullopt;
}

std::string postScriptName(FcPattern* font) {
    std::string name = text(font, FC_POSTSCRIPT_NAME);
    if (name.empty()) {
        name = text(font, FC_FAMILY) + "-" + text(font, FC_STYLE);
        std::erase(name, ' ');
    }
    return name;
}

std::vector<FontFamily> installedFamilies() {
    std::set<std::string> families;
    std::map<std::string, std::set<std::string>, IgnoringCase> fontNames;
    const auto fonts = installedFonts();
    for (FcPattern* font : patterns(fonts)) {
        families.insert(text(font, FC_FAMILY));
        const std::string name = postScriptName(font);
        FcChar8* family = nullptr;
        for (int i = 0; FcPatternGetString(font, FC_FAMILY, i, &family) == FcResultMatch; ++i)
            fontNames[reinterpret_cast<const char*>(family)].insert(name);
    }
    std::vector<FontFamily> result;
    result.reserve(families.size());
    for (const std::string& family : families)
        result.push_back({family, fontNames[family]});
    return result;
}

std::vector<std::string> UIFont::familyNames() {
    std::set<std::string> names;
    const auto fonts = installedFonts();
    for (FcPattern* font : patterns(fonts))
        names.insert(text(font, FC_FAMILY));
    return {names.begin(), names.end()};
}

std::vector<std::string> UIFont::fontNamesForFamilyName(std::string_view family) {
    std::set<std::string> names;
    const auto fonts = installedFonts(FC_FAMILY, family);
    for (FcPattern* font : patterns(fonts))
        names.insert(postScriptName(font));
    return {names.begin(), names.end()};
}

std::optional<std::string> missingFontsMessage() {
    if (anyFontInstalled())
        return std::nullopt;
    return "No fonts are installed, so no text can be shown. Install some, for example with: "
           "apt install fonts-inter fonts-noto-cjk fonts-noto-color-emoji";
}

}  // namespace zn
