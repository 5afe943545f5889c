#pragma once

#include <memory>
#include <string>

#include "zarnic/platform/foundation/Export.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {

/// A window (X11, Wayland) or a bare panel (KMSDRM) through SDL2: shows what is drawn, and gives
/// fingers and the mouse to the application. One at a time, before the first window of the
/// application; main thread only.
class ZN_EXPORT SdlHost {
public:
    /// Null when there is no display or the window cannot be made; `problem` says why.
    static std::unique_ptr<SdlHost> open(const std::string& title, const DeviceProfile& device,
                                         std::string& problem);
    ~SdlHost();
    SdlHost(const SdlHost&) = delete;
    SdlHost& operator=(const SdlHost&) = delete;

    /// Runs the main loop until the window is closed.
    void run();

private:
    struct State;
    explicit SdlHost(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

}  // namespace zn
