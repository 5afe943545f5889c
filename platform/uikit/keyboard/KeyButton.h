#pragma once

#include "platform/uikit/keyboard/KeyboardLayout.h"
#include "zarnic/platform/uikit/UIControl.h"

namespace zn {

class CAShapeLayer;
class UILabel;

/// A key of the keyboard panel. A finger between two keys hits one of them.
class ZN_EXPORT KeyButton : public UIControl {
    ZN_OBJECT(KeyButton, UIControl)
public:
    /// A key that stands out does what the keyboard is up for.
    KeyButton(KeyboardKey key, bool standsOut);
    ~KeyButton() override;
    void init() override;

    const KeyboardKey& key() const { return key_; }
    /// What the key types or says now.
    void setLabel(std::string_view label);
    const std::string& label() const;
    enum class Shift { Off, Once, Locked };
    void showShift(Shift shift);

    void setHighlighted(bool highlighted) override;
    bool pointInside(Point point, const Ref<UIEvent>& event) const override;

private:
    bool isText() const { return key_.kind == KeyboardKey::Kind::Text; }
    void addIcon();
    void showPreview();
    void recolor();

    KeyboardKey key_;
    bool standsOut_;
    Shift shift_ = Shift::Off;
    Ref<UILabel> label_;
    Ref<CAShapeLayer> icon_;
    Ref<UIView> preview_;
};

}  // namespace zn
