#include "zarnic/UITextView+ZNCategory.h"

#include "zarnic/UILabel+ZNCategory.h"
#include "zarnic/UIView+ZNCategory.h"

const char* const placeholderName = "ZN_UITextView_Placeholder";
const char* const placeholderLabelName = "ZN_UITextView_PlaceholderLabel";

namespace zn {
namespace {

constexpr Point labelOrigin{5, 8};
constexpr double labelFontSize = 15;

/// Hears of changes for a text view, and dies with it.
class PlaceholderObserver : public NSObject {
    ZN_OBJECT(PlaceholderObserver, NSObject)
public:
    explicit PlaceholderObserver(const Ref<UITextView>& view) : view_(view) {}
    void textChanged(const Ref<NSNotification>& notification) {
        if (const auto view = view_.lock())
            zn::textChanged(view, notification);
    }

private:
    WeakRef<UITextView> view_;
};

const char observerKey = 0;

void observeChanges(const Ref<UITextView>& view) {
    const auto observer = make<PlaceholderObserver>(view);
    view->setAssociatedValue(&observerKey, Ref<NSObject>(observer));
    NSNotificationCenter::defaultCenter()->addObserver(ZN_ACTION(observer, textChanged),
                                                       UITextViewTextDidChangeNotification);
}

Ref<UILabel> madeLabel(const Ref<UITextView>& view, std::string_view text) {
    const auto label =
        ZN_LabelWithColor(UIColor::clearColor(), text, UIFont::systemFontOfSize(labelFontSize),
                          UIColor::lightGrayColor(), Rect(labelOrigin, {zn_GetWidth(view), 0}));
    setZn_placeholerLabel(view, label);
    view->insertSubviewAtIndex(label, 0);
    return label;
}

std::optional<std::string> textOf(const Ref<UILabel>& label) {
    return label ? std::optional(label->text()) : std::nullopt;
}

}  // namespace

Ref<UITextView> ZN_TextViewColor(const Value& color, const Value& font, const Value& textColor,
                                 const Rect& frame) {
    const auto view = make<UITextView>(frame);
    if (const auto background = color.object<UIColor>())
        view->setBackgroundColor(background);
    if (const auto chosen = font.object<UIFont>())
        view->setFont(chosen);
    if (const auto chosen = textColor.object<UIColor>())
        view->setTextColor(chosen);
    return view;
}

std::optional<std::string> zn_placeholder(const Ref<UITextView>& view) {
    const Value kept = view ? view->associatedValue(placeholderName) : Value();
    return kept.isString() ? std::optional(kept.stringValue()) : std::nullopt;
}

void setZn_placeholder(const Ref<UITextView>& view, std::optional<std::string_view> placeholder) {
    if (!view)
        return;
    setupPlaceholderLabel(view, placeholder);
    view->setAssociatedValue(placeholderName, placeholder ? Value(*placeholder) : Value());
}

Ref<UILabel> zn_placeholerLabel(const Ref<UITextView>& view) {
    return view ? view->associatedValue(placeholderLabelName).object<UILabel>() : nullptr;
}

void setZn_placeholerLabel(const Ref<UITextView>& view, const Ref<UILabel>& label) {
    if (view)
        view->setAssociatedValue(placeholderLabelName,
                                 label ? Value(Ref<NSObject>(label)) : Value());
}

void zn_setPlaceholderFont(const Ref<UITextView>& view, const Ref<UIFont>& font) {
    if (!view)
        return;
    setupPlaceholderLabel(view, textOf(zn_placeholerLabel(view)));
    zn_placeholerLabel(view)->setFont(font);
    setupPlaceholderLabel(view, textOf(zn_placeholerLabel(view)));
}

void zn_setPlaceholderColor(const Ref<UITextView>& view, const Ref<UIColor>& color) {
    if (!view)
        return;
    setupPlaceholderLabel(view, textOf(zn_placeholerLabel(view)));
    zn_placeholerLabel(view)->setTextColor(color);
    setupPlaceholderLabel(view, textOf(zn_placeholerLabel(view)));
}

void zn_updatePlaceholderBounds(const Ref<UITextView>& view, const Rect& bounds) {
    if (!view)
        return;
    setupPlaceholderLabel(view, textOf(zn_placeholerLabel(view)));
    zn_placeholerLabel(view)->setBounds(bounds);
}

void zn_updatePlaceholderShowStatus(const Ref<UITextView>& view) {
    if (const auto label = zn_placeholerLabel(view))
        label->setHidden(view->hasText());
}

void setupPlaceholderLabel(const Ref<UITextView>& view, std::optional<std::string_view> text) {
    if (!view)
        return;
    // An own copy: the label's text may be what comes in.
    const std::string shown(text.value_or(""));
    Ref<UILabel> label = zn_placeholerLabel(view);
    if (!label) {
        observeChanges(view);
        label = madeLabel(view, shown);
    }
    label->setText(shown);
    label->sizeToFit();
    label->setHidden(view->hasText());
}

void textChanged(const Ref<UITextView>& view, const Ref<NSNotification>&) {
    const auto label = zn_placeholerLabel(view);
    if (label && !label->text().empty())
        label->setHidden(view->hasText());
}

}  // namespace zn
