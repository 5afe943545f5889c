#pragma once

#include "platform/drawing/text/LineBreaker.h"
#include "platform/drawing/text/TextLayoutState.h"

namespace zn {

/// Puts broken lines into a layout: their glyphs, their frames, and at the end their alignment.
/// All lines are as high as the layout's font wants, so that mixed scripts do not make them jump;
/// one grows only for a fallback font's glyphs that would stick out of it.
class LineCollector {
public:
    LineCollector(TextLayout::State& state, const TextSource& source);

    /// Begins with lines of another layout.
    void keepLines(const TextLayout::State& from, std::size_t count, ParagraphDirection direction);
    /// Wants the engine's lock; returns the line's height.
    double add(const BrokenLine& line);
    void finish();

private:
    struct Extent {
        double ascent;
        double descent;
    };
    void addPiece(const LinePiece& piece, Extent& extent);
    double addGlyphs(const PangoGlyphItem& item, double x);
    void addRun(std::shared_ptr<const GlyphFont> font, std::size_t firstGlyph);
    /// Boxes for characters that no font has.
    void addMissing(const PangoGlyphItem& item, double x);
    void grow(Extent& extent, const PangoGlyphItem& item, const GlyphFont& font) const;
    double alignedX(std::size_t index, double width) const;

    TextLayout::State& state_;
    const TextSource& source_;
    FontEngine& engine_;
    Extent usual_;
    double bottom_ = 0;
    /// Of each line, for natural alignment.
    std::vector<ParagraphDirection> directions_;
};

/// What the cursor steps over in a line, from its left end. Wants the engine's lock.
std::vector<CaretStep> caretStepsOf(const BrokenLine& line, const TextSource& source);

}  // namespace zn
