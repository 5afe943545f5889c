#pragma once

#include "platform/uikit/screen/StatusBar.h"
#include "platform/uikit/screen/WindowStack.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {

struct UIScreen::State {
    DeviceProfile profile;
    double framesPerSecond = 60;
    Ref<CALayer> root;
    WindowStack windows;
    Ref<StatusBar> statusBar;

    /// Brings the window's layer to its place in the root layer, or takes it out.
    void placeLayer(const Ref<UIWindow>& window);
};

}  // namespace zn
