#include "zarnic/platform/uikit/UIResponder.h"

#include "platform/uikit/view/FirstResponder.h"

namespace zn {

bool UIResponder::becomeFirstResponder() {
    if (isFirstResponder())
        return true;
    return canBecomeFirstResponder() && FirstResponder::shared().make(ref(this));
}

bool UIResponder::resignFirstResponder() {
    if (!isFirstResponder())
        return true;
    if (!canResignFirstResponder())
        return false;
    FirstResponder::shared().clear(*this);
    return true;
}

bool UIResponder::isFirstResponder() const {
    return FirstResponder::shared().is(*this);
}

void UIResponder::touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) {
    if (const auto next = nextResponder())
        next->touchesBegan(touches, event);
}

void UIResponder::touchesMoved(const TouchSet& touches, const Ref<UIEvent>& event) {
    if (const auto next = nextResponder())
        next->touchesMoved(touches, event);
}

void UIResponder::touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event) {
    if (const auto next = nextResponder())
        next->touchesEnded(touches, event);
}

void UIResponder::touchesCancelled(const TouchSet& touches, const Ref<UIEvent>& event) {
    if (const auto next = nextResponder())
        next->touchesCancelled(touches, event);
}

}  // namespace zn
