#pragma once

#include "zarnic/platform/drawing/CGContext.h"

namespace zn {

/// What was drawn on a context of `CGContext::image`, without copying it where that can be; nothing
/// can be drawn on the context any more.
Ref<CGImage> takeImage(CGContext& context);

}  // namespace zn
