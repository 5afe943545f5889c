#include "zarnic/platform/uikit/UINavigationController.h"

#include <algorithm>

#include "platform/uikit/controllers/NavigationTransition.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/uikit/UIScreenEdgePanGestureRecognizer.h"
#include "zarnic/platform/uikit/UITabBarController.h"

namespace zn {

UINavigationController::UINavigationController() = default;

UINavigationController::UINavigationController(Ref<UIViewController> root)
    : initialRoot_(std::move(root)) {}

UINavigationController::~UINavigationController() = default;

void UINavigationController::init() {
    UIViewController::init();
    bar_ = make<UINavigationBar>(Rect(0, 0, 0, UINavigationBar::Height));
    const auto gesture = make<UIScreenEdgePanGestureRecognizer>(ZN_ACTION(ref(this), swiped));
    gesture->setEdges(UIRectEdge::Left);
    popGesture_ = gesture;
    const WeakRef<UINavigationController> weak = ref(this);
    bar_->setBackHandler([weak] {
        if (const auto self = weak.lock())
            self->popViewControllerAnimated(true);
    });
    if (initialRoot_)
        pushViewController(std::exchange(initialRoot_, nullptr), false);
}

void UINavigationController::viewDidLoad() {
    UIViewController::viewDidLoad();
    // As far as a screen reaches: neither a leaving screen nor a hidden bar shows beside it.
    view()->setClipsToBounds(true);
    content_ = make<UIView>(view()->bounds());
    view()->addSubview(content_);
    view()->addSubview(bar_);
    view()->addGestureRecognizer(popGesture_);
    updateBarItems(UINavigationBar::Change::None);
}

Ref<UIViewController> UINavigationController::topViewController() const {
    return stack_.empty() ? nullptr : stack_.back();
}

Ref<UIViewController> UINavigationController::visibleViewController() const {
    return presentedViewController() ? presentedViewController() : topViewController();
}

void UINavigationController::pushViewController(const Ref<UIViewController>& controller,
                                                bool animated) {
    finishTransition();
    if (!controller)
        throw NSException(NSInvalidArgumentException, "pushing an absent controller");
    if (std::find(stack_.begin(), stack_.end(), controller) != stack_.end())
        throw NSException(NSInvalidArgumentException,
                          "pushing " + controller->description() + " twice");
    if (as<UITabBarController>(controller))
        throw NSException(NSInvalidArgumentException, "pushing a tab bar controller");
    addChildViewController(controller);
    stack_.push_back(controller);
    show(Direction::Forward, animated, {});
    controller->didMoveToParentViewController(ref(this));
}

Ref<UIViewController> UINavigationController::popViewControllerAnimated(bool animated) {
    finishTransition();
    if (stack_.size() < 2)
        return nullptr;
    // Of its own: the pop changes the stack.
    const Ref<UIViewController> below = stack_[stack_.size() - 2];
    return popToViewController(below, animated).back();
}

std::vector<Ref<UIViewController>> UINavigationController::popToRootViewControllerAnimated(
    bool animated) {
    finishTransition();
    if (stack_.empty())
        return {};
    const Ref<UIViewController> root = stack_.front();
    return popToViewController(root, animated);
}

std::vector<Ref<UIViewController>> UINavigationController::popToViewController(
    const Ref<UIViewController>& controller, bool animated) {
    finishTransition();
    const auto found = std::find(stack_.begin(), stack_.end(), controller);
    if (found == stack_.end())
        throw NSException(NSInvalidArgumentException,
                          "popping to a controller that is not on the stack");
    std::vector<Ref<UIViewController>> popped(found + 1, stack_.end());
    if (popped.empty())
        return popped;
    stack_.erase(found + 1, stack_.end());
    for (const auto& each : popped)
        each->willMoveToParentViewController(nullptr);
    show(Direction::Backward, animated, popped);
    return popped;
}

void UINavigationController::setViewControllers(
    const std::vector<Ref<UIViewController>>& controllers, bool animated) {
    finishTransition();
    const auto contains = [](const auto& list, const auto& each) {
        return std::find(list.begin(), list.end(), each) != list.end();
    };
    Controllers leaving = std::exchange(stack_, {});
    const bool backward = !controllers.empty() && contains(leaving, controllers.back());
    for (const auto& each : controllers)
        addChildViewController(each);
    stack_ = controllers;
    std::erase_if(leaving, [&](const auto& each) { return contains(stack_, each); });
    for (const auto& each : leaving)
        each->willMoveToParentViewController(nullptr);
    if (topViewController() != shown_)
        return show(backward ? Direction::Backward : Direction::Forward, animated,
                    std::move(leaving));
    updateBarItems(UINavigationBar::Change::None);
    for (const auto& each : leaving)
        each->removeFromParentViewController();
}

}  // namespace zn
