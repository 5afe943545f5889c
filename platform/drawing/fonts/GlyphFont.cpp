#include "platform/drawing/fonts/GlyphFont.h"

#include <cairo-ft.h>
#include <pango/pangofc-font.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/drawing/context/CairoAccess.h"
#include "platform/drawing/fonts/PhasedFace.h"

namespace zn {
namespace {

/// Larger glyphs, in pixels, are filled as paths: they are few, and would fill the glyph cache.
constexpr double largestCachedGlyph = 96;

std::string firstFamily(PangoFont* font) {
    FcChar8* family = nullptr;
    FcPattern* pattern = pango_fc_font_get_pattern(PANGO_FC_FONT(font));
    if (FcPatternGetString(pattern, FC_FAMILY, 0, &family) != FcResultMatch)
        return {};
    return reinterpret_cast<const char*>(family);
}

bool hasColor(cairo_scaled_font_t* font) {
    const FT_Face face = cairo_ft_scaled_font_lock_face(font);
    const bool colored = face && FT_HAS_COLOR(face);
    if (face)
        cairo_ft_scaled_font_unlock_face(font);
    return colored;
}

/// Turns placed glyphs into Cairo's, a block at a time, without a heap block.
template <class Place, class Show>
void inBlocks(std::span<const PlacedGlyph> glyphs, const Place& place, const Show& show) {
    std::array<cairo_glyph_t, 256> block;
    while (!glyphs.empty()) {
        const std::size_t count = std::min(glyphs.size(), block.size());
        std::transform(glyphs.begin(), glyphs.begin() + static_cast<std::ptrdiff_t>(count),
                       block.begin(), place);
        show(block.data(), static_cast<int>(count));
        glyphs = glyphs.subspan(count);
    }
}

}  // namespace

const cairo_font_options_t* textFontOptions() {
    static const cairo_font_options_t* const shared = [] {
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
        return options;
    }();
    return shared;
}

GlyphFont::GlyphFont(PangoFont* font)
    : scaled_(
          cairo_scaled_font_reference(pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)))),
      family_(firstFamily(font)),
      colored_(hasColor(scaled_)) {
    if (!colored_)
        phased_ = makePhasedFace(cairo_scaled_font_get_font_face(scaled_));
}

GlyphFont::~GlyphFont() {
    if (phased_)
        cairo_font_face_destroy(phased_);
    cairo_scaled_font_destroy(scaled_);
}

void GlyphFont::show(cairo_t* context, Point origin, std::span<const PlacedGlyph> glyphs) const {
    cairo_matrix_t toPixels;
    cairo_get_matrix(context, &toPixels);
    if (toPixels.xx * toPixels.yy - toPixels.xy * toPixels.yx == 0)
        return;
    cairo_matrix_t pixelFont;
    cairo_scaled_font_get_font_matrix(scaled_, &pixelFont);
    cairo_matrix_multiply(&pixelFont, &pixelFont, &toPixels);
    const bool turned = toPixels.xy != 0 || toPixels.yx != 0;
    const bool large =
        std::max(std::abs(pixelFont.xx), std::abs(pixelFont.yy)) > largestCachedGlyph;
    const CairoSave saved(context);
    if (colored_)
        showColored(context, origin, glyphs);
    else if (turned || large)
        fillPath(context, origin, glyphs);
    else
        showOnPixels(context, origin, glyphs);
}

void GlyphFont::addPath(cairo_t* context, Point origin, std::span<const PlacedGlyph> glyphs) const {
    cairo_set_scaled_font(context, scaled_);
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_WINDING);
    inBlocks(
        glyphs,
        [origin](const PlacedGlyph& glyph) {
            return cairo_glyph_t{glyph.index, origin.x + double{glyph.x},
                                 origin.y + double{glyph.y}};
        },
        [context](const cairo_glyph_t* block, int count) {
            cairo_glyph_path(context, block, count);
        });
}

void GlyphFont::fillPath(cairo_t* context, Point origin,
                         std::span<const PlacedGlyph> glyphs) const {
    cairo_set_antialias(context, CAIRO_ANTIALIAS_BEST);
    // One by one: glyphs that touch do not cut each other out.
    for (const PlacedGlyph& glyph : glyphs) {
        cairo_new_path(context);
        addPath(context, origin, {&glyph, 1});
        cairo_fill(context);
    }
}

/// Cairo draws such glyphs opaque whatever the source.
void GlyphFont::showColored(cairo_t* context, Point origin,
                            std::span<const PlacedGlyph> glyphs) const {
    double alpha = 1;
    cairo_pattern_get_rgba(cairo_get_source(context), nullptr, nullptr, nullptr, &alpha);
    if (alpha == 1) {
        showOnPixels(context, origin, glyphs);
        return;
    }
    cairo_push_group(context);
    showOnPixels(context, origin, glyphs);
    cairo_pop_group_to_source(context);
    cairo_paint_with_alpha(context, alpha);
}

void GlyphFont::showOnPixels(cairo_t* context, Point origin,
                             std::span<const PlacedGlyph> glyphs) const {
    cairo_matrix_t toPixels;
    cairo_get_matrix(context, &toPixels);
    cairo_matrix_t pixelFont;
    cairo_scaled_font_get_font_matrix(scaled_, &pixelFont);
    cairo_matrix_t linear = toPixels;
    linear.x0 = linear.y0 = 0;
    cairo_matrix_multiply(&pixelFont, &pixelFont, &linear);
    cairo_identity_matrix(context);
    cairo_set_font_face(context, colored_ ? cairo_scaled_font_get_font_face(scaled_) : phased_);
    cairo_set_font_matrix(context, &pixelFont);
    cairo_set_font_options(context, textFontOptions());

    double baselineX = origin.x;
    double baselineY = origin.y;
    cairo_matrix_transform_point(&toPixels, &baselineX, &baselineY);
    const double shift = std::round(baselineY) - baselineY;
    const double phases = colored_ ? 1 : double{glyphPhases};
    inBlocks(
        glyphs,
        [&](const PlacedGlyph& glyph) {
            double x = origin.x + double{glyph.x};
            double y = origin.y + double{glyph.y};
            cairo_matrix_transform_point(&toPixels, &x, &y);
            const double steps = std::round(x * phases);
            const double pixel = std::floor(steps / phases);
            const auto phase = static_cast<unsigned long>(steps - pixel * phases);
            const auto index = static_cast<unsigned long>(glyph.index);
            return cairo_glyph_t{colored_ ? index : index * glyphPhases + phase, pixel,
                                 std::round(y + shift)};
        },
        [context](const cairo_glyph_t* block, int count) {
            cairo_show_glyphs(context, block, count);
        });
}

}  // namespace zn
