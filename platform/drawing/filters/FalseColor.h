#pragma once

#include "zarnic/platform/drawing/CGImage.h"
#include "zarnic/platform/drawing/UIColor.h"

namespace zn {

/// Black becomes `dark`, white `light`, what lies between a mixture of the premultiplied colours by
/// its brightness; the image's alpha multiplies the result.
Ref<CGImage> falseColored(const CGImage& image, const CGColor& dark, const CGColor& light);

}  // namespace zn
