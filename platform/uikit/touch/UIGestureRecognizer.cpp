#include "zarnic/platform/uikit/UIGestureRecognizer.h"

#include <algorithm>

#include "platform/uikit/touch/TouchDispatcher.h"
#include "platform/uikit/view/ScreenSpace.h"

namespace zn {

UIGestureRecognizer::UIGestureRecognizer() = default;

UIGestureRecognizer::UIGestureRecognizer(const Action& action) : actions_{action} {}

UIGestureRecognizer::~UIGestureRecognizer() = default;

void UIGestureRecognizer::addTarget(const Action& action) {
    if (std::find(actions_.begin(), actions_.end(), action) == actions_.end())
        actions_.push_back(action);
}

void UIGestureRecognizer::removeTarget(const Action& action) {
    std::erase(actions_, action);
}

void UIGestureRecognizer::setEnabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    if (!enabled)
        TouchDispatcher::shared().stopRecognizer(ref(this));
}

void UIGestureRecognizer::requireGestureRecognizerToFail(const Ref<UIGestureRecognizer>& other) {
    if (other && other.get() != this)
        requiredToFail_.push_back(other);
}

void UIGestureRecognizer::setState(UIGestureRecognizerState state) {
    TouchDispatcher::shared().requestState(ref(this), state);
}

Point UIGestureRecognizer::locationInView(const Ref<UIView>& view) const {
    if (sequence_.empty())
        return {};
    if (touches_.empty())
        return sequence_.back()->locationInView(view);
    Point sum;
    for (const Ref<UITouch>& touch : touches_)
        sum = sum + touch->locationInView(view);
    const auto count = static_cast<double>(touches_.size());
    return {sum.x / count, sum.y / count};
}

}  // namespace zn
