#pragma once

#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {

/// A screen whose settings for the status bar, the navigation bar and the back-swipe are plain
/// properties; portrait only. Setting one does not refresh the status bar by itself: ask with
/// `setNeedsStatusBarAppearanceUpdate`.
class ZN_EXPORT ZNViewController : public UIViewController {
    ZN_OBJECT(ZNViewController, UIViewController)
public:
    ZNViewController();
    ~ZNViewController() override;
    void init() override;

    /// The platform's number of the style; default 0.
    std::int64_t statusBarStyle() const { return statusBarStyle_; }
    void setStatusBarStyle(std::int64_t style) { statusBarStyle_ = style; }
    bool statusBarHide() const { return statusBarHide_; }
    void setStatusBarHide(bool hide) { statusBarHide_ = hide; }
    /// The platform's number of the animation; default 1, fade.
    std::int64_t statusBarAnim() const { return statusBarAnim_; }
    void setStatusBarAnim(std::int64_t animation) { statusBarAnim_ = animation; }
    /// No interactive back-swipe while this screen is on top.
    bool disableSlide() const { return disableSlide_; }
    void setDisableSlide(bool disable) { disableSlide_ = disable; }
    /// The navigation bar is hidden while this screen is on top.
    bool navigationBarHide() const { return navigationBarHide_; }
    void setNavigationBarHide(bool hide) { navigationBarHide_ = hide; }
    /// Kept for the application; nothing here reads it.
    bool navagationBarSeperatorHide() const { return navagationBarSeperatorHide_; }
    void setNavagationBarSeperatorHide(bool hide) { navagationBarSeperatorHide_ = hide; }

    void viewDidLoad() override;
    void didReceiveMemoryWarning() override;
    bool shouldAutorotate() const override;
    std::int64_t supportedInterfaceOrientations() const override;
    std::int64_t preferredInterfaceOrientationForPresentation() const override;
    std::int64_t preferredStatusBarStyle() const override;
    bool prefersStatusBarHidden() const override;
    std::int64_t preferredStatusBarUpdateAnimation() const override;

private:
    std::int64_t statusBarStyle_ = 0;
    std::int64_t statusBarAnim_ = 0;
    bool statusBarHide_ = false;
    bool disableSlide_ = false;
    bool navigationBarHide_ = false;
    bool navagationBarSeperatorHide_ = false;
};

}  // namespace zn
