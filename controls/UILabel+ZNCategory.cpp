#include "zarnic/UILabel+ZNCategory.h"

namespace zn {

Ref<UILabel> ZN_LabelWithColor(const Ref<UIColor>& color, std::string_view text,
                               const Ref<UIFont>& font, const Ref<UIColor>& textColor,
                               const Rect& frame) {
    const auto label = make<UILabel>(frame);
    label->setBackgroundColor(color);
    label->setFont(font);
    label->setTextColor(textColor);
    label->setText(text);
    return label;
}

}  // namespace zn
