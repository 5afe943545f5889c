#pragma once

#include <string_view>

#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/host/ScreenDriver.h"

namespace zn {

/// A screen without a display: everything is drawn as in a window, and can be looked at as a
/// picture. One at a time, before the first window; main thread only.
class ZN_EXPORT HeadlessHost {
public:
    explicit HeadlessHost(const DeviceProfile& device = {}, double framesPerSecond = 60);

    /// The screen as it is now, with the device's scale.
    Ref<UIImage> snapshot();
    /// The same into a PNG file; false when it cannot be written.
    bool writePNG(std::string_view path);

    ScreenDriver& screen() { return driver_; }

private:
    ScreenDriver driver_;
};

}  // namespace zn
