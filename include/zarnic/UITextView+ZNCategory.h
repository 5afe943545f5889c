#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/uikit/UILabel.h"
#include "zarnic/platform/uikit/UITextView.h"

extern "C" {
/// Names of the values that a text view's placeholder is kept as. The values are found by the
/// addresses in these pointers, not by the texts.
ZN_EXPORT extern const char* const placeholderName;
ZN_EXPORT extern const char* const placeholderLabelName;
}

/// Additions to `UITextView`: a placeholder, shown while there is no text. Main thread only. An
/// absent view gives nothing and is left alone.
namespace zn {

/// A text view; each value is applied only when it is a colour, a font and a colour.
ZN_EXPORT Ref<UITextView> ZN_TextViewColor(const Value& color, const Value& font,
                                           const Value& textColor, const Rect& frame);

/// Absent until one is set.
ZN_EXPORT std::optional<std::string> zn_placeholder(const Ref<UITextView>& view);
/// Shows the text in light grey, 15 points, where the view's own text begins; the label stays for
/// the life of the view. An absent text shows nothing.
ZN_EXPORT void setZn_placeholder(const Ref<UITextView>& view,
                                 std::optional<std::string_view> placeholder);
/// Null until a placeholder, its font, colour or bounds are set.
ZN_EXPORT Ref<UILabel> zn_placeholerLabel(const Ref<UITextView>& view);
ZN_EXPORT void setZn_placeholerLabel(const Ref<UITextView>& view, const Ref<UILabel>& label);

/// The label is sized to the new font.
ZN_EXPORT void zn_setPlaceholderFont(const Ref<UITextView>& view, const Ref<UIFont>& font);
ZN_EXPORT void zn_setPlaceholderColor(const Ref<UITextView>& view, const Ref<UIColor>& color);
/// Keeps the label's centre.
ZN_EXPORT void zn_updatePlaceholderBounds(const Ref<UITextView>& view, const Rect& bounds);
/// For text that was set from code, of which nobody is told: hides the label when there is text,
/// shows it when there is none.
ZN_EXPORT void zn_updatePlaceholderShowStatus(const Ref<UITextView>& view);

/// Makes the label on the first call; in every call gives it the text and the size for it, and
/// hides it when the view has text.
ZN_EXPORT void setupPlaceholderLabel(const Ref<UITextView>& view,
                                     std::optional<std::string_view> text);
/// What the view does when any text view's text changes.
ZN_EXPORT void textChanged(const Ref<UITextView>& view, const Ref<NSNotification>& notification);

}  // namespace zn
