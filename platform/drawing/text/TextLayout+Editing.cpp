#include <algorithm>
#include <cmath>

#include "platform/drawing/text/LineCollector.h"
#include "platform/drawing/text/TextLayoutState.h"

namespace zn {
namespace {

constexpr double caretWidth = 2;

using Line = TextLayout::Line;
using Steps = std::vector<CaretStep>;

double leadingEdge(const CaretStep& step) {
    return step.rightToLeft ? step.x + step.width : step.x;
}

double trailingEdge(const CaretStep& step) {
    return step.rightToLeft ? step.x : step.x + step.width;
}

double distance(const CaretStep& step, double x) {
    return std::max({0.0, step.x - x, x - step.x - step.width});
}

/// The last line that begins at or before the position.
std::size_t lineOf(const std::vector<Line>& lines, std::size_t position) {
    const auto next = std::ranges::upper_bound(lines, position, {}, &Line::start);
    return next == lines.begin() ? 0 : static_cast<std::size_t>(next - lines.begin()) - 1;
}

double caretX(const Line& line, const Steps& steps, std::size_t position) {
    const auto step = std::ranges::find_if(
        steps, [position](const CaretStep& candidate) { return candidate.end > position; });
    if (step != steps.end())
        return leadingEdge(*step);
    return steps.empty() ? line.frame.minX() : trailingEdge(steps.back());
}

}  // namespace

Steps caretStepsOf(const BrokenLine& line, const TextSource& source) {
    Steps steps;
    for (const LinePiece& piece : line.pieces)
        for (const CursorStep& step : cursorSteps(piece.layout.get(), piece.line)) {
            const std::size_t start = source.originalPosition(piece.position(step.start));
            const std::size_t end = source.originalPosition(piece.position(step.end));
            steps.push_back({start, end, piece.x + step.x, step.width, step.rightToLeft});
        }
    return steps;
}

void TextLayout::State::setCaretSteps(std::vector<Steps> steps) {
    std::call_once(caretsOnce_, [&] { placeCarets(std::move(steps)); });
}

void TextLayout::State::placeCarets(std::vector<Steps> steps) const {
    steps.resize(lines.size());
    for (std::size_t i = 0; i < steps.size(); ++i)
        for (CaretStep& step : steps[i])
            step.x += lines[i].frame.minX();
    carets_ = std::move(steps);
}

const std::vector<std::vector<CaretStep>>& TextLayout::State::caretSteps() const {
    std::call_once(caretsOnce_, [this] {
        const TextSource source(text);
        std::vector<Steps> found;
        // Fonts that came since may break other lines; those that are shown count.
        LineBreaker(source.text(), style, box).run([&](const BrokenLine& line) {
            const std::size_t index = found.size();
            const Rect frame = index < lines.size() ? lines[index].frame : Rect();
            found.push_back(caretStepsOf(line, source));
            return frame.height();
        });
        placeCarets(std::move(found));
    });
    return carets_;
}

std::size_t TextLayout::positionAt(Point point) const {
    const auto& lines = state_->lines;
    const auto below = std::ranges::upper_bound(lines, point.y, {},
                                                [](const Line& line) { return line.frame.maxY(); });
    const auto& line = below == lines.end() ? lines.back() : *below;
    const auto& steps = state_->caretSteps()[static_cast<std::size_t>(&line - lines.data())];
    const auto nearest = std::ranges::min_element(
        steps, {}, [x = point.x](const CaretStep& step) { return distance(step, x); });
    if (nearest == steps.end())
        return line.start;
    const bool leftHalf = point.x < nearest->x + nearest->width / 2;
    return leftHalf != nearest->rightToLeft ? nearest->start : nearest->end;
}

Rect TextLayout::caretAt(std::size_t position) const {
    const std::size_t index = lineOf(state_->lines, position);
    const Line& line = state_->lines[index];
    return {caretX(line, state_->caretSteps()[index], position), line.frame.minY(), caretWidth,
            line.frame.height()};
}

std::vector<Rect> TextLayout::boxesBetween(std::size_t from, std::size_t to) const {
    std::vector<Rect> boxes;
    if (from > to)
        std::swap(from, to);
    for (std::size_t i = lineOf(state_->lines, from); i < state_->lines.size(); ++i) {
        const Line& line = state_->lines[i];
        if (line.start >= to)
            break;
        auto steps = state_->caretSteps()[i];
        std::erase_if(steps,
                      [&](const auto& step) { return step.end <= from || step.start >= to; });
        std::ranges::sort(steps, {}, &CaretStep::x);
        const double sameBox = 1.0 / 64;
        const std::size_t firstOfLine = boxes.size();
        for (const CaretStep& step : steps) {
            if (boxes.size() > firstOfLine && step.x - boxes.back().maxX() <= sameBox)
                boxes.back().size.width = step.x + step.width - boxes.back().minX();
            else
                boxes.emplace_back(step.x, line.frame.minY(), step.width, line.frame.height());
        }
    }
    return boxes;
}

}  // namespace zn
