#pragma once

#include "zarnic/platform/drawing/CGContext.h"

namespace zn {

/// The current context, or null with a line in the log that names the call that wanted it.
Ref<CGContext> currentContextOrLog(const char* call);

/// What `setUIGraphicsMainScreenScale` was told.
double mainScreenScale();

}  // namespace zn
