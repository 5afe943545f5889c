#pragma once

#include <zarnic/platform/UIScreen.h>
#include <zarnic/platform/UIWindow.h>

namespace gallery {

/// The look of a keyboard at the bottom of the screen, coming and going with the application's
/// keyboard notices. It types nothing: it stands where a keyboard would.
class KeyboardPanel : public zn::UIWindow {
    ZN_OBJECT(KeyboardPanel, zn::UIWindow)
public:
    static zn::Ref<KeyboardPanel> shared();
    static double heightFor(const zn::UIScreen& screen);

    KeyboardPanel();
    void init() override;
    /// Slides in or out, as the application says.
    void follow();

private:
    void addRow(std::string_view letters, double y, double keyWidth);
    void addKey(std::string_view text, const zn::Rect& frame, bool dark);
};

}  // namespace gallery
