#include "platform/services/linux/LinuxDisplayStatus.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/support/PrivateBus.h"

using namespace zn;
using testing::ElementsAre;

namespace {

constexpr const char* service = "org.freedesktop.login1";
constexpr const char* session = "/org/freedesktop/login1/session/c1";
constexpr const char* interface = "org.freedesktop.login1.Session";

class Login : public testing::Test {
protected:
    void SetUp() override {
        setenv("XDG_SESSION_ID", "c1", 1);
        bus.startService("logind", service);
        sd_bus* connection = bus.connection();
        ASSERT_GE(sd_bus_call_method(connection, service, "/org/freedesktop/login1",
                                     "org.freedesktop.DBus.Mock", "AddSession", nullptr, nullptr,
                                     "ssusb", "c1", "seat0", 1000, "somebody", 1),
                  0);
    }
    void lock(bool locked) {
        ASSERT_GE(sd_bus_call_method(bus.connection(), service, session, interface, "SetLockedHint",
                                     nullptr, nullptr, "b", locked ? 1 : 0),
                  0);
    }
    void run(std::size_t wanted) {
        for (int pass = 0; pass < 100 && states.size() < wanted; ++pass)
            NSRunLoop::mainRunLoop()->runPass(0.05);
    }
    /// What is on its way has come after the answers to questions that were put later.
    void runDry() {
        for (int pass = 0; pass < 10; ++pass) {
            status->state();
            NSRunLoop::mainRunLoop()->runPass(0);
        }
    }

    PrivateBus bus;
    Ref<LinuxDisplayStatus> status = make<LinuxDisplayStatus>(0.05);
    std::vector<std::uint64_t> states;
    RunLoopToken token;
};

}  // namespace

TEST_F(Login, eachChangeOfTheLockIsToldOnce) {
    token = status->observe([this] { states.push_back(status->state()); });
    runDry();
    EXPECT_TRUE(states.empty()) << "the first reading is no change";
    EXPECT_EQ(status->state(), 1u);
    lock(true);
    run(1);
    lock(true);
    bus.call(service, session, interface, "Lock");
    bus.call(service, session, interface, "Unlock");
    runDry();
    EXPECT_THAT(states, ElementsAre(0)) << "a repeat and a request are no change";
    lock(false);
    run(2);
    lock(true);
    run(3);
    EXPECT_THAT(states, ElementsAre(0, 1, 0));
}

TEST_F(Login, theScreenSaverCountsToo) {
    token = status->observe([this] { states.push_back(status->state()); });
    runDry();
    sd_bus* connection = bus.connection();
    const auto active = [&](int on) {
        sd_bus_emit_signal(connection, "/org/gnome/ScreenSaver", "org.gnome.ScreenSaver",
                           "ActiveChanged", "b", on);
        sd_bus_flush(connection);
    };
    active(1);
    run(1);
    lock(true);
    active(0);
    runDry();
    EXPECT_THAT(states, ElementsAre(0)) << "the session is still locked";
    lock(false);
    run(2);
    EXPECT_THAT(states, ElementsAre(0, 1));
}

TEST(LinuxDisplayStatus, withoutABusNothingIsLocked) {
    TemporaryFolder nothing;
    const std::string address = "unix:path=" + nothing.path("none");
    setenv("DBUS_SYSTEM_BUS_ADDRESS", address.c_str(), 1);
    setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    const auto status = make<LinuxDisplayStatus>(0.01);
    bool told = false;
    const auto token = status->observe([&] { told = true; });
    for (int pass = 0; pass < 20; ++pass)
        NSRunLoop::mainRunLoop()->runPass(0.01);
    EXPECT_FALSE(told);
    EXPECT_EQ(status->state(), 1u);
}
