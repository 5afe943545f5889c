#include "Theme.h"

#include <zarnic/UILabel+ZNCategory.h>
#include <zarnic/UIView+ZNCategory.h>

#include <cmath>

using namespace zn;

namespace gallery::theme {

Ref<UIColor> background() {
    return UIColor::colorWithRed(0.957, 0.961, 0.973, 1);
}

Ref<UIColor> card() {
    return UIColor::colorWithRed(1, 1, 1, 1);
}

Ref<UIColor> ink() {
    return UIColor::colorWithRed(0.106, 0.122, 0.153, 1);
}

Ref<UIColor> quietInk() {
    return UIColor::colorWithRed(0.396, 0.427, 0.482, 1);
}

Ref<UIColor> accent() {
    return UIColor::colorWithRed(0.149, 0.376, 0.878, 1);
}

Ref<UIColor> accentSoft() {
    return UIColor::colorWithRed(0.149, 0.376, 0.878, 0.1);
}

Ref<UIColor> line() {
    return UIColor::colorWithRed(0.90, 0.91, 0.93, 1);
}

Ref<UIFont> body() {
    return UIFont::systemFontOfSize(16);
}

Ref<UIFont> note() {
    return UIFont::systemFontOfSize(13);
}

Ref<UIFont> heading() {
    return UIFont::systemFontOfSize(13, UIFontWeight::Semibold);
}

Ref<UILabel> label(std::string_view text, const Ref<UIFont>& font, const Ref<UIColor>& color,
                   Point origin, double width) {
    const Rect frame(origin.x, origin.y, width, std::ceil(font->lineHeight()));
    return ZN_LabelWithColor(UIColor::clearColor(), text, font, color, frame);
}

Ref<UIView> panel(const Rect& frame) {
    const Ref<UIView> panel = ZN_ViewWithColor(card(), frame);
    panel->layer()->setCornerRadius(cornerRadius);
    zn_AddShadowEffectColor(panel, UIColor::colorWithRed(0.1, 0.15, 0.3, 1), Size{0, 2}, 6, 0.07);
    return panel;
}

}  // namespace gallery::theme
