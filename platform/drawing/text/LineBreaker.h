#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/drawing/fonts/FontEngine.h"
#include "platform/drawing/text/TextSource.h"
#include "zarnic/platform/drawing/TextLayout.h"

namespace zn {

/// A part of a line that Pango shaped at once.
struct LinePiece {
    std::shared_ptr<PangoLayout> layout;
    PangoLayoutLine* line;
    /// Where the layout's text begins in the whole text.
    std::size_t textStart;
    /// Where text was cut out, in the layout's text, which has "…" there; npos for no cut.
    std::size_t cut = std::string_view::npos;
    /// Where the whole text goes on after the cut.
    std::size_t resume = 0;
    /// From the line's left end; points.
    double x = 0;
    double width = 0;

    /// The position in the whole text of one in the layout's.
    std::size_t position(std::size_t layoutPosition) const;
};

struct BrokenLine {
    std::vector<LinePiece> pieces;
    /// In the whole text, without the line end.
    std::size_t start;
    std::size_t end;
    ParagraphDirection direction;
    double width = 0;
    /// Runs on beyond the box, which cuts it.
    bool clipped = false;
};

/// Breaks a text into lines, in portions, so that long texts take time in proportion to their
/// length and only as much of them is shaped as the box and the number of lines let in.
class LineBreaker {
public:
    /// `text` as a `TextSource` gives it.
    LineBreaker(std::string_view text, const TextStyle& style, Size box);

    /// Called for each line with the engine's lock held; returns the line's height.
    using LineTaker = std::function<double(const BrokenLine&)>;
    void run(const LineTaker& take);
    /// For a text of one paragraph, whose lines stand alone: begins with the line that starts
    /// there.
    void resume(std::size_t start, const LineTaker& take);

    /// Beyond this a width counts as any: Pango counts 1024ths of points in 32 bits.
    static constexpr double widestBox = 100'000;

    bool wraps() const { return width_ >= 0; }

private:
    bool breakParagraph(const TextParagraph& paragraph);
    bool breakWrapped(const TextParagraph& paragraph);
    /// Takes the line, or what stands in the last line's place; false when the text ends there.
    bool take(BrokenLine line, const TextParagraph& paragraph);
    BrokenLine lastLine(BrokenLine line, const TextParagraph& paragraph) const;
    bool isLastLine() const;

    BrokenLine unwrappedLine(std::size_t start, std::size_t end, double enough) const;
    BrokenLine truncatedLine(const BrokenLine& line, const TextParagraph& paragraph) const;
    BrokenLine withEllipsis(BrokenLine line) const;
    std::shared_ptr<PangoLayout> shaped(std::size_t start, std::size_t end, double width) const;
    std::size_t portionEnd(std::size_t start, std::size_t length, std::size_t end) const;

    std::string_view text_;
    const TextStyle& style_;
    /// Negative for any.
    double width_;
    double height_;
    double lineHeight_;
    std::size_t portion_;
    /// The same of text that is wrapped: Pango shapes all that is left again for each line.
    std::size_t wrappedPortion_;
    FontEngine& engine_;
    const LineTaker* taker_ = nullptr;
    ParagraphDirection direction_ = ParagraphDirection::LeftToRight;
    std::size_t lineCount_ = 0;
    double bottom_ = 0;
};

}  // namespace zn
