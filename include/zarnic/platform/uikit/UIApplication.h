#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"
#include "zarnic/platform/uikit/UIKeyInput.h"
#include "zarnic/platform/uikit/UIResponder.h"

namespace zn {

class UIViewController;
class UIWindow;

/// The platform's numbers.
enum class UIStatusBarStyle : std::int64_t { Default = 0, LightContent = 1, DarkContent = 3 };
enum class UIStatusBarAnimation : std::int64_t { None = 0, Fade = 1, Slide = 2 };
namespace UIInterfaceOrientation {
inline constexpr std::int64_t Unknown = 0, Portrait = 1, PortraitUpsideDown = 2, LandscapeRight = 3,
                              LandscapeLeft = 4;
}  // namespace UIInterfaceOrientation
namespace UIInterfaceOrientationMask {
inline constexpr std::int64_t Portrait = 2, PortraitUpsideDown = 4, LandscapeRight = 8,
                              LandscapeLeft = 16, Landscape = 24, AllButUpsideDown = 26, All = 30;
}  // namespace UIInterfaceOrientationMask

/// Keyboard notices: `userInfo` has the frames before and after (rectangle `NSValue`s, screen
/// coordinates), the duration in seconds and the animation's curve (a number of the platform's, 7).
/// The change of the frame is told before the keyboard comes or goes, and after it has.
inline constexpr const char* UIKeyboardWillShowNotification = "UIKeyboardWillShowNotification";
inline constexpr const char* UIKeyboardDidShowNotification = "UIKeyboardDidShowNotification";
inline constexpr const char* UIKeyboardWillHideNotification = "UIKeyboardWillHideNotification";
inline constexpr const char* UIKeyboardDidHideNotification = "UIKeyboardDidHideNotification";
inline constexpr const char* UIKeyboardWillChangeFrameNotification =
    "UIKeyboardWillChangeFrameNotification";
inline constexpr const char* UIKeyboardDidChangeFrameNotification =
    "UIKeyboardDidChangeFrameNotification";
inline constexpr const char* UIKeyboardFrameBeginUserInfoKey = "UIKeyboardFrameBeginUserInfoKey";
inline constexpr const char* UIKeyboardFrameEndUserInfoKey = "UIKeyboardFrameEndUserInfoKey";
inline constexpr const char* UIKeyboardAnimationDurationUserInfoKey =
    "UIKeyboardAnimationDurationUserInfoKey";
inline constexpr const char* UIKeyboardAnimationCurveUserInfoKey =
    "UIKeyboardAnimationCurveUserInfoKey";

/// The application: its windows, its events, its status bar. Main thread only.
class ZN_EXPORT UIApplication final : public UIResponder {
    ZN_OBJECT(UIApplication, UIResponder)
public:
    UIApplication();
    ~UIApplication() override;
    static Ref<UIApplication> sharedApplication();

    /// Visible and hidden windows that are alive, back to front.
    std::vector<Ref<UIWindow>> windows() const;
    Ref<UIWindow> keyWindow() const;

    /// Height 0 while the bar is hidden.
    Rect statusBarFrame() const;
    bool statusBarHidden() const;
    UIStatusBarStyle statusBarStyle() const;
    /// Asks the topmost visible window that has a root controller again.
    void setNeedsStatusBarAppearanceUpdate();

    /// Hands the URL to the program that the desktop has for it (`URLOpener`). The options are the
    /// platform's and change nothing; the completion comes later, on the main thread.
    void openURL(std::string_view url);
    void openURL(std::string_view url, const Dictionary& options,
                 std::function<void(bool success)> completion);

    /// Touches come in here, from hosts and the Stage: one finger's id, its place in screen
    /// points. Times are those of the clock.
    void touchDown(std::int64_t finger, Point place);
    void touchMove(std::int64_t finger, Point place);
    void touchUp(std::int64_t finger, Point place);
    void touchCancel(std::int64_t finger);

    // Text and keys come in here, from hosts and the Stage. They go to the first responder, when it
    // takes text (`UIKeyInput`) and its window is key; false when nobody takes them.
    bool insertText(std::string_view text);
    /// What an input method is composing; empty when it is done or gives up.
    bool setMarkedText(std::string_view text, NSRange selected);
    bool pressKey(const UIKey& key);
    /// Who takes them now; null for nobody.
    Ref<UIKeyInput> keyInput() const;

    /// Whether a keyboard comes up at the bottom of the screen while something takes text, for
    /// machines without one: it types by touch, in its own window, and posts the notices. Default
    /// no. Input views and accessory views are shown in any case.
    bool showsKeyboardPanel() const;
    void setShowsKeyboardPanel(bool shows);

    /// A keyboard that covers the bottom of the screen comes up or goes: posts the notices.
    void showKeyboard(double height, double duration = 0.25);
    void hideKeyboard(double duration = 0.25);
    /// Height of the keyboard now, 0 when hidden.
    double keyboardHeight() const;

    Ref<UIResponder> firstResponder() const;

private:
    friend class UIResponder;
    friend class UIWindow;
    friend class UIScreen;
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace zn
