#include "zarnic/ZNNavigationController.h"

#include "zarnic/ZNViewController.h"
#include "zarnic/platform/foundation/NSNotificationCenter.h"

namespace zn {

ZN_REGISTER_CLASS(ZNNavigationController);

ZNNavigationController::ZNNavigationController() = default;

ZNNavigationController::ZNNavigationController(Ref<UIViewController> root)
    : UINavigationController(std::move(root)) {}

ZNNavigationController::~ZNNavigationController() {
    NSNotificationCenter::defaultCenter()->removeObserver(this);
}

void ZNNavigationController::viewDidLoad() {
    UINavigationController::viewDidLoad();
    setDelegate(ref(this));
}

void ZNNavigationController::pushViewController(const Ref<UIViewController>& controller,
                                                bool animated) {
    // No back-swipe may begin while the push is under way.
    if (const auto& recognizer = interactivePopGestureRecognizer())
        recognizer->setEnabled(false);
    UINavigationController::pushViewController(controller, animated);
}

bool ZNNavigationController::shouldAutorotate() const {
    return true;
}

std::int64_t ZNNavigationController::supportedInterfaceOrientations() const {
    const auto top = topViewController();
    return top ? top->supportedInterfaceOrientations() : 0;
}

std::int64_t ZNNavigationController::preferredInterfaceOrientationForPresentation() const {
    const auto top = topViewController();
    return top ? top->preferredInterfaceOrientationForPresentation() : 0;
}

std::int64_t ZNNavigationController::preferredStatusBarStyle() const {
    const auto top = topViewController();
    return top ? top->preferredStatusBarStyle() : 0;
}

bool ZNNavigationController::prefersStatusBarHidden() const {
    const auto top = topViewController();
    return top && top->prefersStatusBarHidden();
}

std::int64_t ZNNavigationController::preferredStatusBarUpdateAnimation() const {
    const auto top = topViewController();
    return top ? top->preferredStatusBarUpdateAnimation() : 0;
}

void ZNNavigationController::navigationControllerWillShowViewController(
    const Ref<UINavigationController>& navigationController,
    const Ref<UIViewController>& viewController, bool) {
    const auto screen = as<ZNViewController>(viewController);
    // A plain screen always gets a visible bar.
    const bool hide = screen && screen->navigationBarHide();
    if (navigationController->isNavigationBarHidden() != hide)
        navigationController->setNavigationBarHidden(hide, true);
}

void ZNNavigationController::navigationControllerDidShowViewController(
    const Ref<UINavigationController>& navigationController,
    const Ref<UIViewController>& viewController, bool) {
    const auto screen = as<ZNViewController>(viewController);
    const bool disable =
        (screen && screen->disableSlide()) || navigationController->viewControllers().size() == 1;
    if (const auto& recognizer = navigationController->interactivePopGestureRecognizer()) {
        recognizer->setDelegate(disable ? nullptr : ref(this));
        recognizer->setEnabled(!disable);
    }
}

}  // namespace zn
