#pragma once

#include "zarnic/platform/uikit/UIScrollView.h"

namespace zn {

/// A scroll view with that background, without indicators, that does not bounce. Main thread only.
ZN_EXPORT Ref<UIScrollView> ZN_ScrollViewWithColor(const Ref<UIColor>& color, const Rect& frame);

}  // namespace zn
