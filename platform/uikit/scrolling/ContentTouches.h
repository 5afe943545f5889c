#pragma once

#include "zarnic/platform/uikit/UIEvent.h"

namespace zn {

/// What the scroll views around a touched view make of the touch.
class ContentTouches {
public:
    /// Whether the touch's view is to hear of it.
    static bool mayBegin(const Ref<UITouch>& touch, const Ref<UIEvent>& event);
};

}  // namespace zn
