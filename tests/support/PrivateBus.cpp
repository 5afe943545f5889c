#include "tests/support/PrivateBus.h"

#include <cstdlib>
#include <stdexcept>

namespace zn {
namespace {

constexpr const char* ofTheBus = "org.freedesktop.DBus";

void require(int result, const std::string& what) {
    if (result < 0)
        throw std::runtime_error(what + ": error " + std::to_string(-result));
}

}  // namespace

PrivateBus::PrivateBus() {
    const std::string socket = "unix:path=" + folder_.path("bus");
    daemon_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{"dbus-daemon", "--session", "--nofork", "--nopidfile",
                                 "--print-address=3", "--address=" + socket});
    const std::string address = daemon_->readLine();
    setenv("DBUS_SYSTEM_BUS_ADDRESS", address.c_str(), 1);
    setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    require(sd_bus_open_user(&connection_), "the bus");
    require(sd_bus_match_signal(connection_, nullptr, ofTheBus, nullptr, ofTheBus,
                                "NameOwnerChanged", nullptr, nullptr),
            "the match");
}

PrivateBus::~PrivateBus() {
    sd_bus_flush_close_unref(connection_);
    service_.reset();
}

void PrivateBus::startService(const std::string& mock, const std::string& name) {
    name_ = name;
    service_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{"/usr/bin/python3", "-m", "dbusmock", "--template", mock,
                                 "--logfile", folder_.path("log")});
    waitForName(true);
}

void PrivateBus::stopService() {
    service_.reset();
    waitForName(false);
}

/// Each change of a name on the bus ends a wait; a service that fails to start ends the test.
void PrivateBus::waitForName(bool wanted) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        sd_bus_message* answer = nullptr;
        int owned = 0;
        require(sd_bus_call_method(connection_, ofTheBus, "/", ofTheBus, "NameHasOwner", nullptr,
                                   &answer, "s", name_.c_str()),
                "NameHasOwner");
        require(sd_bus_message_read(answer, "b", &owned), "the answer");
        sd_bus_message_unref(answer);
        if ((owned != 0) == wanted)
            return;
        while (sd_bus_process(connection_, nullptr) > 0) {
        }
        sd_bus_wait(connection_, 200'000);
    }
    throw std::runtime_error("waited in vain for " + name_);
}

void PrivateBus::call(const std::string& service, const std::string& path,
                      const std::string& interface, const std::string& member,
                      const std::vector<std::string>& texts) {
    sd_bus_message* message = nullptr;
    require(sd_bus_message_new_method_call(connection_, &message, service.c_str(), path.c_str(),
                                           interface.c_str(), member.c_str()),
            member);
    for (const std::string& text : texts)
        sd_bus_message_append(message, "s", text.c_str());
    const int result = sd_bus_call(connection_, message, 0, nullptr, nullptr);
    sd_bus_message_unref(message);
    require(result, member);
}

void PrivateBus::setProperty(const std::string& service, const std::string& path,
                             const std::string& interface, const std::string& member, bool value) {
    require(sd_bus_set_property(connection_, service.c_str(), path.c_str(), interface.c_str(),
                                member.c_str(), nullptr, "b", value ? 1 : 0),
            member);
}

}  // namespace zn
