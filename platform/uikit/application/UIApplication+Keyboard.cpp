#include "platform/uikit/application/ApplicationState.h"
#include "zarnic/platform/drawing/NSValue.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {
namespace {

/// The platform's number for the keyboard's own pace.
constexpr std::int64_t keyboardCurve = 7;

/// A keyboard of this height, its top edge at `height` points above the screen's bottom.
Rect keyboardFrame(double height, double shown) {
    const Rect screen = UIScreen::mainScreen()->bounds();
    return {0, screen.height() - shown, screen.width(), height};
}

void post(const char* name, const Dictionary& details) {
    NSNotificationCenter::defaultCenter()->postNotificationName(name, nullptr, details);
}

Dictionary detailsOf(const Rect& begin, const Rect& end, double duration) {
    return Dictionary{{UIKeyboardFrameBeginUserInfoKey, NSValue::valueWithCGRect(begin)},
                      {UIKeyboardFrameEndUserInfoKey, NSValue::valueWithCGRect(end)},
                      {UIKeyboardAnimationDurationUserInfoKey, duration},
                      {UIKeyboardAnimationCurveUserInfoKey, keyboardCurve}}
        .copy();
}

}  // namespace

double UIApplication::keyboardHeight() const {
    return state_->keyboardHeight;
}

void UIApplication::showKeyboard(double height, double duration) {
    if (!(height > 0)) {
        hideKeyboard(duration);
        return;
    }
    const double before = state_->keyboardHeight;
    if (height == before)
        return;
    state_->keyboardHeight = height;
    state_->moveKeyboard({UIKeyboardWillShowNotification, UIKeyboardDidShowNotification,
                          keyboardFrame(before > 0 ? before : height, before),
                          keyboardFrame(height, height), duration});
}

void UIApplication::hideKeyboard(double duration) {
    const double before = state_->keyboardHeight;
    if (before == 0)
        return;
    state_->keyboardHeight = 0;
    state_->moveKeyboard({UIKeyboardWillHideNotification, UIKeyboardDidHideNotification,
                          keyboardFrame(before, before), keyboardFrame(before, 0), duration});
}

void UIApplication::State::moveKeyboard(const KeyboardMove& move) {
    const Dictionary details = detailsOf(move.begin, move.end, move.duration);
    // Set first: an observer that moves the keyboard again replaces it.
    keyboardMoved = NSRunLoop::mainRunLoop()->addDeadline(
        Clock::shared().monotonic() + move.duration, [name = move.finished, details] {
            post(name, details);
            post(UIKeyboardDidChangeFrameNotification, details);
        });
    post(UIKeyboardWillChangeFrameNotification, details);
    post(move.begins, details);
}

}  // namespace zn
