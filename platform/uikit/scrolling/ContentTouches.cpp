#include "platform/uikit/scrolling/ContentTouches.h"

#include "platform/uikit/scrolling/ScrollViewState.h"

namespace zn {

bool ContentTouches::mayBegin(const Ref<UITouch>& touch, const Ref<UIEvent>& event) {
    const Ref<UIView> content = touch->view();
    for (Ref<UIView> each = content ? content->superview() : nullptr; each;
         each = each->superview()) {
        const auto scrollView = as<UIScrollView>(each);
        if (!scrollView)
            continue;
        if (scrollView->state_->caught || !scrollView->touchesShouldBegin({touch}, event, content))
            return false;
    }
    return true;
}

}  // namespace zn
