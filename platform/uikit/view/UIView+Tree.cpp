#include <algorithm>
#include <limits>

#include "platform/uikit/view/FirstResponder.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/uikit/UIKeyInput.h"
#include "zarnic/platform/uikit/UIView.h"
#include "zarnic/platform/uikit/UIViewController.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

namespace {

constexpr std::size_t Top = std::numeric_limits<std::size_t>::max();

}  // namespace

Ref<UIWindow> UIView::window() const {
    const auto parent = superview();
    return parent ? parent->window() : nullptr;
}

void UIView::addSubview(const Ref<UIView>& view) {
    insertSubview(view, Top);
}

void UIView::insertSubviewAtIndex(const Ref<UIView>& view, std::size_t index) {
    insertSubview(view, index);
}

void UIView::insertSubviewBelow(const Ref<UIView>& view, const Ref<UIView>& sibling) {
    if (view == sibling)
        return;
    const std::size_t present = indexOfSubview(view), target = indexOfSubview(sibling);
    // Taking the view out first moves everything above it down.
    insertSubview(view, present < target && target != Top ? target - 1 : target);
}

void UIView::insertSubviewAbove(const Ref<UIView>& view, const Ref<UIView>& sibling) {
    if (view == sibling)
        return;
    const std::size_t present = indexOfSubview(view), target = indexOfSubview(sibling);
    insertSubview(view, present < target || target == Top ? target : target + 1);
}

void UIView::bringSubviewToFront(const Ref<UIView>& view) {
    if (view && view->superview().get() == this)
        insertSubview(view, Top);
}

void UIView::sendSubviewToBack(const Ref<UIView>& view) {
    if (view && view->superview().get() == this)
        insertSubview(view, 0);
}

std::size_t UIView::indexOfSubview(const Ref<UIView>& view) const {
    const auto found = std::find(subviews_.begin(), subviews_.end(), view);
    return found == subviews_.end() ? Top : static_cast<std::size_t>(found - subviews_.begin());
}

void UIView::insertSubview(const Ref<UIView>& view, std::size_t index) {
    if (!view)
        return;
    const Ref<UIView> self = ref(this);
    if (isDescendantOfView(view))
        throw NSException(NSInvalidArgumentException, "a view cannot lie inside itself");
    const Ref<UIView> former = view->superview();
    if (former == self) {
        detach(view);
        attach(view, index);
        return;
    }
    const Ref<UIWindow> window = this->window(), formerWindow = view->window();
    const Ref<UIColor> formerTint = view->tintColor();
    if (formerWindow && formerWindow != window)
        view->endEditing(true);
    view->willMoveToSuperview(self);
    if (formerWindow != window)
        view->announceWindow(window);
    if (former) {
        former->willRemoveSubview(view);
        former->detach(view);
    }
    attach(view, index);
    if (formerWindow != window)
        view->moveToWindow(window);
    view->didMoveToSuperview();
    didAddSubview(view);
    if (!view->tintColor_ && !view->tintColor()->isEqual(*formerTint))
        view->spreadTintColor();
}

void UIView::removeFromSuperview() {
    const Ref<UIView> self = ref(this), parent = superview();
    if (!parent)
        return;
    const bool leavesWindow = parent->window() != nullptr;
    if (leavesWindow)
        endEditing(true);
    willMoveToSuperview(nullptr);
    if (leavesWindow)
        announceWindow(nullptr);
    parent->willRemoveSubview(self);
    parent->detach(self);
    if (leavesWindow)
        moveToWindow(nullptr);
    didMoveToSuperview();
}

void UIView::attach(const Ref<UIView>& view, std::size_t index) {
    index = std::min(index, subviews_.size());
    // A subview's layer may be elsewhere, as the mask of another layer.
    const auto isPlaced = [this](const Ref<UIView>& each) {
        return each->layer_->superlayer() == layer_;
    };
    const auto next = subviews_.begin() + static_cast<std::ptrdiff_t>(index);
    const auto above = std::find_if(next, subviews_.end(), isPlaced);
    if (above == subviews_.end())
        layer_->addSublayer(view->layer_);
    else
        layer_->insertSublayerBelow(view->layer_, (*above)->layer_);
    subviews_.insert(next, view);
    view->superview_ = ref(this);
    setNeedsLayout();
}

void UIView::detach(const Ref<UIView>& view) {
    std::erase(subviews_, view);
    view->superview_.reset();
    view->layer_->removeFromSuperlayer();
    setNeedsLayout();
}

void UIView::announceWindow(const Ref<UIWindow>& window) {
    willMoveToWindow(window);
    for (const auto& subview : std::vector(subviews_))
        subview->announceWindow(window);
}

void UIView::moveToWindow(const Ref<UIWindow>& window) {
    if (window)
        updateContentScale();
    didMoveToWindow();
    for (const auto& subview : std::vector(subviews_))
        subview->moveToWindow(window);
}

bool UIView::isDescendantOfView(const Ref<UIView>& view) const {
    for (const UIView* each = this; each; each = each->superview().get())
        if (each == view.get())
            return true;
    return false;
}

Ref<UIView> UIView::viewWithTag(std::int64_t tag) const {
    if (tag_ == tag)
        return std::const_pointer_cast<UIView>(ref(this));
    for (const auto& subview : subviews_)
        if (auto found = subview->viewWithTag(tag))
            return found;
    return nullptr;
}

Ref<UIResponder> UIView::nextResponder() const {
    if (const auto controller = controller_.lock())
        return controller;
    return superview();
}

bool UIView::endEditing(bool force) {
    auto& first = FirstResponder::shared();
    const auto current = as<UIView>(first.current());
    if (!current || !current->isDescendantOfView(ref(this)))
        return true;
    const bool resigned = current->resignFirstResponder();
    if (!resigned && force) {
        first.clear(*current);
        if (const auto input = as<UIKeyInput>(current))
            input->lostFirstResponder();
    }
    return resigned || force;
}

}  // namespace zn
