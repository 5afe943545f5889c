#include "platform/services/linux/LinuxDeviceFacts.h"

#include <gtest/gtest.h>
#include <sys/utsname.h>

#include <regex>

#include "tests/support/TemporaryFolder.h"

using namespace zn;

namespace {

class LinuxDeviceFactsTest : public testing::Test {
protected:
    Ref<LinuxDeviceFacts> facts(const std::string& application = "org.example.panel") {
        return make<LinuxDeviceFacts>(application, root.path());
    }
    void supply(const std::string& name, const std::string& type, const std::string& status,
                const std::string& capacity) {
        const std::string folder = "sys/class/power_supply/" + name + "/";
        root.write(folder + "type", type + "\n");
        if (!status.empty())
            root.write(folder + "status", status + "\n");
        if (!capacity.empty())
            root.write(folder + "capacity", capacity + "\n");
    }
    void attribute(const std::string& name, const std::string& text) {
        root.write("sys/class/power_supply/" + name, text + "\n");
    }
    void expectBattery(float level, UIDeviceBatteryState state) {
        const auto battery = facts()->battery();
        EXPECT_FLOAT_EQ(battery.level, level);
        EXPECT_EQ(battery.state, state);
    }

    TemporaryFolder root;
};

}  // namespace

TEST_F(LinuxDeviceFactsTest, readsTheBatteryAmongOtherSupplies) {
    supply("AC", "Mains", "", "");
    supply("hidpp_battery_0", "Battery", "Discharging", "20");
    attribute("hidpp_battery_0/scope", "Device");
    const std::pair<const char*, UIDeviceBatteryState> cases[] = {
        {"Charging", UIDeviceBatteryState::Charging},
        {"Discharging", UIDeviceBatteryState::Unplugged},
        {"Full", UIDeviceBatteryState::Full},
        {"Not charging", UIDeviceBatteryState::Unknown},
        {"Unknown", UIDeviceBatteryState::Unknown},
    };
    for (const auto& [status, state] : cases) {
        supply("BAT0", "Battery", status, "87");
        expectBattery(0.87F, state);
    }
}

TEST_F(LinuxDeviceFactsTest, withoutABatteryTheLevelIsUnknown) {
    expectBattery(-1, UIDeviceBatteryState::Unknown);
    supply("AC", "Mains", "", "");
    supply("BAT0", "Battery", "Full", "100");
    attribute("BAT0/present", "0");
    expectBattery(-1, UIDeviceBatteryState::Unknown);
}

TEST_F(LinuxDeviceFactsTest, levelsWithoutAPercentageComeFromEnergyOrCharge) {
    supply("BAT0", "Battery", "Discharging", "");
    expectBattery(-1, UIDeviceBatteryState::Unplugged);
    attribute("BAT0/charge_now", "1000000");
    attribute("BAT0/charge_full", "4000000");
    expectBattery(0.25F, UIDeviceBatteryState::Unplugged);
    attribute("BAT0/charge_full", "0");
    expectBattery(-1, UIDeviceBatteryState::Unplugged);
    supply("BAT0", "Battery", "Charging", "104");
    expectBattery(1, UIDeviceBatteryState::Charging);
}

TEST_F(LinuxDeviceFactsTest, severalBatteriesCountByTheirSize) {
    supply("BAT0", "Battery", "Full", "100");
    attribute("BAT0/energy_full", "30000000");
    supply("BAT1", "Battery", "Charging", "20");
    attribute("BAT1/energy_full", "10000000");
    expectBattery(0.8F, UIDeviceBatteryState::Charging);
    supply("BAT1", "Battery", "Full", "100");
    expectBattery(1, UIDeviceBatteryState::Full);
}

TEST_F(LinuxDeviceFactsTest, namesTheSystemFromOsRelease) {
    root.write("usr/lib/os-release", "NAME=Fallback\nVERSION_ID=1\n");
    EXPECT_EQ(facts()->systemName(), "Fallback");
    root.write("etc/os-release",
               "PRETTY_NAME=\"Wrong\"\nNAME=\"Panel \\\"Pro\\\" OS\"\nVERSION_ID='12.4'\n");
    EXPECT_EQ(facts()->systemName(), "Panel \"Pro\" OS");
    EXPECT_EQ(facts()->systemVersion(), "12.4");
}

TEST_F(LinuxDeviceFactsTest, theKernelStandsInForWhatIsNotThere) {
    utsname names{};
    uname(&names);
    root.write("etc/os-release", "ID=rolling\n");
    EXPECT_EQ(facts()->systemName(), names.sysname);
    EXPECT_EQ(facts()->systemVersion(), names.release);
    EXPECT_EQ(facts()->machineIdentifier(), names.machine);
    EXPECT_EQ(facts()->model(), names.machine);
    root.write("sys/class/dmi/id/product_name", "Laptop 5\n");
    EXPECT_EQ(facts()->model(), "Laptop 5");
    root.write("proc/device-tree/model", std::string("Board 3\0", 8));
    EXPECT_EQ(facts()->localizedModel(), "Board 3");
}

TEST_F(LinuxDeviceFactsTest, theVendorIdentifierBelongsToMachineAndApplication) {
    root.write("etc/machine-id", "0123456789abcdef0123456789abcdef\n");
    const auto identifier = facts()->identifierForVendor();
    ASSERT_TRUE(identifier);
    const std::regex uuid("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    EXPECT_TRUE(std::regex_match(*identifier, uuid)) << *identifier;
    EXPECT_EQ(facts()->identifierForVendor(), identifier);
    EXPECT_NE(facts("org.example.other")->identifierForVendor(), identifier);
    root.write("etc/machine-id", "1123456789abcdef0123456789abcdef\n");
    EXPECT_NE(facts()->identifierForVendor(), identifier);
}

TEST_F(LinuxDeviceFactsTest, withoutAMachineIdTheVendorIdentifierIsAbsent) {
    EXPECT_FALSE(facts()->identifierForVendor());
    for (const auto* text :
         {"", "uninitialized\n", "00000000000000000000000000000000\n", "0123\n"}) {
        root.write("etc/machine-id", text);
        EXPECT_FALSE(facts()->identifierForVendor()) << text;
    }
}
