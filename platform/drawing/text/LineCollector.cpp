#include "platform/drawing/text/LineCollector.h"

#include <algorithm>

namespace zn {
namespace {

double points(int units) {
    return double(units) / PANGO_SCALE;
}

/// Scripts drawn within the em square, which every line has room for.
bool staysInEmSquare(int script) {
    return script == G_UNICODE_SCRIPT_HAN || script == G_UNICODE_SCRIPT_HIRAGANA ||
           script == G_UNICODE_SCRIPT_KATAKANA || script == G_UNICODE_SCRIPT_HANGUL ||
           script == G_UNICODE_SCRIPT_BOPOMOFO;
}

constexpr std::string_view whiteRectangle = "\xE2\x96\xAF";

bool isMissing(const PangoGlyphInfo& info) {
    return info.glyph != PANGO_GLYPH_EMPTY && (info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0;
}

bool hasMissingGlyphs(const PangoGlyphItem& item) {
    return std::any_of(item.glyphs->glyphs, item.glyphs->glyphs + item.glyphs->num_glyphs,
                       isMissing);
}

}  // namespace

LineCollector::LineCollector(TextLayout::State& state, const TextSource& source)
    : state_(state),
      source_(source),
      engine_(FontEngine::shared()),
      usual_{state.style.font->ascender(), -state.style.font->descender()} {}

void LineCollector::keepLines(const TextLayout::State& from, std::size_t count,
                              ParagraphDirection direction) {
    const auto lineCount = static_cast<std::ptrdiff_t>(count);
    const auto runCount = static_cast<std::ptrdiff_t>(from.lineRuns[count]);
    state_.lines.assign(from.lines.begin(), from.lines.begin() + lineCount);
    state_.lineRuns.assign(from.lineRuns.begin(), from.lineRuns.begin() + lineCount + 1);
    state_.runs.assign(from.runs.begin(), from.runs.begin() + runCount);
    if (!state_.runs.empty()) {
        const auto& last = state_.runs.back();
        state_.glyphs.assign(from.glyphs.begin(),
                             from.glyphs.begin() + last.firstGlyph + last.glyphCount);
    }
    directions_.assign(count, direction);
    bottom_ = count > 0 ? state_.lines.back().frame.maxY() : 0;
}

double LineCollector::add(const BrokenLine& line) {
    Extent extent = usual_;
    for (const LinePiece& piece : line.pieces)
        addPiece(piece, extent);
    state_.lineRuns.push_back(static_cast<std::uint32_t>(state_.runs.size()));
    directions_.push_back(line.direction);
    state_.clips |= line.clipped;

    const std::size_t start = source_.originalPosition(line.start);
    const double width = line.clipped ? state_.box.width : line.width;
    const double height = extent.ascent + extent.descent;
    state_.lines.push_back({start, source_.originalPosition(line.end) - start,
                            Rect(0, bottom_, width, height), bottom_ + extent.ascent});
    bottom_ += height;
    return height;
}

void LineCollector::addPiece(const LinePiece& piece, Extent& extent) {
    double x = piece.x;
    for (GSList* node = piece.line->runs; node; node = node->next) {
        const auto& item = *static_cast<PangoGlyphItem*>(node->data);
        if (hasMissingGlyphs(item))
            addMissing(item, x);
        auto font = engine_.glyphFont(item.item->analysis.font);
        grow(extent, item, *font);
        const std::size_t first = state_.glyphs.size();
        x = addGlyphs(item, x);
        addRun(std::move(font), first);
    }
}

void LineCollector::addRun(std::shared_ptr<const GlyphFont> font, std::size_t firstGlyph) {
    if (const std::size_t count = state_.glyphs.size() - firstGlyph)
        state_.runs.push_back({std::move(font), static_cast<std::uint32_t>(firstGlyph),
                               static_cast<std::uint32_t>(count)});
}

double LineCollector::addGlyphs(const PangoGlyphItem& item, double x) {
    for (int i = 0; i < item.glyphs->num_glyphs; ++i) {
        const PangoGlyphInfo& info = item.glyphs->glyphs[i];
        if (info.glyph != PANGO_GLYPH_EMPTY && !isMissing(info))
            state_.glyphs.push_back({info.glyph,
                                     static_cast<float>(x + points(info.geometry.x_offset)),
                                     static_cast<float>(points(info.geometry.y_offset))});
        x += points(info.geometry.width);
    }
    return x;
}

void LineCollector::addMissing(const PangoGlyphItem& item, double x) {
    const auto layout =
        shapedText(engine_, whiteRectangle, state_.style, ParagraphDirection::LeftToRight, -1);
    const auto* line = pango_layout_get_line_readonly(layout.get(), 0);
    const auto& box = *static_cast<PangoGlyphItem*>(line->runs->data);
    if (hasMissingGlyphs(box))
        return;
    const std::size_t first = state_.glyphs.size();
    for (int i = 0; i < item.glyphs->num_glyphs; ++i) {
        const PangoGlyphInfo& info = item.glyphs->glyphs[i];
        const int spare = info.geometry.width - box.glyphs->glyphs[0].geometry.width;
        if (isMissing(info))
            state_.glyphs.push_back(
                {box.glyphs->glyphs[0].glyph, static_cast<float>(x + points(spare) / 2), 0});
        x += points(info.geometry.width);
    }
    addRun(engine_.glyphFont(box.item->analysis.font), first);
}

void LineCollector::grow(Extent& extent, const PangoGlyphItem& item, const GlyphFont& font) const {
    if (font.colored() || font.family() == state_.style.font->familyName() ||
        staysInEmSquare(item.item->analysis.script))
        return;
    // Less than can be seen is no reason to make a line jump.
    const double tolerance = state_.style.font->pointSize() / 32;
    PangoRectangle ink;
    pango_glyph_string_extents(item.glyphs, item.item->analysis.font, &ink, nullptr);
    const double ascent = points(-ink.y);
    const double descent = points(ink.y + ink.height);
    if (ascent > usual_.ascent + tolerance)
        extent.ascent = std::max(extent.ascent, ascent);
    if (descent > usual_.descent + tolerance)
        extent.descent = std::max(extent.descent, descent);
}

double LineCollector::alignedX(std::size_t index, double width) const {
    const double spare = width - state_.lines[index].frame.width();
    const bool rightToLeft = directions_[index] == ParagraphDirection::RightToLeft;
    switch (state_.style.alignment) {
        case NSTextAlignment::Left:
            return 0;
        case NSTextAlignment::Center:
            return std::max(0.0, spare / 2);
        case NSTextAlignment::Right:
            return std::max(0.0, spare);
        default:
            return rightToLeft ? std::max(0.0, spare) : 0;
    }
}

void LineCollector::finish() {
    double widest = 0;
    for (const auto& line : state_.lines)
        widest = std::max(widest, line.frame.width());
    state_.size = {widest, bottom_};
    const double width = state_.box.width > 0 ? state_.box.width : widest;
    for (std::size_t i = 0; i < state_.lines.size(); ++i)
        state_.lines[i].frame.origin.x = alignedX(i, width);
    state_.glyphs.shrink_to_fit();
    state_.runs.shrink_to_fit();
    state_.lines.shrink_to_fit();
}

}  // namespace zn
