#include "zarnic/platform/uikit/UITextView.h"

#include <algorithm>

#include "platform/uikit/text/TextInputState.h"
#include "platform/uikit/text/TextTouch.h"
#include "zarnic/platform/uikit/UILongPressGestureRecognizer.h"

namespace zn {
namespace {

constexpr double caretWidth = 2;
/// In less room nothing can be read: the lines stay whole.
constexpr double leastWidth = 1;

/// The width that lines wrap at; 0 for any.
double wrapWidth(double width, const EdgeInsets& insets, double padding) {
    const double room = width - insets.left - insets.right - 2 * padding;
    return room >= leastWidth ? room : 0;
}

}  // namespace

UITextView::UITextView() : UITextView(Rect()) {}

UITextView::UITextView(const Rect& frame)
    : UIScrollView(frame), UITextInput(Lines::Many), touch_(std::make_unique<TextTouch>(*this)) {}

UITextView::~UITextView() = default;

void UITextView::init() {
    UIScrollView::init();
    addSubview(input().canvas);
    addGestureRecognizer(make<UILongPressGestureRecognizer>(ZN_ACTION(ref(this), pressed)));
    restyle();
}

Ref<UITextViewDelegate> UITextView::textViewDelegate() const {
    return std::dynamic_pointer_cast<UITextViewDelegate>(delegate());
}

double UITextView::textWidth() const {
    return wrapWidth(bounds().width(), textInsets_, padding_);
}

void UITextView::restyle() {
    input().setStyle({font_, alignment_, NSLineBreakMode::WordWrapping, 0}, textWidth());
    input().setColor(textColor_);
    contentChanged();
}

void UITextView::rewrap() {
    if (textWidth() != input().width)
        restyle();
    else
        placeText();
}

const std::string& UITextView::text() const {
    return input().editor.text();
}

void UITextView::setText(std::string_view text) {
    replaceAllText(text);
}

void UITextView::setFont(const Ref<UIFont>& font) {
    font_ = font;
    restyle();
}

void UITextView::setTextColor(const Ref<UIColor>& color) {
    textColor_ = color;
    input().setColor(color);
}

void UITextView::setTextAlignment(NSTextAlignment alignment) {
    alignment_ = alignment;
    restyle();
}

void UITextView::setEditable(bool editable) {
    editable_ = editable;
    if (!editable)
        endEditing(true);
}

void UITextView::setTextContainerInset(const EdgeInsets& insets) {
    textInsets_ = insets;
    restyle();
}

void UITextView::setLineFragmentPadding(double padding) {
    padding_ = padding;
    restyle();
}

bool UITextView::isEditing() const {
    return input().editing;
}

Size UITextView::sizeThatFits(Size size) const {
    TextFlow flow;
    flow.setStyle(input().style, wrapWidth(size.width, textInsets_, padding_),
                  input().editor.text());
    const double around = textInsets_.left + textInsets_.right + 2 * padding_;
    return {size.width > 0 ? size.width : flow.size().width + around,
            flow.size().height + textInsets_.top + textInsets_.bottom};
}

void UITextView::setBounds(const Rect& bounds) {
    UIScrollView::setBounds(bounds);
    rewrap();
}

void UITextView::setFrame(const Rect& frame) {
    UIScrollView::setFrame(frame);
    rewrap();
}

void UITextView::layoutSubviews() {
    UIScrollView::layoutSubviews();
    rewrap();
}

void UITextView::didMoveToWindow() {
    UIScrollView::didMoveToWindow();
    if (!window() && isEditing())
        finishEditing();
}

void UITextView::tintColorDidChange() {
    UIScrollView::tintColorDidChange();
    input().canvas->invalidateAll();
}

void UITextView::contentChanged() {
    const Size text = input().flow.size();
    const Size content{bounds().width(), text.height + textInsets_.top + textInsets_.bottom};
    if (contentSize() != content)
        setContentSize(content);
    placeText();
}

void UITextView::placeText() {
    const Point origin{textInsets_.left + padding_, textInsets_.top};
    const Size text = input().flow.size();
    input().canvas->setFrame(Rect(origin, text));
    input().show(bounds().offsetBy(-origin.x, -origin.y));
}

void UITextView::scrollRangeToVisible(NSRange range) {
    const std::size_t end = input().editor.clipped(range).end();
    scrollRectToVisible(caretRectForPosition(end).insetBy(0, -textInsets_.bottom), false);
}

void UITextView::selectionMoved() {
    const Ref<UITextView> self = ref(this);
    const Rect caret = input().canvas->convertRectToView(input().caret(), self);
    if (isEditing())
        scrollRectToVisible(caret.insetBy(-caretWidth, -textInsets_.bottom), false);
    if (const auto delegate = textViewDelegate())
        delegate->textViewDidChangeSelection(self);
}

}  // namespace zn
