#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/services/DeviceFacts.h"

namespace zn {

/// The device: what the machine says about itself (`DeviceFacts`), and where the screen's profile
/// stands for a device, what that one is. Main thread only.
class ZN_EXPORT UIDevice final : public NSObject {
    ZN_OBJECT(UIDevice, NSObject)
public:
    UIDevice();
    ~UIDevice() override;
    static Ref<UIDevice> currentDevice();

    std::string name() const;
    std::string model() const;
    std::string localizedModel() const;
    std::string systemName() const;
    std::string systemVersion() const;
    UIDeviceOrientation orientation() const;
    /// A UUID in capitals, the same for one application on one machine; absent when the machine
    /// has no identity.
    std::optional<std::string> identifierForVendor() const;
    /// The hardware ("iPhone9,1", "aarch64"): the screen profile's, else the machine's own.
    std::string machineIdentifier() const;
    bool multitaskingSupported() const;
    UIUserInterfaceIdiom userInterfaceIdiom() const;

    bool generatesDeviceOrientationNotifications() const { return orientationRequests_ > 0; }
    /// Calls nest.
    void beginGeneratingDeviceOrientationNotifications() { ++orientationRequests_; }
    void endGeneratingDeviceOrientationNotifications();

    /// Default no; without it the battery's state is unknown and its level -1.
    bool batteryMonitoringEnabled() const { return batteryMonitoringEnabled_; }
    void setBatteryMonitoringEnabled(bool enabled) { batteryMonitoringEnabled_ = enabled; }
    UIDeviceBatteryState batteryState() const;
    /// 0 to 1, or -1 when unknown.
    float batteryLevel() const;

    /// Default no; without it nothing is ever close.
    bool proximityMonitoringEnabled() const { return proximityMonitoringEnabled_; }
    void setProximityMonitoringEnabled(bool enabled) { proximityMonitoringEnabled_ = enabled; }
    bool proximityState() const;

private:
    int orientationRequests_ = 0;
    bool batteryMonitoringEnabled_ = false;
    bool proximityMonitoringEnabled_ = false;
};

}  // namespace zn
