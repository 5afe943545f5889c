#include <algorithm>
#include <cmath>

#include "platform/uikit/text/TextInputState.h"
#include "platform/uikit/view/PixelRounding.h"
#include "zarnic/platform/drawing/CGContext.h"
#include "zarnic/platform/drawing/UIBezierPath.h"
#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/uikit/UIButton.h"
#include "zarnic/platform/uikit/UILabel.h"
#include "zarnic/platform/uikit/UITextField.h"

namespace zn {
namespace {

constexpr double sideInset = 7;
constexpr double cornerRadius = 5;
constexpr double roundedHeightAround = 13;
constexpr double lineInset = 4;
constexpr double clearSide = 28;
constexpr double clearDisc = 15;
constexpr double sideGap = 4;
constexpr double caretWidth = 2;

/// A grey disc with a cross in the middle of a square that a finger can hit.
Ref<UIImage> drawnClearImage() {
    UIGraphicsBeginImageContextWithOptions({clearSide, clearSide}, false, 0);
    const double inset = (clearSide - clearDisc) / 2;
    UIColor::colorWithWhite(0.72, 1)->setFill();
    UIBezierPath::bezierPathWithOvalInRect({inset, inset, clearDisc, clearDisc})->fill();
    const auto cross = UIBezierPath::bezierPath();
    const double near = clearSide / 2 - 2.75;
    const double far = clearSide / 2 + 2.75;
    cross->moveToPoint({near, near});
    cross->addLineToPoint({far, far});
    cross->moveToPoint({far, near});
    cross->addLineToPoint({near, far});
    cross->setLineWidth(1.5);
    cross->setLineCapStyle(CGLineCap::Round);
    UIColor::whiteColor()->setStroke();
    cross->stroke();
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

}  // namespace

void UITextField::setBorderStyle(UITextBorderStyle style) {
    borderStyle_ = style;
    applyBorder();
    setNeedsLayout();
}

void UITextField::applyBorder() {
    const bool rounded = borderStyle_ == UITextBorderStyle::RoundedRect;
    const bool line = borderStyle_ == UITextBorderStyle::Line;
    layer()->setCornerRadius(rounded ? cornerRadius : 0);
    layer()->setBorderWidth(borderStyle_ == UITextBorderStyle::None ? 0 : line ? 1 : 0.5);
    layer()->setBorderColor(UIColor::colorWithWhite(line ? 0 : 0.72, 1)->cgColor());
    if (rounded && !backgroundColor())
        setBackgroundColor(UIColor::whiteColor());
}

bool UITextField::shows(UITextFieldViewMode mode) const {
    switch (mode) {
        case UITextFieldViewMode::WhileEditing:
            return isEditing();
        case UITextFieldViewMode::UnlessEditing:
            return !isEditing();
        case UITextFieldViewMode::Always:
            return true;
        default:
            return false;
    }
}

bool UITextField::showsClearButton() const {
    return hasText() && enabled() && shows(clearMode_);
}

Rect UITextField::leftViewRectForBounds(const Rect& bounds) const {
    const Size size = leftView_ ? leftView_->bounds().size : Size();
    const double inset = borderStyle_ == UITextBorderStyle::None ? 0 : sideGap;
    return Rect({bounds.minX() + inset, bounds.midY() - size.height / 2}, size);
}

Rect UITextField::rightViewRectForBounds(const Rect& bounds) const {
    const Size size = rightView_ ? rightView_->bounds().size : Size();
    const double inset = borderStyle_ == UITextBorderStyle::None ? 0 : sideGap;
    return Rect({bounds.maxX() - inset - size.width, bounds.midY() - size.height / 2}, size);
}

Rect UITextField::clearButtonRectForBounds(const Rect& bounds) const {
    return {bounds.maxX() - clearSide, bounds.midY() - clearSide / 2, clearSide, clearSide};
}

Rect UITextField::contentRect(const Rect& bounds) const {
    double left = borderStyle_ == UITextBorderStyle::RoundedRect ? sideInset
                  : borderStyle_ == UITextBorderStyle::None      ? 0
                                                                 : lineInset;
    double right = left;
    if (leftView_ && shows(leftMode_))
        left = std::max(left, leftViewRectForBounds(bounds).maxX() - bounds.minX() + sideGap);
    if (rightView_ && shows(rightMode_))
        right = std::max(right, bounds.maxX() - rightViewRectForBounds(bounds).minX() + sideGap);
    // The clear button takes the right view's place.
    else if (showsClearButton())
        right = std::max(right, bounds.maxX() - clearButtonRectForBounds(bounds).minX());
    return {bounds.minX() + left, bounds.minY(), std::max(0.0, bounds.width() - left - right),
            bounds.height()};
}

Rect UITextField::textRectForBounds(const Rect& bounds) const {
    return contentRect(bounds);
}

Rect UITextField::editingRectForBounds(const Rect& bounds) const {
    return contentRect(bounds);
}

Rect UITextField::placeholderRectForBounds(const Rect& bounds) const {
    return isEditing() ? editingRectForBounds(bounds) : textRectForBounds(bounds);
}

Size UITextField::sizeThatFits(Size) const {
    double width = sizeWithFont(input().shownText(), font_).width + caretWidth;
    if (placeholderLabel_ && !hasText())
        width = placeholderLabel_->sizeThatFits({}).width;
    const Rect bounds = this->bounds();
    width += bounds.width() - contentRect(bounds).width();
    const bool rounded = borderStyle_ == UITextBorderStyle::RoundedRect;
    return {ceilToPixel(width, contentScaleFactor()),
            std::ceil(font_->lineHeight()) + (rounded ? roundedHeightAround : 2)};
}

void UITextField::placeSideView(const Ref<UIView>& view, UITextFieldViewMode mode,
                                const Rect& frame) {
    if (!view)
        return;
    if (!shows(mode)) {
        view->removeFromSuperview();
        return;
    }
    if (view->superview().get() != this)
        addSubview(view);
    view->setFrame(frame);
}

void UITextField::placeClearButton() {
    const bool free = !rightView_ || !shows(rightMode_);
    if (!clearButton_ && showsClearButton() && free) {
        clearButton_ = UIButton::buttonWithType(UIButtonType::Custom);
        clearButton_->setImage(drawnClearImage(), UIControlState::Normal);
        clearButton_->addTarget(ZN_ACTION(ref(this), clearTapped), UIControlEvents::TouchUpInside);
        addSubview(clearButton_);
    }
    if (!clearButton_)
        return;
    clearButton_->setHidden(!showsClearButton() || !free);
    clearButton_->setFrame(clearButtonRectForBounds(bounds()));
}

void UITextField::placePlaceholder() {
    if (!placeholderLabel_)
        return;
    placeholderLabel_->setHidden(hasText());
    placeholderLabel_->setTextAlignment(alignment_);
    placeholderLabel_->setFrame(placeholderRectForBounds(bounds()));
}

void UITextField::layoutSubviews() {
    UIControl::layoutSubviews();
    const Rect bounds = this->bounds();
    placeSideView(leftView_, leftMode_, leftViewRectForBounds(bounds));
    placeSideView(rightView_, rightMode_, rightViewRectForBounds(bounds));
    placeClearButton();
    placePlaceholder();
    clip_->setFrame(isEditing() ? editingRectForBounds(bounds) : textRectForBounds(bounds));
    truncate(clip_->bounds().width());
    placeText();
}

void UITextField::truncate(double room) {
    if (input().width > 0)
        input().setStyle({font_, NSTextAlignment::Left, NSLineBreakMode::WordWrapping, 0}, 0);
    const bool tooLong = input().flow.size().width + caretWidth > room;
    if (tooLong && room > 0 && !isEditing() && !secureTextEntry())
        input().setStyle({font_, NSTextAlignment::Left, NSLineBreakMode::TruncatingTail, 1}, room);
}

void UITextField::placeText() {
    const Size text = input().flow.size();
    const Size room = clip_->bounds().size;
    const double needed = text.width + caretWidth;
    const Rect caret = input().caret();
    double x = 0;
    if (needed <= room.width) {
        scrolled_ = 0;
        const bool toRight =
            alignment_ == NSTextAlignment::Right ||
            (alignment_ == NSTextAlignment::Natural && input().flow.runsRightToLeft({0, false}));
        if (toRight)
            x = room.width - needed;
        else if (alignment_ == NSTextAlignment::Center)
            x = (room.width - text.width) / 2;
    } else if (isEditing()) {
        scrolled_ = std::clamp(scrolled_, caret.maxX() - room.width, caret.minX());
        scrolled_ = std::clamp(scrolled_, 0.0, needed - room.width);
        x = -scrolled_;
    } else {
        scrolled_ = 0;
    }
    const double scale = contentScaleFactor();
    const Point origin{roundToPixel(x, scale),
                       roundToPixel((room.height - text.height) / 2, scale)};
    input().canvas->setFrame(Rect(origin, text));
    input().show(Rect({-origin.x, -origin.y}, room));
}

}  // namespace zn
