#pragma once

#include <vector>

#include "platform/uikit/keyboard/KeyButton.h"
#include "zarnic/platform/foundation/NSTimer.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// A keyboard whose keys type into whatever takes text: letters, signs or digits, a shift that
/// holds for one letter or, tapped twice, until it is tapped again, and a delete key that repeats.
class KeyboardView : public UIView {
    ZN_OBJECT(KeyboardView, UIView)
public:
    explicit KeyboardView(double width);
    ~KeyboardView() override;
    void init() override;

    /// Shows the keys that the input wants, and its first page when they are others than before.
    void adapt(const UIKeyInput& input);

private:
    using Kind = KeyboardKey::Kind;
    void show(KeyboardPage page);
    void addKey(const KeyboardKey& key);
    void setShift(KeyButton::Shift shift);
    void pressed(const Ref<KeyButton>& key);
    void released(const Ref<KeyButton>& key);
    void left(const Ref<KeyButton>& key);
    void toggleShift();
    void startDeleting();

    KeyboardPage page_ = KeyboardPage::Letters;
    UIKeyboardType type_ = UIKeyboardType::Default;
    UIReturnKeyType returnKey_ = UIReturnKeyType::Default;
    KeyButton::Shift shift_ = KeyButton::Shift::Off;
    double shiftedAt_ = -1;
    std::vector<Ref<KeyButton>> keys_;
    Ref<NSTimer> deleting_;
};

}  // namespace zn
