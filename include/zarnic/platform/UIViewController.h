#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "zarnic/platform/UIApplication.h"
#include "zarnic/platform/UIView.h"

namespace zn {

class UINavigationController;
class UINavigationItem;
class UITabBarController;
class UITabBarItem;

/// Looks after one screen: its view (made when first asked for), its life on the screen, and what
/// the status bar and the bars around it show. Main thread only.
class ZN_EXPORT UIViewController : public UIResponder {
    ZN_OBJECT(UIViewController, UIResponder)
public:
    UIViewController();
    ~UIViewController() override;

    // The view.
    const Ref<UIView>& view();
    void setView(const Ref<UIView>& view);
    bool isViewLoaded() const { return view_ != nullptr; }
    /// Makes the view; the base makes a plain one of the screen's size, without a colour.
    virtual void loadView();
    void loadViewIfNeeded();
    virtual void viewDidLoad() {}
    virtual void viewWillAppear(bool) {}
    virtual void viewDidAppear(bool) {}
    virtual void viewWillDisappear(bool) {}
    virtual void viewDidDisappear(bool) {}
    virtual void viewWillLayoutSubviews() {}
    virtual void viewDidLayoutSubviews() {}
    virtual void didReceiveMemoryWarning() {}
    /// For containers and windows: begins the coming or going of the view (`viewWillAppear` or
    /// `viewWillDisappear`), and ends it. A transition that is turned round half-way is told so;
    /// one that changes nothing is not told twice.
    void beginAppearanceTransition(bool appears, bool animated);
    void endAppearanceTransition();

    // The family.
    Ref<UIViewController> parentViewController() const { return parent_.lock(); }
    const std::vector<Ref<UIViewController>>& childViewControllers() const { return children_; }
    void addChildViewController(const Ref<UIViewController>& child);
    void removeFromParentViewController();
    virtual void willMoveToParentViewController(const Ref<UIViewController>&) {}
    virtual void didMoveToParentViewController(const Ref<UIViewController>&) {}
    /// The nearest one above, or null.
    Ref<UINavigationController> navigationController() const;
    Ref<UITabBarController> tabBarController() const;

    // Presentation: covers the window from below. Without a window, or while something is presented
    // already, nothing is shown but a line in the log, and the completion is not called.
    using Completion = std::function<void()>;
    /// Seconds.
    static constexpr double PresentationDuration = 0.4;
    virtual void presentViewController(const Ref<UIViewController>& controller, bool animated,
                                       Completion completion);
    virtual void dismissViewControllerAnimated(bool animated, Completion completion);
    Ref<UIViewController> presentedViewController() const { return presented_; }
    Ref<UIViewController> presentingViewController() const { return presenting_.lock(); }

    // What is around it.
    const std::string& title() const { return title_; }
    virtual void setTitle(std::string_view title);
    const Ref<UINavigationItem>& navigationItem();
    const Ref<UITabBarItem>& tabBarItem();
    bool hidesBottomBarWhenPushed() const { return hidesBottomBarWhenPushed_; }
    void setHidesBottomBarWhenPushed(bool hides) { hidesBottomBarWhenPushed_ = hides; }
    bool automaticallyAdjustsScrollViewInsets() const { return adjustsScrollViewInsets_; }
    void setAutomaticallyAdjustsScrollViewInsets(bool adjusts) {
        adjustsScrollViewInsets_ = adjusts;
    }

    // Answers to the platform's queries, in its numbers.
    virtual bool shouldAutorotate() const { return true; }
    virtual std::int64_t supportedInterfaceOrientations() const;
    virtual std::int64_t preferredInterfaceOrientationForPresentation() const;
    virtual std::int64_t preferredStatusBarStyle() const { return 0; }
    virtual bool prefersStatusBarHidden() const { return false; }
    virtual std::int64_t preferredStatusBarUpdateAnimation() const { return 1; }
    void setNeedsStatusBarAppearanceUpdate();

    Ref<UIResponder> nextResponder() const override;

private:
    friend class UIView;
    friend class UIWindow;
    void dismissPresented(bool animated, Completion completion);

    enum class Appearance { Disappeared, Appearing, Appeared, Disappearing };

    Ref<UIView> view_;
    WeakRef<UIViewController> parent_;
    std::vector<Ref<UIViewController>> children_;
    Ref<UIViewController> presented_;
    WeakRef<UIViewController> presenting_;
    Ref<UINavigationItem> navigationItem_;
    Ref<UITabBarItem> tabBarItem_;
    std::string title_;
    Appearance appearance_ = Appearance::Disappeared;
    bool appearanceAnimated_ = false;
    bool hidesBottomBarWhenPushed_ = false;
    bool adjustsScrollViewInsets_ = true;
};

}  // namespace zn
