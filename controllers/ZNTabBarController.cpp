#include "zarnic/ZNTabBarController.h"

namespace zn {

ZN_REGISTER_CLASS(ZNTabBarController);

ZNTabBarController::ZNTabBarController() = default;

ZNTabBarController::~ZNTabBarController() = default;

void ZNTabBarController::viewDidLoad() {
    UITabBarController::viewDidLoad();
}

void ZNTabBarController::didReceiveMemoryWarning() {
    UITabBarController::didReceiveMemoryWarning();
}

}  // namespace zn
