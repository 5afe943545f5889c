#include "zarnic/platform/uikit/UILabel.h"

#include <algorithm>

#include "platform/uikit/view/PixelRounding.h"

namespace zn {

namespace {

constexpr double DefaultFontSize = 17;
/// How much of its opacity the text of a disabled label keeps.
constexpr double DisabledAlpha = 0.4;
/// Fonts shrink in steps, so that close widths share one font.
constexpr double FontSizeStep = 0.5;

}  // namespace

UILabel::UILabel() : UILabel(Rect()) {}

UILabel::UILabel(const Rect& frame)
    : UIView(frame),
      font_(UIFont::systemFontOfSize(DefaultFontSize)),
      textColor_(UIColor::blackColor()),
      style_{nullptr, NSTextAlignment::Natural, NSLineBreakMode::TruncatingTail, 1} {}

UILabel::~UILabel() = default;

void UILabel::init() {
    UIView::init();
    setUserInteractionEnabled(false);
    setContentMode(UIViewContentMode::Redraw);
    setOpaque(false);
}

template <class T, class U>
void UILabel::change(T& member, const U& value) {
    if (member == value)
        return;
    member = value;
    setNeedsDisplay();
}

void UILabel::setText(std::string_view text) {
    change(text_, text);
}

void UILabel::setFont(const Ref<UIFont>& font) {
    change(font_, font ? font : UIFont::systemFontOfSize(DefaultFontSize));
}

void UILabel::setTextColor(const Ref<UIColor>& color) {
    change(textColor_, color ? color : UIColor::blackColor());
}

void UILabel::setHighlightedTextColor(const Ref<UIColor>& color) {
    change(highlightedTextColor_, color);
}

void UILabel::setHighlighted(bool highlighted) {
    change(highlighted_, highlighted);
}

void UILabel::setEnabled(bool enabled) {
    change(enabled_, enabled);
}

void UILabel::setTextAlignment(NSTextAlignment alignment) {
    change(style_.alignment, alignment);
}

void UILabel::setLineBreakMode(NSLineBreakMode mode) {
    change(style_.lineBreak, mode);
}

void UILabel::setNumberOfLines(std::size_t lines) {
    change(style_.numberOfLines, lines);
}

void UILabel::setAdjustsFontSizeToFitWidth(bool adjusts) {
    change(adjustsFontSize_, adjusts);
}

void UILabel::setMinimumScaleFactor(double factor) {
    change(minimumScale_, std::clamp(factor, 0.0, 1.0));
}

Size UILabel::sizeThatFits(Size size) const {
    if (text_.empty())
        return {};
    TextStyle style = style_;
    style.font = font_;
    const double limit = style.numberOfLines == 1 ? 0 : std::max(size.width, 0.0);
    const Size needed =
        ceilToPixels(TextLayout::layout(text_, style, {limit, 0})->size(), contentScaleFactor());
    return {limit > 0 ? std::min(needed.width, limit) : needed.width, needed.height};
}

TextStyle UILabel::fittingStyle(double width) const {
    TextStyle style = style_;
    style.font = font_;
    if (!adjustsFontSize_ || style.numberOfLines != 1)
        return style;
    const double natural = TextLayout::layout(text_, style, {})->size().width;
    if (natural <= width || width <= 0)
        return style;
    const double size = font_->pointSize() * std::max(minimumScale_, width / natural);
    style.font =
        font_->fontWithSize(std::max(std::floor(size / FontSizeStep) * FontSizeStep, FontSizeStep));
    return style;
}

Ref<TextLayout> UILabel::layoutFor(Size size) const {
    return TextLayout::layout(text_, fittingStyle(size.width), size);
}

Rect UILabel::textRectForBounds(const Rect& bounds, std::size_t numberOfLines) const {
    TextStyle style = fittingStyle(bounds.size.width);
    style.numberOfLines = numberOfLines;
    const Size size = TextLayout::layout(text_, style, bounds.size)->size();
    return {bounds.origin.x, bounds.midY() - size.height / 2, std::min(size.width, bounds.width()),
            size.height};
}

CGColor UILabel::drawnColor() const {
    CGColor color =
        (highlighted_ && highlightedTextColor_ ? highlightedTextColor_ : textColor_)->cgColor();
    if (!enabled_)
        color.alpha *= DisabledAlpha;
    return color;
}

void UILabel::drawTextInRect(const Rect& rect) {
    const auto context = UIGraphicsGetCurrentContext();
    if (!context || rect.isEmpty())
        return;
    const auto layout = layoutFor(rect.size);
    const double top = rect.midY() - layout->size().height / 2;
    layout->draw(context, {rect.origin.x, roundToPixel(top, contentScaleFactor())}, drawnColor());
}

void UILabel::drawRect(const Rect&) {
    drawTextInRect(bounds());
}

bool UILabel::drawsRect() const {
    return !text_.empty();
}

}  // namespace zn
