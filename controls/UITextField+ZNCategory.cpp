#include "zarnic/UITextField+ZNCategory.h"

#include "zarnic/platform/uikit/UILabel.h"

namespace zn {
Ref<UITextField> ZN_TextFieldColor(const Value& color, const Value& placeholder, const Value& font,
                                   const Value& textColor, const Rect& frame) {
    const auto field = make<UITextField>(frame);
    if (const auto background = color.object<UIColor>())
        field->setBackgroundColor(background);
    if (placeholder.isString())
        field->setPlaceholder(placeholder.stringValue());
    if (const auto chosen = font.object<UIFont>())
        field->setFont(chosen);
    if (const auto chosen = textColor.object<UIColor>())
        field->setTextColor(chosen);
    return field;
}

void zn_SetPlaceholderTextFont(const Ref<UITextField>& field, const Ref<UIFont>& font) {
    if (field)
        field->placeholderLabel()->setFont(font);
}

void zn_SetPlacehodlerTextColor(const Ref<UITextField>& field, const Ref<UIColor>& color) {
    if (field)
        field->placeholderLabel()->setTextColor(color);
}

}  // namespace zn
