#pragma once

#include <zarnic/platform/drawing/UIColor.h>
#include <zarnic/platform/drawing/UIFont.h>
#include <zarnic/platform/uikit/UILabel.h>
#include <zarnic/platform/uikit/UIView.h>

#include <string_view>

/// The gallery's colours, type and spacing.
namespace gallery::theme {

inline constexpr double margin = 16;
inline constexpr double padding = 16;
inline constexpr double gap = 12;
inline constexpr double cornerRadius = 12;

zn::Ref<zn::UIColor> background();
zn::Ref<zn::UIColor> card();
zn::Ref<zn::UIColor> ink();
zn::Ref<zn::UIColor> quietInk();
zn::Ref<zn::UIColor> accent();
zn::Ref<zn::UIColor> accentSoft();
zn::Ref<zn::UIColor> line();

zn::Ref<zn::UIFont> body();
zn::Ref<zn::UIFont> note();
zn::Ref<zn::UIFont> heading();

/// One line of text at a place; as wide as asked, as high as its font.
zn::Ref<zn::UILabel> label(std::string_view text, const zn::Ref<zn::UIFont>& font,
                           const zn::Ref<zn::UIColor>& color, zn::Point origin, double width);
/// A white rounded panel with a soft shadow.
zn::Ref<zn::UIView> panel(const zn::Rect& frame);

}  // namespace gallery::theme
