#pragma once

#include <string>

#include "zarnic/platform/services/DeviceFacts.h"

namespace zn {

/// Device facts that a test sets; a phone by default. Main thread only.
class FakeDeviceFacts final : public DeviceFacts {
public:
    struct Facts {
        std::string machineIdentifier = "iPhone8,1";
        std::string name = "Test phone";
        std::string model = "iPhone";
        std::string localizedModel = "iPhone";
        std::string systemName = "Test system";
        std::string systemVersion = "11.2.1";
        std::optional<std::string> identifierForVendor = "00000000-0000-4000-8000-000000000001";
        BatteryReading battery = {0.5F, UIDeviceBatteryState::Unplugged};
        UIDeviceOrientation orientation = UIDeviceOrientation::Portrait;
        bool multitaskingSupported = true;
        UIUserInterfaceIdiom userInterfaceIdiom = UIUserInterfaceIdiom::Phone;
        bool proximityState = false;
    };

    Facts facts;

    std::string machineIdentifier() const override { return facts.machineIdentifier; }
    std::string name() const override { return facts.name; }
    std::string model() const override { return facts.model; }
    std::string localizedModel() const override { return facts.localizedModel; }
    std::string systemName() const override { return facts.systemName; }
    std::string systemVersion() const override { return facts.systemVersion; }
    std::optional<std::string> identifierForVendor() const override {
        return facts.identifierForVendor;
    }
    BatteryReading battery() const override { return facts.battery; }
    UIDeviceOrientation orientation() const override { return facts.orientation; }
    bool multitaskingSupported() const override { return facts.multitaskingSupported; }
    UIUserInterfaceIdiom userInterfaceIdiom() const override { return facts.userInterfaceIdiom; }
    bool proximityState() const override { return facts.proximityState; }
};

}  // namespace zn
