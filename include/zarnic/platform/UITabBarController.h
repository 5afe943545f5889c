#pragma once

#include <memory>
#include <vector>

#include "zarnic/platform/UIButton.h"
#include "zarnic/platform/UITabBarItem.h"
#include "zarnic/platform/UIViewController.h"

namespace zn {

/// Several controllers of which one is seen, chosen by a bar at the bottom.
class ZN_EXPORT UITabBarController : public UIViewController {
    ZN_OBJECT(UITabBarController, UIViewController)
public:
    static constexpr double BarHeight = 49;

    UITabBarController();
    ~UITabBarController() override;

    const std::vector<Ref<UIViewController>>& viewControllers() const { return controllers_; }
    /// Selects the first.
    void setViewControllers(const std::vector<Ref<UIViewController>>& controllers);
    std::size_t selectedIndex() const { return selected_; }
    /// An index out of range is ignored.
    void setSelectedIndex(std::size_t index);
    /// Null without controllers.
    Ref<UIViewController> selectedViewController() const;
    const Ref<UIView>& tabBar() const { return bar_; }

    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidDisappear(bool animated) override;
    void viewDidLayoutSubviews() override;
    std::int64_t preferredStatusBarStyle() const override;
    bool prefersStatusBarHidden() const override;
    std::int64_t preferredStatusBarUpdateAnimation() const override;

private:
    void tabTapped(const Ref<UIButton>& button);
    void makeTabs();
    void showSelected();
    void leave(const Ref<UIViewController>& controller);
    void colorTabs();

    std::vector<Ref<UIViewController>> controllers_;
    std::vector<Ref<UIButton>> tabs_;
    Ref<UIView> bar_;
    Ref<UIView> line_;
    Ref<UIView> content_;
    std::size_t selected_ = 0;
    bool appearing_ = false;
    bool appeared_ = false;
};

}  // namespace zn
