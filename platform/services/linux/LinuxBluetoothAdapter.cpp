#include "platform/services/linux/LinuxBluetoothAdapter.h"

#include <algorithm>
#include <string_view>

#include "platform/services/linux/BluezMessages.h"
#include "platform/services/linux/BusReader.h"

namespace zn {
namespace {

constexpr std::string_view fromBluez = "type='signal',sender='org.bluez',";

std::string signal(std::string_view interface, std::string_view member) {
    return std::string(fromBluez)
        .append("interface='")
        .append(interface)
        .append("',member='")
        .append(member)
        .append("'");
}

}  // namespace

LinuxBluetoothAdapter::LinuxBluetoothAdapter() : LinuxBluetoothAdapter(Timing()) {}

LinuxBluetoothAdapter::LinuxBluetoothAdapter(Timing timing) : timing_(timing) {}

LinuxBluetoothAdapter::~LinuxBluetoothAdapter() = default;

void LinuxBluetoothAdapter::begin() {
    connect();
}

void LinuxBluetoothAdapter::connect() {
    bus_ = Bus::open(Bus::Kind::System, [this] { lose(); });
    if (!bus_) {
        announce(CBManagerState::Unsupported);
        later_ = callLater(timing_.retry, [this] { connect(); });
        return;
    }
    bus_->subscribe(
        "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',"
        "arg0='org.bluez'",
        [this](const BusMessage& message) { serviceChanged(message); });
    bus_->subscribe(signal("org.freedesktop.DBus.Properties", "PropertiesChanged"),
                    [this](const BusMessage& message) { adapterChanged(message); });
    bus_->subscribe(signal("org.freedesktop.DBus.ObjectManager", "InterfacesAdded"),
                    [this](const BusMessage& message) { interfacesAdded(message); });
    bus_->subscribe(signal("org.freedesktop.DBus.ObjectManager", "InterfacesRemoved"),
                    [this](const BusMessage& message) { interfacesRemoved(message); });
    ask();
}

/// The bus itself has gone, with everything on it.
void LinuxBluetoothAdapter::lose() {
    if (answered_)
        announce(CBManagerState::Resetting);
    answered_ = false;
    adapters_.clear();
    bus_.reset();
    later_ = callLater(std::min(timing_.grace, timing_.retry), [this] { connect(); });
}

void LinuxBluetoothAdapter::ask() {
    answered_ = false;
    bus_->call({bluez::service, "/", "org.freedesktop.DBus.ObjectManager", "GetManagedObjects"}, {},
               [this, question = ++question_](const BusMessage& answer) {
                   if (question == question_)
                       take(answer);
               });
}

void LinuxBluetoothAdapter::take(const BusMessage& objects) {
    if (!objects.succeeded()) {
        const bool denied = objects.errorName() == "org.freedesktop.DBus.Error.AccessDenied";
        announce(denied ? CBManagerState::Unauthorized : CBManagerState::Unsupported);
        return;
    }
    answered_ = true;
    adapters_ = bluez::adapters(objects);
    announceFound();
}

void LinuxBluetoothAdapter::serviceChanged(const BusMessage& message) {
    BusReader reader(message);
    reader.text();
    const bool wasThere = !reader.text().value_or("").empty();
    const bool isThere = !reader.text().value_or("").empty();
    if (isThere) {
        later_.reset();
        ask();
        return;
    }
    ++question_;
    answered_ = false;
    adapters_.clear();
    if (!wasThere)
        return;
    announce(CBManagerState::Resetting);
    later_ = callLater(timing_.grace, [this] { announce(CBManagerState::Unsupported); });
}

void LinuxBluetoothAdapter::adapterChanged(const BusMessage& message) {
    const auto adapter = adapters_.find(sd_bus_message_get_path(message.get()));
    const auto powered = bluez::poweredChange(message);
    if (!answered_ || adapter == adapters_.end() || !powered)
        return;
    adapter->second = *powered;
    announceFound();
}

void LinuxBluetoothAdapter::interfacesAdded(const BusMessage& message) {
    const auto adapter = bluez::added(message);
    if (!answered_ || !adapter)
        return;
    adapters_[adapter->path] = adapter->powered;
    announceFound();
}

void LinuxBluetoothAdapter::interfacesRemoved(const BusMessage& message) {
    const auto path = bluez::removed(message);
    if (!answered_ || !path)
        return;
    adapters_.erase(*path);
    announceFound();
}

void LinuxBluetoothAdapter::announceFound() {
    const bool powered =
        std::ranges::any_of(adapters_, [](const auto& adapter) { return adapter.second; });
    if (adapters_.empty())
        announce(CBManagerState::Unsupported);
    else
        announce(powered ? CBManagerState::PoweredOn : CBManagerState::PoweredOff);
}

}  // namespace zn
