#include "zarnic/platform/uikit/UIDevice.h"

#include "zarnic/platform/services/Services.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {
namespace {

Ref<DeviceFacts> facts() {
    return Services::get<DeviceFacts>();
}

}  // namespace

UIDevice::UIDevice() = default;

UIDevice::~UIDevice() = default;

Ref<UIDevice> UIDevice::currentDevice() {
    static const auto& device = *new Ref<UIDevice>(make<UIDevice>());
    return device;
}

std::string UIDevice::name() const {
    return facts()->name();
}

std::string UIDevice::model() const {
    return facts()->model();
}

std::string UIDevice::localizedModel() const {
    return facts()->localizedModel();
}

std::string UIDevice::systemName() const {
    return facts()->systemName();
}

std::string UIDevice::systemVersion() const {
    return facts()->systemVersion();
}

UIDeviceOrientation UIDevice::orientation() const {
    return facts()->orientation();
}

std::optional<std::string> UIDevice::identifierForVendor() const {
    return facts()->identifierForVendor();
}

std::string UIDevice::machineIdentifier() const {
    const std::string machine = UIScreen::mainScreen()->profile().machine;
    return machine.empty() ? facts()->machineIdentifier() : machine;
}

bool UIDevice::multitaskingSupported() const {
    return facts()->multitaskingSupported();
}

UIUserInterfaceIdiom UIDevice::userInterfaceIdiom() const {
    const DeviceProfile& profile = UIScreen::mainScreen()->profile();
    if (profile.tablet)
        return UIUserInterfaceIdiom::Pad;
    return profile.machine.empty() ? facts()->userInterfaceIdiom() : UIUserInterfaceIdiom::Phone;
}

void UIDevice::endGeneratingDeviceOrientationNotifications() {
    if (orientationRequests_ > 0)
        --orientationRequests_;
}

UIDeviceBatteryState UIDevice::batteryState() const {
    return batteryMonitoringEnabled_ ? facts()->battery().state : UIDeviceBatteryState::Unknown;
}

float UIDevice::batteryLevel() const {
    return batteryMonitoringEnabled_ ? facts()->battery().level : -1.0F;
}

bool UIDevice::proximityState() const {
    return proximityMonitoringEnabled_ && facts()->proximityState();
}

}  // namespace zn
