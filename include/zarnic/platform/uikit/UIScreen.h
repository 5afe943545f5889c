#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/layers/CALayer.h"

namespace zn {

class UIWindow;

/// What a device's screen is; the host sets it before the application starts.
struct ZN_EXPORT DeviceProfile {
    /// "phone", "phone-se", "phone-plus", "phone-x" or "tablet" for the known ones.
    std::string name = "phone";
    /// The machine identifier ("iPhone9,1"); empty for the real one of `uname`.
    std::string machine;
    /// In points, the way it is held when the application starts.
    Size size{375, 667};
    /// Device pixels a point.
    double scale = 2;
    double statusBarHeight = 20;
    double safeBottom = 0;
    bool tablet = false;

    /// The devices that the gallery and the Stage know.
    static const std::vector<DeviceProfile>& all();
    /// Null for an unknown name.
    static const DeviceProfile* named(std::string_view name);
};

/// The one screen: its size, and the windows on it.
class ZN_EXPORT UIScreen final : public NSObject {
    ZN_OBJECT(UIScreen, NSObject)
public:
    UIScreen();
    ~UIScreen() override;
    void init() override;
    static Ref<UIScreen> mainScreen();

    Rect bounds() const;
    double scale() const;
    const DeviceProfile& profile() const;
    /// How often the screen is painted while something moves; default 60.
    double maximumFramesPerSecond() const;
    /// Hosts only, before the first window: what the screen is.
    void setProfile(const DeviceProfile& profile);
    void setMaximumFramesPerSecond(double framesPerSecond);

    /// The layer that holds the windows' layers and the status bar's; hosts composite it.
    const Ref<CALayer>& rootLayer() const;

private:
    friend class UIWindow;
    friend class UIApplication;
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace zn
