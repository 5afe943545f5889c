#pragma once

#include <string>
#include <string_view>

#include "zarnic/ZNViewController.h"
#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/foundation/NSTimer.h"
#include "zarnic/platform/uikit/UILabel.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

/// A short text in a window of its own, centred on the screen and above the keyboard, that hides
/// itself after a while. A message shown while one is on the screen replaces the text and begins a
/// new count-down, without a second fade-in. Class methods may be called from any thread; the
/// window works on the main thread.
class ZN_EXPORT ZNPromptWindow : public NSObject {
    ZN_OBJECT(ZNPromptWindow, NSObject)
public:
    /// Use `SharedInstance`.
    ZNPromptWindow();
    ~ZNPromptWindow() override;
    void init() override;

    static Ref<ZNPromptWindow> SharedInstance();

    /// The level that the window gets when it is made: call it before the first message.
    static void InitPromptWindow(double level);

    /// Shows `msg` for `duration` seconds, counted from the end of the fade-in. With a screen lock
    /// the window dims the whole screen and catches its touches, and `statusBarHide` counts;
    /// without one the window is as small as the toast and the status bar is hidden. An empty
    /// message or a duration of 0 or less is logged and shows nothing.
    static void ShowMsg(std::string_view msg, double duration, bool screenLock, bool statusBarHide,
                        std::int64_t statusBarStyle);
    /// Without a screen lock.
    static void ShowMsg(std::string_view msg, double duration);
    /// For 2 seconds up to 10 UTF-16 units, 3 up to 20, 4 beyond.
    static void ShowMsg(std::string_view msg);
    /// Fades the message out.
    static void Hide();

    // Made when first asked for; main thread only.
    const Ref<UIWindow>& promptWindow();
    const Ref<ZNViewController>& ctr();
    const Ref<UIView>& centerView();
    const Ref<UIView>& maskView();
    const Ref<UILabel>& msgLab();
    const Ref<NSTimer>& timer();

    /// Points; 0 while the keyboard is hidden.
    double keyboardHeight() const { return keyboardHeight_; }
    void setKeyboardHeight(double height) { keyboardHeight_ = height; }
    /// When the message expires, in seconds since 1970.
    double time() const { return time_; }
    void setTime(double time) { time_ = time; }
    /// From the beginning of the fade-in to the end of the fade-out.
    bool showing() const { return showing_; }
    void setShowing(bool showing) { showing_ = showing; }
    double windowLevel() const { return windowLevel_; }
    void setWindowLevel(double level) { windowLevel_ = level; }
    const std::string& msg() const { return msg_; }
    void setMsg(std::string_view msg) { msg_ = msg; }
    double duration() const { return duration_; }
    void setDuration(double duration) { duration_ = duration; }
    bool screenLock() const { return screenLock_; }
    void setScreenLock(bool lock) { screenLock_ = lock; }
    bool statusBarHide() const { return statusBarHide_; }
    void setStatusBarHide(bool hide) { statusBarHide_ = hide; }
    std::int64_t statusBarStyle() const { return statusBarStyle_; }
    void setStatusBarStyle(std::int64_t style) { statusBarStyle_ = style; }

    // Main thread only.
    void show();
    void hide();
    void timerRun_promptWindow(const Ref<NSTimer>& timer);
    void keyboardWillShow_promptWindow(const Ref<NSNotification>& notification);
    void keyboardWillHide_promptWindow(const Ref<NSNotification>& notification);

private:
    void layout();
    void fadeIn();
    void cancelFade();
    void startCountDown();
    bool fading();
    void moveForKeyboard(double duration);

    Ref<UIWindow> promptWindow_;
    Ref<ZNViewController> ctr_;
    Ref<UIView> centerView_;
    Ref<UIView> maskView_;
    Ref<UILabel> msgLab_;
    Ref<NSTimer> timer_;
    std::string msg_;
    /// How many messages have been shown.
    unsigned shows_ = 0;
    double keyboardHeight_ = 0;
    double time_ = 0;
    double windowLevel_ = 0;
    double duration_ = 0;
    std::int64_t statusBarStyle_ = 0;
    bool showing_ = false;
    bool screenLock_ = false;
    bool statusBarHide_ = false;
};

}  // namespace zn
