#include "zarnic/ZNViewController.h"

#include "zarnic/platform/uikit/UINavigationController.h"

namespace zn {

ZN_REGISTER_CLASS(ZNViewController);

ZNViewController::ZNViewController() = default;

ZNViewController::~ZNViewController() = default;

void ZNViewController::init() {
    UIViewController::init();
    setStatusBarStyle(static_cast<std::int64_t>(UIStatusBarStyle::Default));
    setStatusBarHide(false);
    setStatusBarAnim(static_cast<std::int64_t>(UIStatusBarAnimation::Fade));
    setDisableSlide(false);
    setNavigationBarHide(false);
    setNavagationBarSeperatorHide(false);
}

void ZNViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    setAutomaticallyAdjustsScrollViewInsets(false);
    if (const auto navigation = navigationController())
        navigation->navigationBar()->setTranslucent(false);
}

void ZNViewController::didReceiveMemoryWarning() {
    UIViewController::didReceiveMemoryWarning();
}

bool ZNViewController::shouldAutorotate() const {
    return true;
}

std::int64_t ZNViewController::supportedInterfaceOrientations() const {
    return UIInterfaceOrientationMask::Portrait;
}

std::int64_t ZNViewController::preferredInterfaceOrientationForPresentation() const {
    return UIInterfaceOrientation::Portrait;
}

std::int64_t ZNViewController::preferredStatusBarStyle() const {
    return statusBarStyle_;
}

bool ZNViewController::prefersStatusBarHidden() const {
    return statusBarHide_;
}

std::int64_t ZNViewController::preferredStatusBarUpdateAnimation() const {
    return statusBarAnim_;
}

}  // namespace zn
