#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/platform/uikit/UIView.h"

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

    // Presentation: covers the window from below. The topmost controller above this one presents,
    // so that bars are covered, too. Without a window, while it presents something already, and for
    // a controller that is in use elsewhere, nothing is shown but a line in the log, and the
    // completion is not called. A presentation or dismissal that is under way is finished first.
    // Each completion is called once, when the screen has come or gone.
    using Completion = std::function<void()>;
    /// Seconds.
    static constexpr double PresentationDuration = 0.4;
    virtual void presentViewController(const Ref<UIViewController>& controller, bool animated,
                                       Completion completion);
    /// Takes away what this controller presents, with all that was presented on it; else this
    /// controller itself, or the nearest one above it, where that is presented; else nothing.
    virtual void dismissViewControllerAnimated(bool animated, Completion completion);
    /// What this controller, or the nearest one above it that does so, presents; null for nothing.
    Ref<UIViewController> presentedViewController() const;
    /// Who presents this controller, or the nearest one above it that is presented; null for
    /// nobody.
    Ref<UIViewController> presentingViewController() const;

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
    struct Presentation;
    const char* whyNotPresent(const Ref<UIViewController>& controller) const;
    void presentHere(const Ref<UIViewController>& controller, bool animated, Completion completion);
    void dismissPresented(bool animated, Completion completion);
    Ref<UIViewController> takePresented();
    void move(const std::shared_ptr<Presentation>& presentation, bool animated, const Rect& place);
    void finishPresentation();

    enum class Appearance { Disappeared, Appearing, Appeared, Disappearing };

    Ref<UIView> view_;
    WeakRef<UIViewController> parent_;
    std::vector<Ref<UIViewController>> children_;
    Ref<UIViewController> presented_;
    WeakRef<UIViewController> presenting_;
    /// What comes or goes just now.
    std::shared_ptr<Presentation> presentation_;
    Ref<UINavigationItem> navigationItem_;
    Ref<UITabBarItem> tabBarItem_;
    std::string title_;
    Appearance appearance_ = Appearance::Disappeared;
    bool appearanceAnimated_ = false;
    bool hidesBottomBarWhenPushed_ = false;
    bool adjustsScrollViewInsets_ = true;
};

}  // namespace zn
