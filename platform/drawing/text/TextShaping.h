#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/drawing/fonts/FontEngine.h"
#include "platform/drawing/text/TextSource.h"
#include "zarnic/platform/drawing/TextLayout.h"

namespace zn {

/// The direction of the first letter that has one; from left to right without.
ParagraphDirection directionOf(std::string_view paragraph);

/// Whether text may be shaped line by line: all its letters are of one script, in which they
/// neither join nor run from right to left, so that no line depends on those above it.
bool linesStandAlone(std::string_view text);

// Everything below wants the engine's lock.

inline constexpr std::string_view ellipsis = "\xE2\x80\xA6";

/// Text without line ends as Pango lays it out, in lines of `width` points, or one for a negative
/// width.
std::shared_ptr<PangoLayout> shapedText(FontEngine& engine, std::string_view text,
                                        const TextStyle& style, ParagraphDirection direction,
                                        double width);

/// How many bytes of text surely fill a line, unless its characters have no width.
double likelyLength(double width, double pointSize);

/// What the cursor steps over at once: a character with its marks.
struct CursorStep {
    /// In the layout's text.
    std::size_t start;
    std::size_t end;
    /// The left end in the line; points.
    double x;
    double width;
    bool rightToLeft;
};
/// The steps of a line in the order of the text.
std::vector<CursorStep> cursorSteps(PangoLayout* layout, PangoLayoutLine* line);

struct TruncationRoom {
    FontEngine& engine;
    std::string_view text;
    const TextStyle& style;
    ParagraphDirection direction;
    double width;
};
struct TruncatedText {
    std::shared_ptr<PangoLayout> layout;
    /// See `LinePiece`.
    std::size_t cut;
    std::size_t resume;
    /// Where the line ends in the whole text.
    std::size_t end;
};
/// The text from `start` on (within `paragraph`) as one line of the given width, with "…" for what
/// the style's line break mode leaves out. The end that head and middle truncation keep is that of
/// the text's last paragraph.
TruncatedText truncate(const TruncationRoom& room, std::size_t start,
                       const TextParagraph& paragraph);

}  // namespace zn
