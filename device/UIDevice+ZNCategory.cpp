#include "zarnic/UIDevice+ZNCategory.h"

#include <algorithm>

namespace zn {
namespace {

struct Product {
    std::string_view machine;
    std::string_view name;
};

/// The maker's machine identifiers and what the products are called; several carry a note on the
/// regions they are sold in.
constexpr Product products[] = {
    {"iPhone3,1", "iPhone 4"},
    {"iPhone3,2", "iPhone 4"},
    {"iPhone3,3", "iPhone 4"},
    {"iPhone4,1", "iPhone 4S"},
    {"iPhone5,1", "iPhone 5"},
    {"iPhone5,2", "iPhone 5 (GSM+CDMA)"},
    {"iPhone5,3", "iPhone 5c (GSM)"},
    {"iPhone5,4", "iPhone 5c (GSM+CDMA)"},
    {"iPhone6,1", "iPhone 5s (GSM)"},
    {"iPhone6,2", "iPhone 5s (GSM+CDMA)"},
    {"iPhone7,1", "iPhone 6 Plus"},
    {"iPhone7,2", "iPhone 6"},
    {"iPhone8,1", "iPhone 6s"},
    {"iPhone8,2", "iPhone 6s Plus"},
    {"iPhone8,4", "iPhone SE"},
    {"iPhone9,1", "国行、日版、港行iPhone 7"},
    {"iPhone9,2", "港行、国行iPhone 7 Plus"},
    {"iPhone9,3", "美版、台版iPhone 7"},
    {"iPhone9,4", "美版、台版iPhone 7 Plus"},
    {"iPhone10,1", "国行(A1863)、日行(A1906)iPhone 8"},
    {"iPhone10,4", "美版(Global/A1905)iPhone 8"},
    {"iPhone10,2", "国行(A1864)、日行(A1898)iPhone 8 Plus"},
    {"iPhone10,5", "美版(Global/A1897)iPhone 8 Plus"},
    {"iPhone10,3", "国行(A1865)、日行(A1902)iPhone X"},
    {"iPhone10,6", "美版(Global/A1901)iPhone X"},
    {"iPod1,1", "iPod Touch 1G"},
    {"iPod2,1", "iPod Touch 2G"},
    {"iPod3,1", "iPod Touch 3G"},
    {"iPod4,1", "iPod Touch 4G"},
    {"iPod5,1", "iPod Touch (5 Gen)"},
    {"iPad1,1", "iPad"},
    {"iPad1,2", "iPad 3G"},
    {"iPad2,1", "iPad 2 (WiFi)"},
    {"iPad2,2", "iPad 2"},
    {"iPad2,3", "iPad 2 (CDMA)"},
    {"iPad2,4", "iPad 2"},
    {"iPad2,5", "iPad Mini (WiFi)"},
    {"iPad2,6", "iPad Mini"},
    {"iPad2,7", "iPad Mini (GSM+CDMA)"},
    {"iPad3,1", "iPad 3 (WiFi)"},
    {"iPad3,2", "iPad 3 (GSM+CDMA)"},
    {"iPad3,3", "iPad 3"},
    {"iPad3,4", "iPad 4 (WiFi)"},
    {"iPad3,5", "iPad 4"},
    {"iPad3,6", "iPad 4 (GSM+CDMA)"},
    {"iPad4,1", "iPad Air (WiFi)"},
    {"iPad4,2", "iPad Air (Cellular)"},
    {"iPad4,4", "iPad Mini 2 (WiFi)"},
    {"iPad4,5", "iPad Mini 2 (Cellular)"},
    {"iPad4,6", "iPad Mini 2"},
    {"iPad4,7", "iPad Mini 3"},
    {"iPad4,8", "iPad Mini 3"},
    {"iPad4,9", "iPad Mini 3"},
    {"iPad5,1", "iPad Mini 4 (WiFi)"},
    {"iPad5,2", "iPad Mini 4 (LTE)"},
    {"iPad5,3", "iPad Air 2"},
    {"iPad5,4", "iPad Air 2"},
    {"iPad6,3", "iPad Pro 9.7"},
    {"iPad6,4", "iPad Pro 9.7"},
    {"iPad6,7", "iPad Pro 12.9"},
    {"iPad6,8", "iPad Pro 12.9"},
    {"iPad6,11", "iPad 5 (WiFi)"},
    {"iPad6,12", "iPad 5 (Cellular)"},
    {"iPad7,1", "iPad Pro 12.9 inch 2nd gen (WiFi)"},
    {"iPad7,2", "iPad Pro 12.9 inch 2nd gen (Cellular)"},
    {"iPad7,3", "iPad Pro 10.5 inch (WiFi)"},
    {"iPad7,4", "iPad Pro 10.5 inch (Cellular)"},
    {"AppleTV2,1", "Apple TV 2"},
    {"AppleTV3,1", "Apple TV 3"},
    {"AppleTV3,2", "Apple TV 3"},
    {"AppleTV5,3", "Apple TV 4"},
    {"i386", "Simulator"},
    {"x86_64", "Simulator"},
};

template <class T>
std::int64_t number(T value) {
    return static_cast<std::int64_t>(value);
}

}  // namespace

Dictionary ZN_CurrentDeviceDict() {
    const auto device = UIDevice::currentDevice();
    Dictionary properties;
    properties.set("name", device->name());
    properties.set("model", device->model());
    properties.set("localizedModel", device->localizedModel());
    properties.set("systemName", device->systemName());
    properties.set("systemVersion", device->systemVersion());
    properties.set("orientation", number(device->orientation()));
    if (const auto identifier = device->identifierForVendor())
        properties.set("identifierForVendor", *identifier);
    properties.set("generatesDeviceOrientationNotifications",
                   device->generatesDeviceOrientationNotifications());
    properties.set("batteryMonitoringEnabled", device->batteryMonitoringEnabled());
    properties.set("batteryState", number(device->batteryState()));
    properties.set("batteryLevel", device->batteryLevel());
    properties.set("proximityMonitoringEnabled", device->proximityMonitoringEnabled());
    properties.set("proximityState", device->proximityState());
    properties.set("multitaskingSupported", device->multitaskingSupported());
    properties.set("userInterfaceIdiom", number(device->userInterfaceIdiom()));
    return properties.copy();
}

std::string ZN_DeviceTypeString() {
    const std::string machine = UIDevice::currentDevice()->machineIdentifier();
    const auto found =
        std::find_if(std::begin(products), std::end(products),
                     [&](const Product& product) { return product.machine == machine; });
    return found == std::end(products) ? machine : std::string(found->name);
}

std::int64_t ZN_DeviceType() {
    struct Mark {
        std::string_view text;
        ZNDeviceType type;
    };
    // In this order: a phone with a notch is a phone too.
    static constexpr Mark marks[] = {
        {"Simulator", ZNDeviceType::Simulator}, {"iPhone X", ZNDeviceType::iPhoneX},
        {"iPhone", ZNDeviceType::iPhone},       {"iPad", ZNDeviceType::iPad},
        {"iPod Touch", ZNDeviceType::iPod},     {"Apple TV", ZNDeviceType::AppleTV},
    };
    const std::string name = ZN_DeviceTypeString();
    for (const Mark& mark : marks)
        if (name.find(mark.text) != std::string::npos)
            return number(mark.type);
    return number(ZNDeviceType::Unknown);
}

std::int64_t ZN_DeviceInterfaceIdiom() {
    return number(UIDevice::currentDevice()->userInterfaceIdiom());
}

std::string ZN_SystemVersion() {
    return UIDevice::currentDevice()->systemVersion();
}

}  // namespace zn
