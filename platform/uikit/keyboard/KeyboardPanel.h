#pragma once

#include "platform/uikit/keyboard/KeyboardView.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

/// The window at the bottom of the screen that holds the keyboard, or what an input wants in its
/// place or above it. Comes and goes with what takes text, and has the application announce it.
class KeyboardPanel : public UIWindow {
    ZN_OBJECT(KeyboardPanel, UIWindow)
public:
    KeyboardPanel();
    void init() override;

    /// Whether there is a keyboard for inputs without a view of their own.
    void setHasKeyboard(bool has) { hasKeyboard_ = has; }
    /// Once a pass.
    void update();

private:
    struct Content {
        Ref<UIView> accessory;
        Ref<UIView> keys;
        friend bool operator==(const Content&, const Content&) = default;
    };
    Content contentFor(const Ref<UIKeyInput>& input);
    double fill(const Content& content);
    void rise(double height);
    void sink();
    void moveTo(double top, const Completion& done);

    Content content_;
    Ref<KeyboardView> keyboard_;
    bool hasKeyboard_ = false;
    bool up_ = false;
};

}  // namespace zn
