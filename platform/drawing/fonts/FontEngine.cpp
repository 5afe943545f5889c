#include "platform/drawing/fonts/FontEngine.h"

#include <pango/pangofc-fontmap.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <iterator>

#include "platform/drawing/fonts/GlyphFont.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

struct WeightPair {
    double platform;
    double openType;
};
/// The platform's weights beside those of the OpenType specification (OS/2, usWeightClass).
constexpr std::array<WeightPair, 9> weightTable{{
    {UIFontWeight::UltraLight, 100},
    {UIFontWeight::Thin, 200},
    {UIFontWeight::Light, 300},
    {UIFontWeight::Regular, 400},
    {UIFontWeight::Medium, 500},
    {UIFontWeight::Semibold, 600},
    {UIFontWeight::Bold, 700},
    {UIFontWeight::Heavy, 800},
    {UIFontWeight::Black, 900},
}};

double interpolated(double value, double WeightPair::*from, double WeightPair::*to) {
    if (!(value > weightTable.front().*from))
        return std::isnan(value) ? interpolated(400, &WeightPair::openType, to)
                                 : weightTable.front().*to;
    const auto upper = std::find_if(weightTable.begin(), weightTable.end(),
                                    [&](const WeightPair& pair) { return pair.*from >= value; });
    if (upper == weightTable.end())
        return weightTable.back().*to;
    const auto& lower = *std::prev(upper);
    const double part = (value - lower.*from) / ((*upper).*from - lower.*from);
    return lower.*to + part * ((*upper).*to - lower.*to);
}

std::string environmentLocale() {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* value = std::getenv(name); value && *value)
            return value;
    return {};
}

/// Han characters are one set of codes with regional shapes; simplified Chinese unless the user's
/// language is another one that writes them.
struct HanRegion {
    const char* locale;
    const char* language;
    const char* family;
};
constexpr std::array<HanRegion, 6> hanRegions{{
    {"ja", "ja", "Noto Sans CJK JP"},
    {"ko", "ko", "Noto Sans CJK KR"},
    {"zh_HK", "zh-hk", "Noto Sans CJK HK"},
    {"zh_MO", "zh-hk", "Noto Sans CJK HK"},
    {"zh_TW", "zh-tw", "Noto Sans CJK TC"},
    {"", "zh-cn", "Noto Sans CJK SC"},
}};

const HanRegion& hanRegion() {
    static const HanRegion& region =
        *std::find_if(hanRegions.begin(), hanRegions.end(),
                      [locale = environmentLocale()](const HanRegion& candidate) {
                          return locale.starts_with(candidate.locale);
                      });
    return region;
}

struct FreeDescription {
    void operator()(PangoFontDescription* description) const {
        pango_font_description_free(description);
    }
};

std::unique_ptr<PangoFontDescription, FreeDescription> pangoDescription(
    const UIFont::Description& font) {
    std::unique_ptr<PangoFontDescription, FreeDescription> description(
        pango_font_description_new());
    const std::string families = font.family + "," + hanRegion().family + ",sans-serif";
    pango_font_description_set_family(description.get(), families.c_str());
    pango_font_description_set_weight(description.get(),
                                      static_cast<PangoWeight>(openTypeWeight(font.weight)));
    pango_font_description_set_style(description.get(),
                                     font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_font_description_set_absolute_size(description.get(), font.size * PANGO_SCALE);
    return description;
}

/// Advances are the outlines' own, so that a text measures the same at every scale.
GObjectRef<PangoContext> makeContext(PangoFontMap* map, PangoDirection direction,
                                     const char* language) {
    GObjectRef<PangoContext> context(pango_font_map_create_context(map));
    pango_context_set_language(context.get(), pango_language_from_string(language));
    pango_context_set_base_dir(context.get(), direction);
    pango_cairo_context_set_font_options(context.get(), textFontOptions());
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    return context;
}

}  // namespace

int openTypeWeight(double weight) {
    return static_cast<int>(
        std::lround(interpolated(weight, &WeightPair::platform, &WeightPair::openType)));
}

double platformWeight(double weight) {
    return interpolated(weight, &WeightPair::openType, &WeightPair::platform);
}

FontEngine& FontEngine::shared() {
    static auto& engine = *new FontEngine;
    return engine;
}

FontEngine::FontEngine() {
    if (auto message = missingFontsMessage())
        throw NSException(NSInternalInconsistencyException, *message);
    map_.reset(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT));
    latinContext_ = makeContext(map_.get(), PANGO_DIRECTION_LTR, "en");
    contexts_[0] = makeContext(map_.get(), PANGO_DIRECTION_LTR, hanRegion().language);
    contexts_[1] = makeContext(map_.get(), PANGO_DIRECTION_RTL, hanRegion().language);
}

const GObjectRef<PangoContext>& FontEngine::contextFor(std::string_view text,
                                                       ParagraphDirection direction) const {
    if (direction == ParagraphDirection::RightToLeft)
        return contexts_[1];
    const bool plain =
        std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return plain ? latinContext_ : contexts_[0];
}

GObjectRef<PangoLayout> FontEngine::makeLayout(std::string_view text,
                                               const UIFont::Description& font,
                                               ParagraphDirection direction) const {
    GObjectRef<PangoLayout> layout(pango_layout_new(contextFor(text, direction).get()));
    pango_layout_set_auto_dir(layout.get(), FALSE);
    pango_layout_set_font_description(layout.get(), pangoDescription(font).get());
    pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
    return layout;
}

GObjectRef<PangoFont> FontEngine::load(const UIFont::Description& font) const {
    return GObjectRef<PangoFont>(
        pango_font_map_load_font(map_.get(), latinContext_.get(), pangoDescription(font).get()));
}

std::shared_ptr<const GlyphFont> FontEngine::glyphFont(PangoFont* font) {
    cairo_scaled_font_t* scaled = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font));
    // A living entry holds its key, so the address cannot have been taken by another font.
    if (auto known = glyphFonts_[scaled].lock())
        return known;
    std::erase_if(glyphFonts_, [](const auto& entry) { return entry.second.expired(); });
    auto made = std::make_shared<const GlyphFont>(font);
    glyphFonts_[scaled] = made;
    return made;
}

void FontEngine::fontsChanged() {
    pango_fc_font_map_config_changed(PANGO_FC_FONT_MAP(map_.get()));
}

}  // namespace zn
