#pragma once

#include <memory>
#include <vector>

#include "zarnic/platform/uikit/UIGestureRecognizer.h"
#include "zarnic/platform/uikit/UINavigationBar.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {

class UINavigationController;
class UIPanGestureRecognizer;
class UITabBarController;

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
/// controller is not on the screen. The root gets both when the controller first appears. A change
/// that comes during a transition finishes that first.
///
/// A drag from the left edge goes back, with the screens under the finger: the top is popped when
/// it begins. Let go before the middle, and not fast enough to reach it, the screen comes back: the
/// stack is as before, and the delegate hears will-show and did-show of the screen that stays.
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

    /// Whether a screen of the stack wants no tab bar (`hidesBottomBarWhenPushed`), which then goes
    /// for all above it, too.
    bool hidesBottomBar() const;

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
    using Controllers = std::vector<Ref<UIViewController>>;
    struct Transition;
    using TransitionRef = std::shared_ptr<Transition>;

    void show(Direction direction, bool animated, Controllers leaving);
    void begin(const TransitionRef& transition);
    void installViews(Transition& transition);
    void installSlide(Transition& transition);
    void placeViews(Transition& transition);
    void animate(const TransitionRef& transition, double duration);
    void moveTo(const Transition& transition, double progress);
    void finishTransition();
    void leaveFamily(const Transition& transition);
    void settleBars(const Transition& transition);
    void settleViews(const Transition& transition);

    void beginSwipe();
    void endSwipe(const Ref<UIPanGestureRecognizer>& gesture);
    void cancelTransition(const TransitionRef& transition);

    double topOfBar();
    Rect contentFrame();
    Rect barPlace(bool hidden);
    void layoutBars();
    void placeShownView();
    void updateBarItems(UINavigationBar::Change change);
    void swiped(const Ref<UIPanGestureRecognizer>& gesture);

    Ref<UIViewController> initialRoot_;
    std::vector<Ref<UIViewController>> stack_;
    /// The controller on the screen: behind the stack only until it first appears.
    Ref<UIViewController> shown_;
    TransitionRef transition_;
    /// The transition that the finger moves.
    std::weak_ptr<Transition> swipe_;
    Ref<UINavigationBar> bar_;
    Ref<UIView> content_;
    Ref<UIGestureRecognizer> popGesture_;
    WeakRef<UINavigationControllerDelegate> delegate_;
    bool barHidden_ = false;
    /// The pop that is being called is the finger's.
    bool swiping_ = false;
    bool appearing_ = false;
    bool appeared_ = false;
};

}  // namespace zn
