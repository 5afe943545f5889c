#include "platform/services/linux/LinuxBluetoothAdapter.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/support/PrivateBus.h"
#include "zarnic/platform/services/CBCentralManager.h"
#include "zarnic/platform/services/Services.h"

using namespace zn;
using enum CBManagerState;
using testing::ElementsAre;

namespace {

constexpr LinuxBluetoothAdapter::Timing quick{.retry = 0.05, .grace = 0.05};

struct Told {
    explicit Told(LinuxBluetoothAdapter::Timing timing = quick)
        : adapter(make<LinuxBluetoothAdapter>(timing)) {
        token = adapter->observe([this](CBManagerState state) { states.push_back(state); });
    }
    /// Runs the loop until the state has been told, or a while has passed without.
    CBManagerState until(CBManagerState wanted) {
        for (int pass = 0; pass < 400 && (states.empty() || states.back() != wanted); ++pass)
            NSRunLoop::mainRunLoop()->runPass(0.05);
        return states.empty() ? Unknown : states.back();
    }

    std::vector<CBManagerState> states;
    Ref<LinuxBluetoothAdapter> adapter;
    RunLoopToken token;
};

class Bluez : public testing::Test {
protected:
    static constexpr const char* service = "org.bluez";
    static constexpr const char* mock = "org.bluez.Mock";

    void start() { bus.startService("bluez5", service); }
    void addAdapter(const char* name) {
        bus.call(service, "/org/bluez", mock, "AddAdapter", {name, "machine"});
    }
    void removeAdapter(const char* name) {
        bus.call(service, "/org/bluez", mock, "RemoveAdapter", {name});
    }
    void power(const char* name, bool on) {
        bus.setProperty(service, std::string("/org/bluez/") + name, "org.bluez.Adapter1", "Powered",
                        on);
    }

    PrivateBus bus;
};

}  // namespace

TEST_F(Bluez, adaptersComeGoAndSwitch) {
    start();
    Told told;
    EXPECT_TRUE(told.states.empty()) << "nothing is told from inside the call";
    ASSERT_EQ(told.until(Unsupported), Unsupported);
    addAdapter("hci0");
    ASSERT_EQ(told.until(PoweredOn), PoweredOn);
    addAdapter("hci1");
    power("hci0", false);
    power("hci1", false);
    ASSERT_EQ(told.until(PoweredOff), PoweredOff);
    power("hci1", true);
    ASSERT_EQ(told.until(PoweredOn), PoweredOn);
    removeAdapter("hci1");
    ASSERT_EQ(told.until(PoweredOff), PoweredOff);
    removeAdapter("hci0");
    ASSERT_EQ(told.until(Unsupported), Unsupported);
    EXPECT_THAT(told.states, ElementsAre(Unsupported, PoweredOn, PoweredOff, PoweredOn, PoweredOff,
                                         Unsupported));
}

TEST_F(Bluez, flipsAreToldOnceInOrderAndTheLastIsTrue) {
    start();
    addAdapter("hci0");
    Told told;
    ASSERT_EQ(told.until(PoweredOn), PoweredOn);
    std::vector<CBManagerState> expected{PoweredOn};
    for (int flip = 0; flip < 25; ++flip) {
        const bool on = flip % 2 == 1;
        power("hci0", on);
        expected.push_back(on ? PoweredOn : PoweredOff);
    }
    for (int pass = 0; pass < 400 && told.states.size() < expected.size(); ++pass)
        NSRunLoop::mainRunLoop()->runPass(0.05);
    EXPECT_EQ(told.states, expected);
    EXPECT_EQ(told.adapter->state(), PoweredOff);
}

TEST_F(Bluez, aServiceThatRestartsIsFoundAgain) {
    Told told;
    ASSERT_EQ(told.until(Unsupported), Unsupported);
    for (int restart = 0; restart < 3; ++restart) {
        start();
        addAdapter("hci0");
        ASSERT_EQ(told.until(PoweredOn), PoweredOn);
        bus.stopService();
        ASSERT_EQ(told.until(Unsupported), Unsupported);
        // On the way to nothing it was on its way back.
        EXPECT_EQ(told.states[told.states.size() - 2], Resetting);
    }
}

TEST(LinuxBluetoothAdapter, aBusThatComesLaterIsFound) {
    TemporaryFolder nothing;
    setenv("DBUS_SYSTEM_BUS_ADDRESS", ("unix:path=" + nothing.path("none")).c_str(), 1);
    Told told;
    ASSERT_EQ(told.until(Unsupported), Unsupported);
    PrivateBus bus;
    bus.startService("bluez5", "org.bluez");
    bus.call("org.bluez", "/org/bluez", "org.bluez.Mock", "AddAdapter", {"hci0", "machine"});
    EXPECT_EQ(told.until(PoweredOn), PoweredOn);
}
