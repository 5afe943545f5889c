#include "zarnic/platform/uikit/UINavigationController.h"
#include "zarnic/platform/uikit/UITabBarController.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {
namespace {

/// The nearest controller above that is a `T`.
template <class T>
Ref<T> nearest(const UIViewController& controller) {
    for (auto each = controller.parentViewController(); each; each = each->parentViewController())
        if (auto found = as<T>(each))
            return found;
    return nullptr;
}

}  // namespace

Ref<UINavigationController> UIViewController::navigationController() const {
    return nearest<UINavigationController>(*this);
}

Ref<UITabBarController> UIViewController::tabBarController() const {
    return nearest<UITabBarController>(*this);
}

}  // namespace zn
