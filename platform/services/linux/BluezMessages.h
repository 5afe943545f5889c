#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/services/linux/Bus.h"

namespace zn {

/// What BlueZ's messages say of adapters. A message of another form says nothing.
namespace bluez {

inline constexpr const char* service = "org.bluez";
inline constexpr const char* adapterInterface = "org.bluez.Adapter1";

/// The adapters of an answer to `GetManagedObjects`, each with its power.
std::map<std::string, bool> adapters(const BusMessage& managedObjects);

struct Adapter {
    std::string path;
    bool powered = false;
};
/// The adapter that `InterfacesAdded` is about; absent when it is about something else.
std::optional<Adapter> added(const BusMessage& interfacesAdded);
/// The adapter that `InterfacesRemoved` is about.
std::optional<std::string> removed(const BusMessage& interfacesRemoved);
/// What `PropertiesChanged` says of an adapter's power; absent when nothing.
std::optional<bool> poweredChange(const BusMessage& propertiesChanged);

}  // namespace bluez
}  // namespace zn
