#include "zarnic/UIDevice+ZNCategory.h"

#include <gmock/gmock.h>

#include <set>
#include <sstream>

#include "zarnic/platform/services/Services.h"
#include "zarnic/platform/uikit/UIScreen.h"
#include "zarnic/testing/FakeDeviceFacts.h"

namespace zn {
namespace {

using testing::ElementsAre;

void become(const std::string& machine) {
    DeviceProfile profile;
    profile.machine = machine;
    UIScreen::mainScreen()->setProfile(profile);
}

/// A row for each product: its type, its identifiers, its name.
constexpr const char* table = R"(
2 | iPhone3,1 iPhone3,2 iPhone3,3 | iPhone 4
2 | iPhone4,1 | iPhone 4S
2 | iPhone5,1 | iPhone 5
2 | iPhone5,2 | iPhone 5 (GSM+CDMA)
2 | iPhone5,3 | iPhone 5c (GSM)
2 | iPhone5,4 | iPhone 5c (GSM+CDMA)
2 | iPhone6,1 | iPhone 5s (GSM)
2 | iPhone6,2 | iPhone 5s (GSM+CDMA)
2 | iPhone7,1 | iPhone 6 Plus
2 | iPhone7,2 | iPhone 6
2 | iPhone8,1 | iPhone 6s
2 | iPhone8,2 | iPhone 6s Plus
2 | iPhone8,4 | iPhone SE
2 | iPhone9,1 | 国行、日版、港行iPhone 7
2 | iPhone9,2 | 港行、国行iPhone 7 Plus
2 | iPhone9,3 | 美版、台版iPhone 7
2 | iPhone9,4 | 美版、台版iPhone 7 Plus
2 | iPhone10,1 | 国行(A1863)、日行(A1906)iPhone 8
2 | iPhone10,4 | 美版(Global/A1905)iPhone 8
2 | iPhone10,2 | 国行(A1864)、日行(A1898)iPhone 8 Plus
2 | iPhone10,5 | 美版(Global/A1897)iPhone 8 Plus
6 | iPhone10,3 | 国行(A1865)、日行(A1902)iPhone X
6 | iPhone10,6 | 美版(Global/A1901)iPhone X
4 | iPod1,1 | iPod Touch 1G
4 | iPod2,1 | iPod Touch 2G
4 | iPod3,1 | iPod Touch 3G
4 | iPod4,1 | iPod Touch 4G
4 | iPod5,1 | iPod Touch (5 Gen)
3 | iPad1,1 | iPad
3 | iPad1,2 | iPad 3G
3 | iPad2,1 | iPad 2 (WiFi)
3 | iPad2,2 | iPad 2
3 | iPad2,3 | iPad 2 (CDMA)
3 | iPad2,4 | iPad 2
3 | iPad2,5 | iPad Mini (WiFi)
3 | iPad2,6 | iPad Mini
3 | iPad2,7 | iPad Mini (GSM+CDMA)
3 | iPad3,1 | iPad 3 (WiFi)
3 | iPad3,2 | iPad 3 (GSM+CDMA)
3 | iPad3,3 | iPad 3
3 | iPad3,4 | iPad 4 (WiFi)
3 | iPad3,5 | iPad 4
3 | iPad3,6 | iPad 4 (GSM+CDMA)
3 | iPad4,1 | iPad Air (WiFi)
3 | iPad4,2 | iPad Air (Cellular)
3 | iPad4,4 | iPad Mini 2 (WiFi)
3 | iPad4,5 | iPad Mini 2 (Cellular)
3 | iPad4,6 | iPad Mini 2
3 | iPad4,7 iPad4,8 iPad4,9 | iPad Mini 3
3 | iPad5,1 | iPad Mini 4 (WiFi)
3 | iPad5,2 | iPad Mini 4 (LTE)
3 | iPad5,3 iPad5,4 | iPad Air 2
3 | iPad6,3 iPad6,4 | iPad Pro 9.7
3 | iPad6,7 iPad6,8 | iPad Pro 12.9
3 | iPad6,11 | iPad 5 (WiFi)
3 | iPad6,12 | iPad 5 (Cellular)
3 | iPad7,1 | iPad Pro 12.9 inch 2nd gen (WiFi)
3 | iPad7,2 | iPad Pro 12.9 inch 2nd gen (Cellular)
3 | iPad7,3 | iPad Pro 10.5 inch (WiFi)
3 | iPad7,4 | iPad Pro 10.5 inch (Cellular)
5 | AppleTV2,1 | Apple TV 2
5 | AppleTV3,1 AppleTV3,2 | Apple TV 3
5 | AppleTV5,3 | Apple TV 4
1 | i386 x86_64 | Simulator
)";

TEST(UIDeviceZNCategoryTest, EveryKnownMachineHasItsNameAndType) {
    std::istringstream lines(table);
    std::set<std::string> machines;
    int rows = 0;
    for (std::string line; std::getline(lines, line);) {
        const auto first = line.find(" | "), second = line.find(" | ", first + 1);
        if (first == std::string::npos)
            continue;
        ++rows;
        const std::string name = line.substr(second + 3);
        std::istringstream identifiers(line.substr(first + 3, second - first - 3));
        for (std::string machine; identifiers >> machine;) {
            EXPECT_TRUE(machines.insert(machine).second) << machine;
            become(machine);
            EXPECT_EQ(ZN_DeviceTypeString(), name) << machine;
            EXPECT_EQ(ZN_DeviceType(), std::stoll(line)) << machine;
        }
    }
    EXPECT_EQ(rows, 64);
    EXPECT_EQ(machines.size(), 73u);
}

TEST(UIDeviceZNCategoryTest, AnUnknownMachineGoesByItsIdentifier) {
    struct Case {
        const char* machine;
        ZNDeviceType type;
    };
    for (const Case& each : {
             Case{"iPhone11,2", ZNDeviceType::iPhone},
             Case{"iPad8,1", ZNDeviceType::iPad},
             // The tests look for "iPod Touch" and "Apple TV", which identifiers never contain.
             Case{"iPod7,1", ZNDeviceType::Unknown},
             Case{"AppleTV6,2", ZNDeviceType::Unknown},
             Case{"Watch1,1", ZNDeviceType::Unknown},
             Case{"aarch64", ZNDeviceType::Unknown},
             Case{"iphone10,3", ZNDeviceType::Unknown},
             Case{"iPhone10,33", ZNDeviceType::iPhone},
         }) {
        become(each.machine);
        EXPECT_EQ(ZN_DeviceTypeString(), each.machine);
        EXPECT_EQ(ZN_DeviceType(), static_cast<std::int64_t>(each.type)) << each.machine;
    }
}

TEST(UIDeviceZNCategoryTest, WithoutAProfileTheMachineIsTheRealOne) {
    const auto facts = make<FakeDeviceFacts>();
    facts->facts.machineIdentifier = "x86_64";
    Services::replace<DeviceFacts>(facts);
    become("");
    EXPECT_EQ(ZN_DeviceTypeString(), "Simulator");
    EXPECT_EQ(ZN_DeviceType(), static_cast<std::int64_t>(ZNDeviceType::Simulator));
}

TEST(UIDeviceZNCategoryTest, TheDictionaryHasThePropertiesInOrder) {
    const auto fake = make<FakeDeviceFacts>();
    fake->facts.battery = {0.3F, UIDeviceBatteryState::Charging};
    Services::replace<DeviceFacts>(fake);
    const Dictionary quiet = ZN_CurrentDeviceDict();
    EXPECT_THAT(quiet.allKeys(),
                ElementsAre("name", "model", "localizedModel", "systemName", "systemVersion",
                            "orientation", "identifierForVendor",
                            "generatesDeviceOrientationNotifications", "batteryMonitoringEnabled",
                            "batteryState", "batteryLevel", "proximityMonitoringEnabled",
                            "proximityState", "multitaskingSupported", "userInterfaceIdiom"));
    EXPECT_FALSE(quiet.isMutable());
    EXPECT_EQ(quiet["systemVersion"].string(), fake->facts.systemVersion);
    EXPECT_EQ(quiet["batteryState"].longLongValue(), 0);
    EXPECT_EQ(quiet["batteryLevel"].floatValue(), -1.0F);
    EXPECT_EQ(quiet["batteryLevel"].kind(), Value::Kind::Float);
    EXPECT_EQ(quiet["orientation"].kind(), Value::Kind::Integer);
    EXPECT_EQ(quiet["multitaskingSupported"].kind(), Value::Kind::Boolean);

    const auto device = UIDevice::currentDevice();
    device->setBatteryMonitoringEnabled(true);
    device->beginGeneratingDeviceOrientationNotifications();
    fake->facts.identifierForVendor = std::nullopt;
    const Dictionary monitored = ZN_CurrentDeviceDict();
    EXPECT_FALSE(monitored.contains("identifierForVendor"));
    EXPECT_EQ(monitored["batteryState"].longLongValue(), 2);
    EXPECT_EQ(monitored["batteryLevel"].floatValue(), 0.3F);
    EXPECT_TRUE(monitored["generatesDeviceOrientationNotifications"].boolValue());
}

TEST(UIDeviceZNCategoryTest, TheIdiomIsThatOfTheScreensDevice) {
    UIScreen::mainScreen()->setProfile(*DeviceProfile::named("tablet"));
    EXPECT_EQ(ZN_DeviceInterfaceIdiom(), 1);
    UIScreen::mainScreen()->setProfile(*DeviceProfile::named("phone-x"));
    EXPECT_EQ(ZN_DeviceInterfaceIdiom(), 0);
    EXPECT_EQ(ZN_DeviceType(), static_cast<std::int64_t>(ZNDeviceType::iPhoneX));
}

}  // namespace
}  // namespace zn
