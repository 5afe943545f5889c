#pragma once

#include <pango/pangocairo.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "zarnic/platform/drawing/Geometry.h"

namespace zn {

/// A glyph of a line: points from the line's left end and from its baseline, y downward.
struct PlacedGlyph {
    std::uint32_t index;
    float x;
    float y;
    friend bool operator==(const PlacedGlyph&, const PlacedGlyph&) = default;
};

/// Grey anti-aliasing, no hinting: outlines keep their shape and advances at every scale.
const cairo_font_options_t* textFontOptions();

/// A font as Pango chose it for a run, ready to draw at any scale. Immutable; safe from any thread.
class GlyphFont {
public:
    explicit GlyphFont(PangoFont* font);
    ~GlyphFont();
    GlyphFont(const GlyphFont&) = delete;
    GlyphFont& operator=(const GlyphFont&) = delete;

    const std::string& family() const { return family_; }
    /// Has pictures of its own instead of outlines in the text's colour.
    bool colored() const { return colored_; }

    /// Draws with the context's source. The baseline is rounded to a row of pixels, glyphs are
    /// placed to a quarter of a pixel along it.
    void show(cairo_t* context, Point origin, std::span<const PlacedGlyph> glyphs) const;
    /// Extends the context's path by the outlines; glyphs in colour have none.
    void addPath(cairo_t* context, Point origin, std::span<const PlacedGlyph> glyphs) const;

private:
    void fillPath(cairo_t* context, Point origin, std::span<const PlacedGlyph> glyphs) const;
    void showColored(cairo_t* context, Point origin, std::span<const PlacedGlyph> glyphs) const;
    void showOnPixels(cairo_t* context, Point origin, std::span<const PlacedGlyph> glyphs) const;

    cairo_scaled_font_t* scaled_;
    /// Draws glyphs at four places within a pixel; see `makePhasedFace`.
    cairo_font_face_t* phased_ = nullptr;
    std::string family_;
    bool colored_;
};

}  // namespace zn
