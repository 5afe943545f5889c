#include "zarnic/platform/uikit/UITextField.h"

#include "platform/uikit/text/TextInputState.h"
#include "platform/uikit/text/TextTouch.h"
#include "zarnic/platform/uikit/UIButton.h"
#include "zarnic/platform/uikit/UILabel.h"

namespace zn {
namespace {

constexpr double DefaultFontSize = 17;
constexpr double PlaceholderWhite = 0.7;

}  // namespace

UITextField::UITextField() : UITextField(Rect()) {}

UITextField::UITextField(const Rect& frame)
    : UIControl(frame),
      UITextInput(Lines::One),
      font_(UIFont::systemFontOfSize(DefaultFontSize)),
      textColor_(UIColor::blackColor()),
      touch_(std::make_unique<TextTouch>(*this)) {}

UITextField::~UITextField() = default;

void UITextField::init() {
    UIControl::init();
    clip_ = make<UIView>(Rect());
    clip_->setClipsToBounds(true);
    clip_->setUserInteractionEnabled(false);
    clip_->addSubview(input().canvas);
    addSubview(clip_);
    restyle();
}

void UITextField::restyle() {
    input().setStyle({font_, NSTextAlignment::Left, NSLineBreakMode::WordWrapping, 0}, 0);
    input().setColor(textColor_);
    contentChanged();
}

const std::string& UITextField::text() const {
    return input().editor.text();
}

void UITextField::setText(std::string_view text) {
    replaceAllText(text);
}

void UITextField::setFont(const Ref<UIFont>& font) {
    const Ref<UIFont> before = font_;
    font_ = font ? font : UIFont::systemFontOfSize(DefaultFontSize);
    if (placeholderLabel_ && placeholderLabel_->font()->isEqual(*before))
        placeholderLabel_->setFont(font_);
    restyle();
}

void UITextField::setTextColor(const Ref<UIColor>& color) {
    textColor_ = color ? color : UIColor::blackColor();
    input().setColor(textColor_);
}

void UITextField::setTextAlignment(NSTextAlignment alignment) {
    alignment_ = alignment;
    contentChanged();
}

const Ref<UILabel>& UITextField::placeholderLabel() {
    if (!placeholderLabel_) {
        placeholderLabel_ = make<UILabel>();
        placeholderLabel_->setFont(font_);
        placeholderLabel_->setTextColor(UIColor::colorWithWhite(PlaceholderWhite, 1));
        insertSubviewBelow(placeholderLabel_, clip_);
        setNeedsLayout();
    }
    return placeholderLabel_;
}

std::string UITextField::placeholder() const {
    return placeholderLabel_ ? placeholderLabel_->text() : std::string();
}

void UITextField::setPlaceholder(std::string_view placeholder) {
    if (placeholder.empty() && !placeholderLabel_)
        return;
    placeholderLabel()->setText(placeholder);
    setNeedsLayout();
}

void UITextField::setClearButtonMode(UITextFieldViewMode mode) {
    clearMode_ = mode;
    setNeedsLayout();
}

void UITextField::replaceSideView(Ref<UIView>& place, const Ref<UIView>& view) {
    if (place == view)
        return;
    if (place)
        place->removeFromSuperview();
    place = view;
    setNeedsLayout();
}

void UITextField::setLeftView(const Ref<UIView>& view) {
    replaceSideView(leftView_, view);
}

void UITextField::setRightView(const Ref<UIView>& view) {
    replaceSideView(rightView_, view);
}

void UITextField::setLeftViewMode(UITextFieldViewMode mode) {
    leftMode_ = mode;
    setNeedsLayout();
}

void UITextField::setRightViewMode(UITextFieldViewMode mode) {
    rightMode_ = mode;
    setNeedsLayout();
}

bool UITextField::isEditing() const {
    return input().editing;
}

void UITextField::setEnabled(bool enabled) {
    UIControl::setEnabled(enabled);
    if (!enabled)
        endEditing(true);
}

void UITextField::didMoveToWindow() {
    UIControl::didMoveToWindow();
    if (!window() && isEditing())
        finishEditing();
}

void UITextField::tintColorDidChange() {
    UIControl::tintColorDidChange();
    input().canvas->invalidateAll();
}

}  // namespace zn
