#pragma once

#include <string>
#include <string_view>

#include "zarnic/platform/drawing/CGContext.h"
#include "zarnic/platform/drawing/TextLayout.h"

namespace zn {

inline Ref<UIFont> font(double size = 15) {
    return UIFont::systemFontOfSize(size);
}

inline Ref<TextLayout> laidOut(std::string_view text, double width = 0, NSLineBreakMode mode = {},
                               std::size_t numberOfLines = 0, double height = 0) {
    return TextLayout::layout(text, {font(), NSTextAlignment::Natural, mode, numberOfLines},
                              {width, height});
}

/// The text on white.
inline Ref<CGImage> drawn(std::string_view text, double scale, Point origin = {5, 5},
                          Size size = {200, 40}, const CGColor& color = {0, 0, 0, 1}) {
    const auto context = CGContext::image(size, true, scale);
    context->setFillColor({1, 1, 1, 1});
    context->fillRect({{}, size});
    laidOut(text)->draw(context, origin, color);
    return context->makeImage();
}

}  // namespace zn
