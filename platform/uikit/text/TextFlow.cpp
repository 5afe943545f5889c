#include "platform/uikit/text/TextFlow.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/drawing/text/TextSource.h"

namespace zn {
namespace {

/// Letters may stick out of their line by so many lines.
constexpr double overhang = 0.5;
/// Typing changes so many bytes at most.
constexpr std::size_t mostTyped = 64;

/// What looks different in a paragraph from how it was at the same place.
TextFlow::Band changedBand(double y, const TextLayout& before, const TextLayout& now) {
    const auto [first, end] = now.differingLines(before);
    const auto& lines = now.lines();
    const double below = std::max(before.size().height, now.size().height);
    return {y + (first < lines.size() ? lines[first].frame.minY() : now.size().height),
            y + (end < lines.size() ? lines[end].frame.minY() : below)};
}

}  // namespace

double TextFlow::lineHeight() const {
    return style_.font->lineHeight();
}

void TextFlow::setStyle(const TextStyle& style, double width, std::string_view text) {
    style_ = style;
    width_ = width;
    setText(text);
}

void TextFlow::setText(std::string_view text) {
    paragraphs_ = laidOut(text, 0, text.size(), End::OfText);
    measure(0);
}

std::vector<TextFlow::Paragraph> TextFlow::laidOut(std::string_view text, std::size_t from,
                                                   std::size_t to, End end,
                                                   const TextLayout* before) const {
    std::vector<Paragraph> found;
    for (bool more = true; more;) {
        const TextParagraph each = paragraphAt(text, from);
        const std::string_view part = text.substr(each.start, each.end - each.start);
        const TextLayout* edited = std::exchange(before, nullptr);
        found.push_back({each.start, part.size(), each.next, 0,
                         edited ? TextLayout::editedLayout(part, *edited)
                                : TextLayout::layout(part, style_, {width_, 0})});
        from = each.next;
        // A line end at the text's end has an empty line behind it.
        more = each.ended && (from < to || end == End::OfText);
    }
    return found;
}

void TextFlow::measure(std::size_t first) {
    double y = first == 0 ? 0 : paragraphs_[first - 1].bottom();
    for (std::size_t i = first; i < paragraphs_.size(); ++i) {
        paragraphs_[i].y = y;
        y = paragraphs_[i].bottom();
    }
    size_ = {width_, y};
    if (width_ > 0)
        return;
    for (const Paragraph& each : paragraphs_)
        size_.width = std::max(size_.width, each.layout->size().width);
}

TextFlow::Band TextFlow::replace(NSRange removed, std::size_t inserted, std::string_view text) {
    std::size_t first = indexOf(removed.location);
    std::size_t last = indexOf(removed.end());
    // What comes in may join the line end before it: CR LF is one.
    if (first > 0 && removed.location == paragraphs_[first].start)
        --first;
    // A line end that is cut into ends its line no more.
    const Paragraph& ending = paragraphs_[last];
    if (last + 1 < paragraphs_.size() && removed.end() > ending.start + ending.length)
        ++last;
    Band changed{paragraphs_[first].y, paragraphs_[last].bottom()};
    const double height = size_.height;
    const auto shift = [&](std::size_t position) { return position - removed.length + inserted; };
    // More text than is typed at once would keep the carets of paragraphs that nobody asks for.
    const bool typed = first == last && removed.length + inserted <= mostTyped;
    const std::vector<Paragraph> fresh =
        laidOut(text, paragraphs_[first].start, shift(paragraphs_[last].next),
                last + 1 == paragraphs_.size() ? End::OfText : End::OfPart,
                typed ? paragraphs_[first].layout.get() : nullptr);
    if (first == last && fresh.size() == 1)
        changed = changedBand(changed.top, *paragraphs_[first].layout, *fresh.front().layout);
    const auto begin = paragraphs_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = paragraphs_.begin() + static_cast<std::ptrdiff_t>(last) + 1;
    for (auto each = end; each != paragraphs_.end(); ++each) {
        each->start = shift(each->start);
        each->next = shift(each->next);
    }
    const auto common = std::min(end - begin, static_cast<std::ptrdiff_t>(fresh.size()));
    std::copy_n(fresh.begin(), common, begin);
    const auto rest = paragraphs_.erase(begin + common, end);
    paragraphs_.insert(rest, fresh.begin() + common, fresh.end());
    measure(first);
    if (size_.height != height)
        changed.bottom = std::max(height, size_.height);
    return changed;
}

std::size_t TextFlow::indexOf(std::size_t position) const {
    const auto next = std::ranges::upper_bound(paragraphs_, position, {}, &Paragraph::start);
    return next == paragraphs_.begin() ? 0
                                       : static_cast<std::size_t>(next - paragraphs_.begin()) - 1;
}

std::size_t TextFlow::indexAt(double y) const {
    const auto below = std::ranges::upper_bound(paragraphs_, y, {}, &Paragraph::bottom);
    return std::min(static_cast<std::size_t>(below - paragraphs_.begin()), paragraphs_.size() - 1);
}

std::size_t TextFlow::lineOf(const Paragraph& paragraph, TextPlace place) const {
    const std::size_t position = place.position - paragraph.start;
    const auto& lines = paragraph.layout->lines();
    const auto next = std::ranges::upper_bound(lines, position, {}, &TextLayout::Line::start);
    std::size_t index =
        next == lines.begin() ? 0 : static_cast<std::size_t>(next - lines.begin()) - 1;
    if (place.atLineEnd && index > 0 && lines[index].start == position)
        --index;
    return index;
}

TextPlace TextFlow::placeAt(Point point) const {
    const Paragraph& paragraph = paragraphs_[indexAt(point.y)];
    const Point inside{point.x, point.y - paragraph.y};
    const std::size_t position = paragraph.layout->positionAt(inside);
    const TextPlace place{paragraph.start + position, true};
    const auto& line = paragraph.layout->lines()[lineOf(paragraph, place)];
    return {place.position, line.start != position && inside.y < line.frame.maxY()};
}

Rect TextFlow::caretAt(TextPlace place) const {
    const Paragraph& paragraph = paragraphs_[indexOf(place.position)];
    const std::size_t position = place.position - paragraph.start;
    Rect caret = paragraph.layout->caretAt(position);
    const auto& line = paragraph.layout->lines()[lineOf(paragraph, place)];
    if (line.frame.minY() < caret.minY()) {
        // The end of a wrapped line; where it is read from right to left, that is its left.
        const Rect next = paragraph.layout->caretAt(line.start);
        const bool leftward = next.minX() > line.frame.midX();
        caret = {leftward ? line.frame.minX() : line.frame.maxX(), line.frame.minY(), caret.width(),
                 line.frame.height()};
    }
    return caret.offsetBy(0, paragraph.y);
}

TextPlace TextFlow::lineStart(TextPlace place) const {
    const Paragraph& paragraph = paragraphs_[indexOf(place.position)];
    return {paragraph.start + paragraph.layout->lines()[lineOf(paragraph, place)].start, false};
}

TextPlace TextFlow::lineEnd(TextPlace place) const {
    const Paragraph& paragraph = paragraphs_[indexOf(place.position)];
    const auto& line = paragraph.layout->lines()[lineOf(paragraph, place)];
    return {paragraph.start + line.start + line.length, true};
}

std::vector<Rect> TextFlow::boxesBetween(NSRange range, Band band) const {
    std::vector<Rect> boxes;
    if (range.length == 0)
        return boxes;
    const std::size_t last = indexOf(range.end());
    for (std::size_t i = indexOf(range.location); i <= last; ++i)
        if (paragraphs_[i].bottom() >= band.top && paragraphs_[i].y <= band.bottom)
            addBoxes(paragraphs_[i], range, band, boxes);
    return boxes;
}

void TextFlow::addBoxes(const Paragraph& paragraph, NSRange range, Band band,
                        std::vector<Rect>& boxes) const {
    const std::size_t from = std::max(range.location, paragraph.start) - paragraph.start;
    const std::size_t to =
        std::min(range.end(), paragraph.start + paragraph.length) - paragraph.start;
    for (const Rect& box : paragraph.layout->boxesBetween(from, to))
        if (paragraph.y + box.maxY() >= band.top && paragraph.y + box.minY() <= band.bottom)
            boxes.push_back(box.offsetBy(0, paragraph.y));
    for (const auto& line : paragraph.layout->lines()) {
        const bool last = &line == &paragraph.layout->lines().back();
        const std::size_t end = paragraph.start + line.start + line.length;
        const bool goesOn = range.end() > end && (!last || paragraph.next > end);
        const bool reached = last ? range.location <= end : range.location < end;
        const double y = paragraph.y + line.frame.minY();
        if (goesOn && reached && width_ > line.frame.maxX() &&
            y + line.frame.height() >= band.top && y <= band.bottom)
            boxes.emplace_back(line.frame.maxX(), y, width_ - line.frame.maxX(),
                               line.frame.height());
    }
}

bool TextFlow::runsRightToLeft(TextPlace place) const {
    const Rect start = caretAt(lineStart(place));
    return start.minX() > caretAt(lineEnd(place)).minX();
}

void TextFlow::draw(const Ref<CGContext>& context, Band band, const CGColor& color) const {
    const double margin = overhang * lineHeight();
    for (std::size_t i = indexAt(band.top - margin);
         i < paragraphs_.size() && paragraphs_[i].y < band.bottom + margin; ++i)
        paragraphs_[i].layout->draw(context, {0, paragraphs_[i].y}, color);
}

}  // namespace zn
