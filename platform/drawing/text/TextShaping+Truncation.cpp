#include <algorithm>
#include <string>

#include "platform/drawing/text/TextShaping.h"

namespace zn {
namespace {

/// A stretch of the whole text and where it may be cut shorter, nearest to the "…" last.
struct Kept {
    std::size_t start;
    std::size_t end;
    std::vector<std::size_t> cuts;
    double width = 0;
};

enum class KeptEnd { Beginning, Ending };

class Truncation {
public:
    explicit Truncation(const TruncationRoom& room) : room_(room) {}

    TruncatedText run(std::size_t start, const TextParagraph& paragraph) const;

private:
    std::shared_ptr<PangoLayout> shaped(std::string_view text) const {
        return shapedText(room_.engine, text, room_.style, room_.direction, -1);
    }
    double width(std::string_view text) const;
    TextParagraph lastParagraph(TextParagraph paragraph) const;
    Kept fitting(KeptEnd kept, std::size_t start, std::size_t end, double room) const;
    Kept fittingIn(KeptEnd kept, std::size_t start, std::size_t end, double room) const;
    std::string composed(const Kept& beginning, const Kept& ending, std::size_t& cut) const;

    const TruncationRoom& room_;
};

double widthOf(PangoLayout* layout) {
    int width = 0;
    pango_layout_get_size(layout, &width, nullptr);
    return double(width) / PANGO_SCALE;
}

double Truncation::width(std::string_view text) const {
    return widthOf(shaped(text).get());
}

TextParagraph Truncation::lastParagraph(TextParagraph paragraph) const {
    TextParagraph last = paragraph;
    while (paragraph.ended) {
        paragraph = paragraphAt(room_.text, paragraph.next);
        if (!isBlank(room_.text.substr(paragraph.start, paragraph.end - paragraph.start)))
            last = paragraph;
    }
    return last;
}

/// As much of the stretch's beginning or ending as has room. Looks at no more of it than it needs.
Kept Truncation::fitting(KeptEnd kept, std::size_t start, std::size_t end, double room) const {
    auto length = static_cast<std::size_t>(likelyLength(room, room_.style.font->pointSize()));
    for (;; length *= 2) {
        if (length >= end - start)
            return fittingIn(kept, start, end, room);
        const bool beginning = kept == KeptEnd::Beginning;
        const std::size_t from = beginning ? start : characterStart(room_.text, end - length);
        const std::size_t to = beginning ? characterStart(room_.text, start + length) : end;
        Kept part = fittingIn(kept, from, to, room);
        if (part.end - part.start < to - from)
            return part;
    }
}

Kept Truncation::fittingIn(KeptEnd kept, std::size_t start, std::size_t end, double room) const {
    const auto layout = shaped(room_.text.substr(start, end - start));
    auto steps = cursorSteps(layout.get(), pango_layout_get_line_readonly(layout.get(), 0));
    const bool beginning = kept == KeptEnd::Beginning;
    Kept result{beginning ? start : end, beginning ? start : end, {}};
    if (!beginning)
        std::ranges::reverse(steps);
    for (const CursorStep& step : steps) {
        if (result.width + step.width > room)
            break;
        result.cuts.push_back(beginning ? result.end : result.start);
        result.width += step.width;
        (beginning ? result.end : result.start) = start + (beginning ? step.end : step.start);
    }
    return result;
}

std::string Truncation::composed(const Kept& beginning, const Kept& ending,
                                 std::size_t& cut) const {
    std::string text(room_.text.substr(beginning.start, beginning.end - beginning.start));
    text.erase(text.find_last_not_of(' ') + 1);
    cut = text.size();
    text += ellipsis;
    text += room_.text.substr(ending.start, ending.end - ending.start);
    return text;
}

void shorten(Kept& kept, std::size_t Kept::*edge) {
    kept.*edge = kept.cuts.back();
    kept.cuts.pop_back();
}

TruncatedText Truncation::run(std::size_t start, const TextParagraph& paragraph) const {
    const NSLineBreakMode mode = room_.style.lineBreak;
    const double room = std::max(0.0, room_.width - width(ellipsis));
    Kept beginning{start, start, {}};
    Kept ending{paragraph.end, paragraph.end, {}};
    if (mode != NSLineBreakMode::TruncatingTail) {
        const TextParagraph last = lastParagraph(paragraph);
        const double part = mode == NSLineBreakMode::TruncatingMiddle ? room / 2 : room;
        ending = fitting(KeptEnd::Ending, std::max(start, last.start), last.end, part);
    }
    if (mode != NSLineBreakMode::TruncatingHead)
        beginning = fitting(KeptEnd::Beginning, start, std::min(paragraph.end, ending.start),
                            room - ending.width);

    TruncatedText result{};
    for (;;) {
        result.layout = shaped(composed(beginning, ending, result.cut));
        // Half a unit of Pango's is rounding.
        if (widthOf(result.layout.get()) <= room_.width + 0.5 / PANGO_SCALE)
            break;
        if (!beginning.cuts.empty())
            shorten(beginning, &Kept::end);
        else if (!ending.cuts.empty())
            shorten(ending, &Kept::start);
        else
            break;
    }
    result.resume = ending.start;
    result.end = ending.end;
    return result;
}

}  // namespace

TruncatedText truncate(const TruncationRoom& room, std::size_t start,
                       const TextParagraph& paragraph) {
    return Truncation(room).run(start, paragraph);
}

}  // namespace zn
