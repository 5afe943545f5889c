#pragma once

#include "zarnic/platform/foundation/Value.h"
#include "zarnic/platform/uikit/UITextField.h"

/// Additions to `UITextField`. Main thread only. An absent field is left alone.
namespace zn {

/// A text field; each value is applied only when it is a colour, a string, a font and a colour.
ZN_EXPORT Ref<UITextField> ZN_TextFieldColor(const Value& color, const Value& placeholder,
                                             const Value& font, const Value& textColor,
                                             const Rect& frame);

/// Before or after the placeholder's text is set.
ZN_EXPORT void zn_SetPlaceholderTextFont(const Ref<UITextField>& field, const Ref<UIFont>& font);
ZN_EXPORT void zn_SetPlacehodlerTextColor(const Ref<UITextField>& field, const Ref<UIColor>& color);

}  // namespace zn
