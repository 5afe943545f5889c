#pragma once

#include "zarnic/platform/uikit/UIView.h"

namespace zn {

class UIViewController;

/// The platform's numbers.
namespace UIWindowLevel {
inline constexpr double Normal = 0, StatusBar = 1000, Alert = 2000;
}  // namespace UIWindowLevel

inline constexpr const char* UIWindowDidBecomeVisibleNotification =
    "UIWindowDidBecomeVisibleNotification";
inline constexpr const char* UIWindowDidBecomeHiddenNotification =
    "UIWindowDidBecomeHiddenNotification";
inline constexpr const char* UIWindowDidBecomeKeyNotification = "UIWindowDidBecomeKeyNotification";
inline constexpr const char* UIWindowDidResignKeyNotification = "UIWindowDidResignKeyNotification";

/// The root of a view tree on the screen: hidden when made, ordered by level, then by when it was
/// last shown. The screen keeps a window alive while it is visible.
class ZN_EXPORT UIWindow : public UIView {
    ZN_OBJECT(UIWindow, UIView)
public:
    UIWindow();
    explicit UIWindow(const Rect& frame);
    ~UIWindow() override;
    void init() override;

    double windowLevel() const { return level_; }
    /// Comes to the front of the new level.
    void setWindowLevel(double level);
    const Ref<UIViewController>& rootViewController() const { return root_; }
    /// Removes the old root's view and adds the new one's, filling the window.
    void setRootViewController(const Ref<UIViewController>& controller);

    /// Keys and text go to the key window. Hiding it hands the status back to the visible window
    /// that had it last, else to the topmost one.
    void makeKeyWindow();
    /// Shows the window in front of its level and makes it key.
    void makeKeyAndVisible();
    bool isKeyWindow() const;
    virtual void becomeKeyWindow() {}
    virtual void resignKeyWindow() {}

    /// Shown, it comes to the front of its level and posts a notice; hidden, it lets go of its
    /// touches and posts another.
    void setHidden(bool hidden) override;
    void setFrame(const Rect& frame) override;
    void setBounds(const Rect& bounds) override;
    Ref<UIWindow> window() const override;
    Ref<UIResponder> nextResponder() const override;
    /// The root controller's view fills the window.
    void layoutSubviews() override;

    /// Through screen coordinates; a null window means the screen.
    Point convertPointToWindow(Point point, const Ref<UIWindow>& window) const;
    Point convertPointFromWindow(Point point, const Ref<UIWindow>& window) const;
    Rect convertRectToWindow(const Rect& rect, const Ref<UIWindow>& window) const;
    Rect convertRectFromWindow(const Rect& rect, const Ref<UIWindow>& window) const;

private:
    void show();
    void hide();
    void bringToFront();
    void fillWithRootView();
    void attachRoot();
    void detachRoot();
    static AffineTransform transformBetween(const UIWindow* from, const UIWindow* to);

    double level_ = UIWindowLevel::Normal;
    Ref<UIViewController> root_;
};

}  // namespace zn
