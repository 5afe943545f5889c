#include "platform/drawing/text/LineBreaker.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/drawing/text/TextShaping.h"
#include "platform/drawing/text/TextSource.h"

namespace zn {
namespace {

/// A box may be lower than its lines by this part of a line before one is left out: heights are
/// often rounded, and what is lost lies below the letters.
constexpr double heightTolerance = 0.1;
/// Pango's work on one word grows with the square of its length.
constexpr std::size_t largestPortion = 2048;
constexpr std::size_t smallestPortion = 256;

double usableWidth(double width) {
    return width > 0 && width < LineBreaker::widestBox ? width : -1;
}

double usableHeight(double height) {
    return height > 0 ? height : HUGE_VAL;
}

double lineWidth(PangoLayoutLine* line) {
    double width = 0;
    for (GSList* node = line->runs; node; node = node->next) {
        const auto* glyphs = static_cast<PangoGlyphItem*>(node->data)->glyphs;
        for (int i = 0; i < glyphs->num_glyphs; ++i)
            width += glyphs->glyphs[i].geometry.width;
    }
    return width / PANGO_SCALE;
}

/// Side by side in the paragraph's direction.
void placePieces(BrokenLine& line) {
    double used = 0;
    for (LinePiece& piece : line.pieces) {
        const bool forward = line.direction == ParagraphDirection::LeftToRight;
        piece.x = forward ? used : line.width - used - piece.width;
        used += piece.width;
    }
}

void addPiece(BrokenLine& line, LinePiece piece) {
    piece.width = lineWidth(piece.line);
    line.width += piece.width;
    line.pieces.push_back(std::move(piece));
}

}  // namespace

std::size_t LinePiece::position(std::size_t layoutPosition) const {
    if (layoutPosition <= cut)
        return textStart + layoutPosition;
    return layoutPosition < cut + ellipsis.size() ? resume
                                                  : resume + layoutPosition - cut - ellipsis.size();
}

LineBreaker::LineBreaker(std::string_view text, const TextStyle& style, Size box)
    : text_(text),
      style_(style),
      width_(usableWidth(box.width)),
      height_(usableHeight(box.height)),
      lineHeight_(style.font->lineHeight()),
      // Twice an em's advance for each byte stays within Pango's 32 bits.
      portion_(std::clamp<std::size_t>(static_cast<std::size_t>(1e6 / style.font->pointSize()), 32,
                                       largestPortion)),
      wrappedPortion_(portion_),
      engine_(FontEngine::shared()) {
    const auto linesOf = [&](double count) {
        const double expected = likelyLength(width_, style.font->pointSize()) * count;
        return std::max(smallestPortion, static_cast<std::size_t>(expected));
    };
    if (style.numberOfLines > 0 && wraps()) {
        const auto count = double(std::min<std::size_t>(style.numberOfLines, 100) + 1);
        portion_ = std::min(portion_, linesOf(count));
    }
    wrappedPortion_ = linesStandAlone(text) ? std::min(portion_, linesOf(2)) : portion_;
}

void LineBreaker::run(const LineTaker& taker) {
    taker_ = &taker;
    std::size_t start = 0;
    bool more = true;
    bool continues = false;
    while (more) {
        const TextParagraph paragraph = paragraphAt(text_, start);
        if (!continues)
            direction_ = directionOf(text_.substr(start, paragraph.end - start));
        more = breakParagraph(paragraph) && paragraph.ended;
        continues = paragraph.continues;
        start = paragraph.next;
    }
}

void LineBreaker::resume(std::size_t start, const LineTaker& taker) {
    taker_ = &taker;
    TextParagraph paragraph = paragraphAt(text_, 0);
    direction_ = directionOf(text_.substr(0, paragraph.end));
    paragraph.start = start;
    breakParagraph(paragraph);
}

bool LineBreaker::breakParagraph(const TextParagraph& paragraph) {
    if (wraps())
        return breakWrapped(paragraph);
    const auto lock = engine_.lock();
    return take(unwrappedLine(paragraph.start, paragraph.end, HUGE_VAL), paragraph);
}

bool LineBreaker::breakWrapped(const TextParagraph& paragraph) {
    std::size_t start = paragraph.start;
    std::size_t portion = wrappedPortion_;
    do {
        const std::size_t end = portionEnd(start, portion, paragraph.end);
        const auto lock = engine_.lock();
        const auto layout = shaped(start, end, width_);
        const std::size_t portionStart = start;
        for (GSList* node = pango_layout_get_lines_readonly(layout.get()); node;
             node = node->next) {
            // The last line of a portion may have room for more, unless nothing makes it longer.
            const bool first = start == portionStart;
            if (!node->next && end < paragraph.end && !(first && portion >= largestPortion * 16))
                break;
            auto* line = static_cast<PangoLayoutLine*>(node->data);
            const std::size_t lineEnd =
                portionStart + static_cast<std::size_t>(line->start_index + line->length);
            BrokenLine broken{{}, start, lineEnd, direction_};
            addPiece(broken, {layout, line, portionStart});
            if (!take(std::move(broken), paragraph))
                return false;
            start = lineEnd;
        }
        if (start == portionStart)
            portion *= 2;
    } while (start < paragraph.end);
    return true;
}

bool LineBreaker::isLastLine() const {
    return (style_.numberOfLines > 0 && lineCount_ + 1 >= style_.numberOfLines) ||
           bottom_ + (2 - heightTolerance) * lineHeight_ > height_;
}

bool LineBreaker::take(BrokenLine line, const TextParagraph& paragraph) {
    const bool last = isLastLine();
    if (last && !isBlank(text_.substr(line.end)))
        line = lastLine(std::move(line), paragraph);
    bottom_ += (*taker_)(line);
    ++lineCount_;
    return !last;
}

BrokenLine LineBreaker::lastLine(BrokenLine line, const TextParagraph& paragraph) const {
    switch (style_.lineBreak) {
        case NSLineBreakMode::WordWrapping:
        case NSLineBreakMode::CharWrapping:
            return line;
        case NSLineBreakMode::Clipping:
            line = unwrappedLine(line.start, paragraph.end, wraps() ? width_ : HUGE_VAL);
            line.clipped = wraps() && line.width > width_;
            return line;
        default:
            return wraps() ? truncatedLine(line, paragraph) : withEllipsis(std::move(line));
    }
}

BrokenLine LineBreaker::unwrappedLine(std::size_t start, std::size_t end, double enough) const {
    BrokenLine line{{}, start, end, direction_};
    std::size_t position = start;
    do {
        const std::size_t pieceEnd = portionEnd(position, portion_, end);
        const auto layout = shaped(position, pieceEnd, -1);
        addPiece(line, {layout, pango_layout_get_line_readonly(layout.get(), 0), position});
        position = pieceEnd;
    } while (position < end && line.width <= enough);
    placePieces(line);
    return line;
}

BrokenLine LineBreaker::withEllipsis(BrokenLine line) const {
    const auto layout = shapedText(engine_, ellipsis, style_, direction_, -1);
    LinePiece piece{layout, pango_layout_get_line_readonly(layout.get(), 0), line.end};
    piece.cut = 0;
    piece.resume = line.end;
    addPiece(line, std::move(piece));
    placePieces(line);
    return line;
}

BrokenLine LineBreaker::truncatedLine(const BrokenLine& line,
                                      const TextParagraph& paragraph) const {
    const TruncatedText truncated =
        truncate({engine_, text_, style_, direction_, width_}, line.start, paragraph);
    BrokenLine result{{}, line.start, truncated.end, direction_};
    LinePiece piece{truncated.layout, pango_layout_get_line_readonly(truncated.layout.get(), 0),
                    line.start};
    piece.cut = truncated.cut;
    piece.resume = truncated.resume;
    addPiece(result, std::move(piece));
    return result;
}

std::shared_ptr<PangoLayout> LineBreaker::shaped(std::size_t start, std::size_t end,
                                                 double width) const {
    return shapedText(engine_, text_.substr(start, end - start), style_, direction_, width);
}

/// Prefers to end after a blank, so that no word is shaped in two halves.
std::size_t LineBreaker::portionEnd(std::size_t start, std::size_t length, std::size_t end) const {
    if (end - start <= length)
        return end;
    const std::size_t blank = text_.rfind(' ', start + length - 1);
    if (blank != std::string_view::npos && blank >= start + length / 2)
        return blank + 1;
    return std::max(characterStart(text_, start + length), start + 1);
}

}  // namespace zn
