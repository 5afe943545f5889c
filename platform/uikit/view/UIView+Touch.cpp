#include <algorithm>

#include "zarnic/platform/uikit/UIGestureRecognizer.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

namespace {

/// Views fainter than this are not there for the finger.
constexpr double LeastTouchableAlpha = 0.01;

}  // namespace

Ref<UIView> UIView::hitTest(Point point, const Ref<UIEvent>& event) {
    if (!userInteractionEnabled_ || untouchable_ > 0 || hidden() || alpha() < LeastTouchableAlpha ||
        !pointInside(point, event))
        return nullptr;
    const std::vector<Ref<UIView>> candidates = subviews_;
    for (auto each = candidates.rbegin(); each != candidates.rend(); ++each)
        if (auto hit = (*each)->hitTest((*each)->convertPointFromView(point, ref(this)), event))
            return hit;
    return ref(this);
}

bool UIView::pointInside(Point point, const Ref<UIEvent>&) const {
    return bounds().contains(point);
}

void UIView::addGestureRecognizer(const Ref<UIGestureRecognizer>& recognizer) {
    if (!recognizer)
        return;
    if (const auto former = recognizer->view())
        former->removeGestureRecognizer(recognizer);
    gestureRecognizers_.push_back(recognizer);
    recognizer->view_ = ref(this);
}

void UIView::removeGestureRecognizer(const Ref<UIGestureRecognizer>& recognizer) {
    const auto found =
        std::find(gestureRecognizers_.begin(), gestureRecognizers_.end(), recognizer);
    if (found == gestureRecognizers_.end())
        return;
    (*found)->view_.reset();
    gestureRecognizers_.erase(found);
}

}  // namespace zn
