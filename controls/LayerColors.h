#pragma once

#include "zarnic/platform/drawing/UIColor.h"

namespace zn {

/// What layers and contexts take for a colour; clear for an absent one.
inline CGColor layerColor(const Ref<UIColor>& color) {
    return color ? color->cgColor() : CGColor();
}

}  // namespace zn
