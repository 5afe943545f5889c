#pragma once

#include <string>

#include "zarnic/platform/services/DeviceFacts.h"

namespace zn {

/// Reads `uname`, os-release, `/sys` and the machine id.
class ZN_EXPORT LinuxDeviceFacts final : public DeviceFacts {
public:
    /// `root` stands in for `/` where files are read.
    explicit LinuxDeviceFacts(std::string applicationIdentifier, std::string root = "");

    std::string machineIdentifier() const override;
    std::string name() const override;
    std::string model() const override;
    std::string localizedModel() const override { return model(); }
    std::string systemName() const override;
    std::string systemVersion() const override;
    std::optional<std::string> identifierForVendor() const override;
    BatteryReading battery() const override;
    /// Nothing below the host knows how the screen is held.
    UIDeviceOrientation orientation() const override { return UIDeviceOrientation::Portrait; }
    bool multitaskingSupported() const override { return true; }
    UIUserInterfaceIdiom userInterfaceIdiom() const override { return UIUserInterfaceIdiom::Phone; }
    /// No common interface reports it.
    bool proximityState() const override { return false; }

private:
    std::string osRelease(std::string_view key) const;

    std::string applicationIdentifier_;
    std::string root_;
};

}  // namespace zn
