#include <algorithm>

#include "platform/drawing/text/LineCollector.h"
#include "platform/drawing/text/TextLayoutState.h"

namespace zn {
namespace {

using Steps = std::vector<std::vector<CaretStep>>;

/// One paragraph, all of whose lines count and stand alone and whose bytes are shaped as they are.
bool isPlain(const TextLayout::State& state) {
    return state.style.numberOfLines == 0 && state.box.width > 0 && state.box.height <= 0 &&
           TextSource(state.text).text().data() == state.text.data() &&
           !paragraphAt(state.text, 0).ended && linesStandAlone(state.text);
}

/// The last line that surely comes out as before; those behind it are laid out again.
std::size_t keptLines(const TextLayout::State& before, const TextLayout::State& now) {
    if (!isPlain(before) || !isPlain(now) || directionOf(before.text) != directionOf(now.text))
        return 0;
    const auto end = std::ranges::mismatch(before.text, now.text).in1;
    const auto changed = static_cast<std::size_t>(end - before.text.begin());
    // The word that the change is in may now find room in the line above its own.
    const std::size_t blank = std::string_view(before.text).substr(0, changed).rfind(' ');
    const std::size_t word = blank == std::string_view::npos ? 0 : blank;
    const auto next = std::ranges::upper_bound(before.lines, word, {}, &TextLayout::Line::start);
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(next - before.lines.begin() - 2, 0));
}

Steps stepsOf(const TextLayout::State& before, std::size_t lineCount) {
    if (lineCount == 0)
        return {};
    const auto& all = before.caretSteps();
    Steps steps(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(lineCount));
    for (std::size_t i = 0; i < lineCount; ++i)
        for (CaretStep& step : steps[i])
            step.x -= before.lines[i].frame.minX();
    return steps;
}

}  // namespace

Ref<TextLayout> TextLayout::editedLayout(std::string_view text, const TextLayout& before) {
    const State& old = *before.state_;
    auto state = std::make_unique<State>(text, old.style, old.box);
    const std::size_t kept = keptLines(old, *state);
    const TextSource source(state->text);
    LineBreaker breaker(source.text(), state->style, state->box);
    LineCollector collector(*state, source);
    collector.keepLines(old, kept, directionOf(text));
    Steps steps = stepsOf(old, kept);
    const auto take = [&](const BrokenLine& line) {
        steps.push_back(caretStepsOf(line, source));
        return collector.add(line);
    };
    if (kept > 0)
        breaker.resume(old.lines[kept].start, take);
    else
        breaker.run(take);
    collector.finish();
    state->setCaretSteps(std::move(steps));
    return make<TextLayout>(std::move(state));
}

bool TextLayout::State::looksSame(std::size_t line, const State& other,
                                  std::size_t otherLine) const {
    const Line& mine = lines[line];
    const Line& its = other.lines[otherLine];
    const auto own = runsOf(line), others = other.runsOf(otherLine);
    return mine.frame == its.frame && mine.baseline == its.baseline &&
           std::ranges::equal(own, others, [&](const Run& left, const Run& right) {
               return left.font == right.font &&
                      std::ranges::equal(glyphsOf(left), other.glyphsOf(right));
           });
}

TextLayout::LineRange TextLayout::differingLines(const TextLayout& other) const {
    std::size_t end = lines().size(), otherEnd = other.lines().size();
    std::size_t first = 0;
    while (first < std::min(end, otherEnd) && state_->looksSame(first, *other.state_, first))
        ++first;
    while (std::min(end, otherEnd) > first &&
           state_->looksSame(end - 1, *other.state_, otherEnd - 1)) {
        --end;
        --otherEnd;
    }
    return {first, end};
}

}  // namespace zn
