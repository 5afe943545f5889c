#include "zarnic/platform/uikit/UIEvent.h"

#include <algorithm>

#include "platform/uikit/view/ScreenSpace.h"

namespace zn {

UITouch::UITouch() = default;

UITouch::~UITouch() = default;

Point UITouch::locationInView(const Ref<UIView>& view) const {
    return pointFromScreen(location_, view, window());
}

Point UITouch::previousLocationInView(const Ref<UIView>& view) const {
    return pointFromScreen(previous_, view, window());
}

UIEvent::UIEvent() = default;

UIEvent::~UIEvent() = default;

TouchSet UIEvent::touchesForView(const Ref<UIView>& view) const {
    TouchSet found;
    std::copy_if(touches_.begin(), touches_.end(), std::back_inserter(found),
                 [&](const Ref<UITouch>& touch) { return touch->view() == view; });
    return found;
}

}  // namespace zn
