#include "platform/uikit/text/TextInputState.h"

#include <algorithm>

#include "platform/foundation/text/TextBreaks.h"
#include "zarnic/platform/drawing/UIColor.h"

namespace zn {
namespace {

constexpr std::string_view dot = "\xE2\x80\xA2";
constexpr double defaultFontSize = 12;
constexpr double selectionAlpha = 0.25;
constexpr double underline = 1;

/// Each line end as a blank of as many bytes.
void joinLines(std::string& text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\n' || text[at] == '\r')
            text[at] = ' ';
        else if (text.compare(at, 2, "\xC2\x85") == 0)
            text.replace(at, 2, "\xC2\xA0");
        else if (text.compare(at, 3, "\xE2\x80\xA8") == 0 ||
                 text.compare(at, 3, "\xE2\x80\xA9") == 0)
            text.replace(at, 3, "\xE2\x80\x82");
    }
}

}  // namespace

UITextInput::State::State(UITextInput& owner, Lines inputLines) : input(owner), lines(inputLines) {
    style.font = UIFont::systemFontOfSize(defaultFontSize);
    style.numberOfLines = 0;
    flow.setStyle(style, 0, {});
    color = UIColor::blackColor()->cgColor();
    canvas =
        make<TextCanvas>([this](const auto& context, const Rect& area) { paint(context, area); });
    editor.changed = [this](const TextEditor::Change& change) { changed(change); };
}

std::string UITextInput::State::shownText() const {
    std::string shown;
    const std::string& text = editor.text();
    if (!secure)
        return fitting(text);
    for (std::size_t at = 0; at < text.size(); at = nextGrapheme(text, at))
        shown += dot;
    return shown;
}

std::string UITextInput::State::fitting(std::string_view text) const {
    std::string kept(text);
    if (lines == Lines::One)
        joinLines(kept);
    return kept;
}

std::size_t UITextInput::State::shownPosition(std::size_t position) const {
    if (!secure)
        return position;
    std::size_t shown = 0;
    for (std::size_t at = 0; at < position; at = nextGrapheme(editor.text(), at))
        shown += dot.size();
    return shown;
}

std::size_t UITextInput::State::realPosition(std::size_t shown) const {
    if (!secure)
        return shown;
    std::size_t at = 0;
    for (std::size_t passed = 0; passed < shown; passed += dot.size())
        at = nextGrapheme(editor.text(), at);
    return at;
}

NSRange UITextInput::State::shownRange(NSRange range) const {
    const std::size_t start = shownPosition(range.location);
    return {start, shownPosition(range.end()) - start};
}

void UITextInput::State::changed(const TextEditor::Change& change) {
    if (showsItself())
        canvas->invalidate(
            flow.replace({change.location, change.removed}, change.inserted, editor.text()));
    else
        layOut();
}

void UITextInput::State::layOut() {
    if (showsItself())
        flow.setStyle(style, width, editor.text());
    else
        flow.setStyle(style, width, shownText());
    canvas->invalidateAll();
}

void UITextInput::State::setStyle(const TextStyle& newStyle, double newWidth) {
    style = newStyle;
    if (!style.font)
        style.font = UIFont::systemFontOfSize(defaultFontSize);
    width = newWidth;
    layOut();
}

void UITextInput::State::setColor(const Ref<UIColor>& newColor) {
    color = (newColor ? newColor : UIColor::blackColor())->cgColor();
    canvas->invalidateAll();
}

UITextInput::State::Marks UITextInput::State::marks() const {
    Marks now;
    if (editing && editor.selection().length > 0)
        now.selected = editor.selection();
    now.composed = editor.markedRange().value_or(NSRange());
    return now;
}

void UITextInput::State::markChanged() {
    const Marks now = marks();
    if (now != drawn_)
        canvas->invalidateAll();
    drawn_ = now;
}

void UITextInput::State::paint(const Ref<CGContext>& context, const Rect& area) const {
    const TextFlow::Band band{area.minY(), area.maxY()};
    if (editing) {
        context->setFillColor(
            canvas->tintColor()->colorWithAlphaComponent(selectionAlpha)->cgColor());
        for (const Rect& box : flow.boxesBetween(shownRange(editor.selection()), band))
            context->fillRect(box);
    }
    flow.draw(context, band, color);
    if (const auto marked = editor.markedRange()) {
        context->setFillColor(color);
        for (const Rect& box : flow.boxesBetween(shownRange(*marked), band))
            context->fillRect({box.minX(), box.maxY() - underline, box.width(), underline});
    }
}

}  // namespace zn
