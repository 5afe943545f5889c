#pragma once

#include "zarnic/platform/uikit/UITabBarController.h"

namespace zn {

/// The base for an application's tab bar controllers; adds nothing yet.
class ZN_EXPORT ZNTabBarController : public UITabBarController {
    ZN_OBJECT(ZNTabBarController, UITabBarController)
public:
    ZNTabBarController();
    ~ZNTabBarController() override;

    void viewDidLoad() override;
    void didReceiveMemoryWarning() override;
};

}  // namespace zn
