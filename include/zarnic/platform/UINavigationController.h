#pragma once

#include <memory>
#include <vector>

#include "zarnic/platform/UIGestureRecognizer.h"
#include "zarnic/platform/UINavigationBar.h"
#include "zarnic/platform/UIViewController.h"

namespace zn {

class UINavigationController;
class UIPanGestureRecognizer;

/// Held weakly by the controller, which may be its own.
class ZN_EXPORT UINavigationControllerDelegate {
public:
    virtual ~UINavigationControllerDelegate() = default;
    virtual void navigationControllerWillShowViewController(const Ref<UINavigationController>&,
                                                            const Ref<UIViewController>&, bool) {}
    virtual void navigationControllerDidShowViewController(const Ref<UINavigationController>&,
                                                           const Ref<UIViewController>&, bool) {}
};

/// A stack of screens under one bar. Will-show comes inside the call that changes the top, before
/// the views change; did-show when the transition ends: at once when it is not animated or the
/// controller is in no window. The root gets both when the controller first appears.
class ZN_EXPORT UINavigationController : public UIViewController {
    ZN_OBJECT(UINavigationController, UIViewController)
public:
    UINavigationController();
    /// Pushes the root through the virtual push, in `init`.
    explicit UINavigationController(Ref<UIViewController> root);
    ~UINavigationController() override;
    void init() override;

    const std::vector<Ref<UIViewController>>& viewControllers() const { return stack_; }
    void setViewControllers(const std::vector<Ref<UIViewController>>& controllers, bool animated);
    Ref<UIViewController> topViewController() const;
    /// The presented controller if there is one, else the top.
    Ref<UIViewController> visibleViewController() const;

    /// Throws `NSInvalidArgumentException` for null, for one already on the stack, and for a tab
    /// bar controller.
    virtual void pushViewController(const Ref<UIViewController>& controller, bool animated);
    /// The root stays: popping it does nothing and returns null.
    virtual Ref<UIViewController> popViewControllerAnimated(bool animated);
    std::vector<Ref<UIViewController>> popToRootViewControllerAnimated(bool animated);
    /// Throws `NSInvalidArgumentException` for one that is not on the stack.
    std::vector<Ref<UIViewController>> popToViewController(const Ref<UIViewController>& controller,
                                                           bool animated);

    const Ref<UINavigationBar>& navigationBar() const { return bar_; }
    bool isNavigationBarHidden() const { return barHidden_; }
    void setNavigationBarHidden(bool hidden, bool animated = false);
    Ref<UINavigationControllerDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const Ref<UINavigationControllerDelegate>& delegate) { delegate_ = delegate; }
    const Ref<UIGestureRecognizer>& interactivePopGestureRecognizer() const { return popGesture_; }

    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidDisappear(bool animated) override;
    void viewDidLayoutSubviews() override;

    /// Seconds of a push or pop, and of the bar's coming and going.
    static constexpr double TransitionDuration = 0.35;
    static constexpr double BarDuration = 0.2;

private:
    enum class Direction { Forward, Backward };
    struct Transition;

    void show(Direction direction, bool animated);
    void begin(const std::shared_ptr<Transition>& transition);
    void installViews(const Transition& transition);
    void animate(const std::shared_ptr<Transition>& transition);
    void finishTransition();

    double topOfBar();
    Rect contentFrame();
    void layoutBars();
    void placeShownView();
    void updateBarItems(UINavigationBar::Change change, bool animated);
    void swiped(const Ref<UIPanGestureRecognizer>& gesture);

    Ref<UIViewController> initialRoot_;
    std::vector<Ref<UIViewController>> stack_;
    /// The controller on the screen: behind the stack only until it first appears.
    Ref<UIViewController> shown_;
    std::shared_ptr<Transition> transition_;
    Ref<UINavigationBar> bar_;
    Ref<UIView> content_;
    Ref<UIGestureRecognizer> popGesture_;
    WeakRef<UINavigationControllerDelegate> delegate_;
    bool barHidden_ = false;
    bool appearing_ = false;
    bool appeared_ = false;
};

}  // namespace zn
