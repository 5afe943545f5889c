#include "zarnic/platform/drawing/TextLayout.h"

#include <algorithm>
#include <cmath>

#include "platform/drawing/text/LineBreaker.h"
#include "platform/drawing/text/LineCollector.h"
#include "platform/drawing/text/TextLayoutCache.h"
#include "platform/drawing/text/TextLayoutState.h"

namespace zn {
namespace {

constexpr double defaultFontSize = 12;

/// One way to write each box, so that those that mean the same share a layout: 0 for any extent.
double normalizedExtent(double extent) {
    return extent > 0 && extent < LineBreaker::widestBox ? extent : 0;
}

TextStyle completed(TextStyle style) {
    if (!style.font)
        style.font = UIFont::systemFontOfSize(defaultFontSize);
    return style;
}

std::unique_ptr<TextLayout::State> madeState(const TextLayoutCache::Key& key) {
    auto state = std::make_unique<TextLayout::State>(key.text, key.style, key.box);
    const TextSource source(state->text);
    LineCollector collector(*state, source);
    LineBreaker(source.text(), state->style, state->box).run([&](const BrokenLine& line) {
        return collector.add(line);
    });
    collector.finish();
    return state;
}

Ref<TextLayout> sharedLayout(std::string_view text, const TextStyle& style, Size box) {
    auto& cache = TextLayoutCache::shared();
    const TextLayoutCache::Key key(text, style,
                                   {normalizedExtent(box.width), normalizedExtent(box.height)});
    if (auto found = cache.find(key))
        return found;
    auto state = madeState(key);
    const TextLayout::State& kept = *state;
    auto layout = make<TextLayout>(std::move(state));
    cache.insert(key, layout, kept);
    return layout;
}

/// A text of which only the first line counts, as far as its first line end.
std::string_view firstLine(std::string_view text) {
    const TextSource source(text);
    return text.substr(0, source.originalPosition(paragraphAt(source.text(), 0).end));
}

}  // namespace

std::size_t TextLayout::State::byteCount() const {
    return sizeof(TextLayout) + sizeof(State) + text.capacity() + lines.capacity() * sizeof(Line) +
           glyphs.capacity() * sizeof(PlacedGlyph) + runs.capacity() * sizeof(Run) +
           lineRuns.capacity() * sizeof(std::uint32_t);
}

TextLayout::TextLayout(std::unique_ptr<State> state) : state_(std::move(state)) {}

TextLayout::~TextLayout() = default;

Ref<TextLayout> TextLayout::layout(std::string_view text, const TextStyle& style, Size box) {
    return style.font ? sharedLayout(text, style, box) : sharedLayout(text, completed(style), box);
}

Size TextLayout::size() const {
    return state_->size;
}

const std::vector<TextLayout::Line>& TextLayout::lines() const {
    return state_->lines;
}

Rect boundingRectWithSize(std::string_view text, Size size, unsigned options,
                          const Ref<UIFont>& font) {
    if (!text.data())
        return {};
    const bool wraps = (options & NSStringDrawingOptions::UsesLineFragmentOrigin) != 0;
    const TextStyle style = completed({.font = font});
    const auto layout = wraps ? TextLayout::layout(text, style, size)
                              : TextLayout::layout(firstLine(text), style, {});
    Rect box({0, wraps ? 0 : -style.font->ascender()}, layout->size());
    if ((options & NSStringDrawingOptions::UsesFontLeading) != 0)
        box.size.height += style.font->leading() * double(layout->lines().size());
    return box;
}

Size sizeWithFont(std::string_view text, const Ref<UIFont>& font) {
    return boundingRectWithSize(text, {}, 0, font).size;
}

void drawText(std::string_view text, const Rect& rect, const TextStyle& style,
              const CGColor& color) {
    const Rect box = rect.standardized();
    if (const auto context = UIGraphicsGetCurrentContext())
        TextLayout::layout(text, style, box.size)->draw(context, box.origin, color);
}

}  // namespace zn
