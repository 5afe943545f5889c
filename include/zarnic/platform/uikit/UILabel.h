#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "zarnic/platform/drawing/TextLayout.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// Text that is only read: one line of the system font at 17 points, black, centred vertically,
/// its end cut with an ellipsis, unless set otherwise. Takes no touches. Main thread only.
class ZN_EXPORT UILabel : public UIView {
    ZN_OBJECT(UILabel, UIView)
public:
    UILabel();
    explicit UILabel(const Rect& frame);
    ~UILabel() override;
    void init() override;

    const std::string& text() const { return text_; }
    virtual void setText(std::string_view text);
    const Ref<UIFont>& font() const { return font_; }
    /// Null for the default.
    virtual void setFont(const Ref<UIFont>& font);
    const Ref<UIColor>& textColor() const { return textColor_; }
    /// Null for the default.
    virtual void setTextColor(const Ref<UIColor>& color);
    /// Used while `highlighted`; null for the text colour.
    const Ref<UIColor>& highlightedTextColor() const { return highlightedTextColor_; }
    void setHighlightedTextColor(const Ref<UIColor>& color);
    bool highlighted() const { return highlighted_; }
    void setHighlighted(bool highlighted);
    /// A label that is not enabled draws its text paler.
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    NSTextAlignment textAlignment() const { return style_.alignment; }
    void setTextAlignment(NSTextAlignment alignment);
    NSLineBreakMode lineBreakMode() const { return style_.lineBreak; }
    void setLineBreakMode(NSLineBreakMode mode);
    /// At most so many; 0 for as many as fit.
    std::size_t numberOfLines() const { return style_.numberOfLines; }
    void setNumberOfLines(std::size_t lines);
    /// Draws a single line that is too wide with a smaller font, down to `minimumScaleFactor`.
    bool adjustsFontSizeToFitWidth() const { return adjustsFontSize_; }
    void setAdjustsFontSizeToFitWidth(bool adjusts);
    /// A part of the font's size, 0 to 1; default 0.
    double minimumScaleFactor() const { return minimumScale_; }
    void setMinimumScaleFactor(double factor);

    /// What the text needs, rounded up to device pixels. Several lines keep to `size.width` unless
    /// that is 0; a single line and the height have no limit.
    Size sizeThatFits(Size size) const override;
    /// Where the text goes in `bounds`: its lines, centred vertically.
    virtual Rect textRectForBounds(const Rect& bounds, std::size_t numberOfLines) const;
    /// Draws the text, centred vertically in the rectangle, into the current context.
    virtual void drawTextInRect(const Rect& rect);
    void drawRect(const Rect& rect) override;
    bool drawsRect() const override;

private:
    template <class T, class U>
    void change(T& member, const U& value);
    TextStyle fittingStyle(double width) const;
    Ref<TextLayout> layoutFor(Size size) const;
    CGColor drawnColor() const;

    std::string text_;
    Ref<UIFont> font_;
    Ref<UIColor> textColor_;
    Ref<UIColor> highlightedTextColor_;
    /// Without the font.
    TextStyle style_;
    double minimumScale_ = 0;
    bool highlighted_ = false;
    bool enabled_ = true;
    bool adjustsFontSize_ = false;
};

}  // namespace zn
