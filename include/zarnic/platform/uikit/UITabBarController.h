#pragma once

#include <memory>
#include <vector>

#include "zarnic/platform/uikit/UITabBar.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {

/// Several controllers of which one is seen, chosen by a bar at the bottom.
class ZN_EXPORT UITabBarController : public UIViewController {
    ZN_OBJECT(UITabBarController, UIViewController)
public:
    UITabBarController();
    ~UITabBarController() override;
    void init() override;

    const std::vector<Ref<UIViewController>>& viewControllers() const { return controllers_; }
    /// Selects the first.
    void setViewControllers(const std::vector<Ref<UIViewController>>& controllers);
    std::size_t selectedIndex() const { return selected_; }
    /// An index out of range is ignored.
    void setSelectedIndex(std::size_t index);
    /// Null without controllers.
    Ref<UIViewController> selectedViewController() const;
    const Ref<UITabBar>& tabBar() const { return bar_; }
    /// While the selected navigation controller shows a screen that wants none.
    bool isTabBarHidden() const { return barHidden_; }

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
    friend class UINavigationController;
    void showItems();
    void showSelected();
    void leave(const Ref<UIViewController>& controller);

    /// Whether the selected controller wants the bar hidden.
    bool tabBarHides() const;
    /// Hides or shows the bar as the selected controller wants it, at its own place.
    void updateTabBar();
    /// Gives the bar to a view that moves it, and its room to the content, until `updateTabBar`.
    void lendTabBar(const Ref<UIView>& borrower);
    void layoutContent();

    std::vector<Ref<UIViewController>> controllers_;
    Ref<UITabBar> bar_;
    Ref<UIView> content_;
    std::size_t selected_ = 0;
    bool barHidden_ = false;
    bool barLent_ = false;
    bool appearing_ = false;
    bool appeared_ = false;
};

}  // namespace zn
