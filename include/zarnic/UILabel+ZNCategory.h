#pragma once

#include <string_view>

#include "zarnic/platform/uikit/UILabel.h"

namespace zn {

/// A label; an absent colour, font or text leaves the label's own default. Main thread only.
ZN_EXPORT Ref<UILabel> ZN_LabelWithColor(const Ref<UIColor>& color, std::string_view text,
                                         const Ref<UIFont>& font, const Ref<UIColor>& textColor,
                                         const Rect& frame);

}  // namespace zn
