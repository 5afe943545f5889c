#pragma once

#include <functional>
#include <vector>

#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/layers/Compositor.h"
#include "zarnic/platform/layers/DisplayTick.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {

/// What every host does for the screen: gives it its device, paints it after each commit, and once
/// a frame while something animates. Main thread only.
class ZN_EXPORT ScreenDriver {
public:
    /// Called with what was repainted, after it was.
    using Presenter = std::function<void(const std::vector<PixelRect>& damage)>;

    /// Makes the main screen this device, before the first window.
    explicit ScreenDriver(const DeviceProfile& device, Presenter presenter = {},
                          double framesPerSecond = 60);
    ScreenDriver(const ScreenDriver&) = delete;
    ScreenDriver& operator=(const ScreenDriver&) = delete;

    /// Commits what has changed and paints it now.
    void paint();
    Compositor& compositor() { return compositor_; }

private:
    void paintCommitted();

    Compositor compositor_;
    Presenter presenter_;
    DisplayTick tick_;
    RunLoopToken afterCommit_;
};

}  // namespace zn
