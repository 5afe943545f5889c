#pragma once

#include "zarnic/platform/drawing/UIColor.h"
#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// One colour, so many pixels wide and one high.
inline Ref<UIImage> plainImage(double width) {
    UIGraphicsBeginImageContext({width, 1});
    UIColor::colorWithRed(0.2, 0.4, 0.6, 1)->setFill();
    UIRectFill({0, 0, width, 1});
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

inline Value pngData(double width) {
    return Value::data(UIImagePNGRepresentation(plainImage(width)).value());
}

/// What tells these images apart; -1 for none.
inline int widthOf(const Ref<UIImage>& image) {
    return image ? static_cast<int>(image->size().width) : -1;
}

}  // namespace zn
