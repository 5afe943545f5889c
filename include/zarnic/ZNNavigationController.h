#pragma once

#include "zarnic/platform/uikit/UINavigationController.h"

namespace zn {

/// A navigation controller that passes the platform's queries on to its top screen, shows or hides
/// its bar as each screen wants it, and allows the back-swipe per screen: off from every push until
/// the pushed screen has appeared, on the root, and where a screen says so. It is its own delegate.
class ZN_EXPORT ZNNavigationController : public UINavigationController,
                                         public UINavigationControllerDelegate,
                                         public UIGestureRecognizerDelegate {
    ZN_OBJECT(ZNNavigationController, UINavigationController)
public:
    ZNNavigationController();
    explicit ZNNavigationController(Ref<UIViewController> root);
    ~ZNNavigationController() override;

    void viewDidLoad() override;
    void pushViewController(const Ref<UIViewController>& controller, bool animated) override;

    /// With no top screen these answer 0 or NO.
    bool shouldAutorotate() const override;
    std::int64_t supportedInterfaceOrientations() const override;
    std::int64_t preferredInterfaceOrientationForPresentation() const override;
    std::int64_t preferredStatusBarStyle() const override;
    bool prefersStatusBarHidden() const override;
    std::int64_t preferredStatusBarUpdateAnimation() const override;

    void navigationControllerWillShowViewController(
        const Ref<UINavigationController>& navigationController,
        const Ref<UIViewController>& viewController, bool animated) override;
    void navigationControllerDidShowViewController(
        const Ref<UINavigationController>& navigationController,
        const Ref<UIViewController>& viewController, bool animated) override;
};

}  // namespace zn
