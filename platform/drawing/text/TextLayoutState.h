#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <vector>

#include "platform/drawing/fonts/GlyphFont.h"
#include "platform/drawing/text/TextShaping.h"
#include "zarnic/platform/drawing/TextLayout.h"

namespace zn {

/// A cursor step in the layout's coordinates and the original text's positions.
struct CaretStep {
    std::size_t start;
    std::size_t end;
    double x;
    double width;
    bool rightToLeft;
};

/// What Pango found out, in a form that needs neither Pango nor its lock: glyphs in visual order.
struct TextLayout::State {
    struct Run {
        std::shared_ptr<const GlyphFont> font;
        std::uint32_t firstGlyph;
        std::uint32_t glyphCount;
    };

    State(std::string_view content, const TextStyle& layoutStyle, Size layoutBox)
        : text(content), style(layoutStyle), box(layoutBox) {}

    std::size_t byteCount() const;
    enum class Drawing { Glyphs, Path };
    /// Draws the lines inside the clip with the context's source, or extends its path by them
    /// (glyphs in colour are drawn then too).
    void draw(cairo_t* context, Point origin, Drawing drawing) const;
    /// The steps of each line in the order of the text, found on first use.
    const std::vector<std::vector<CaretStep>>& caretSteps() const;
    /// Those that were found while the lines were made, from each line's left end.
    void setCaretSteps(std::vector<std::vector<CaretStep>> steps);

    std::span<const Run> runsOf(std::size_t line) const {
        return std::span(runs).subspan(lineRuns[line], lineRuns[line + 1] - lineRuns[line]);
    }
    std::span<const PlacedGlyph> glyphsOf(const Run& run) const {
        return std::span(glyphs).subspan(run.firstGlyph, run.glyphCount);
    }
    /// Whether a line is drawn like one of another layout, and at the same place.
    bool looksSame(std::size_t line, const State& other, std::size_t otherLine) const;

    std::string text;
    TextStyle style;
    Size box;

    std::vector<Line> lines;
    std::vector<PlacedGlyph> glyphs;
    std::vector<Run> runs;
    /// The first run of each line, and the end of the last.
    std::vector<std::uint32_t> lineRuns{0};
    Size size;
    bool clips = false;

private:
    void drawLine(cairo_t* context, std::size_t index, Point origin, Drawing drawing) const;

    void placeCarets(std::vector<std::vector<CaretStep>> steps) const;

    mutable std::once_flag caretsOnce_;
    mutable std::vector<std::vector<CaretStep>> carets_;
};

}  // namespace zn
