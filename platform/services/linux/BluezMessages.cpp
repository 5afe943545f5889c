#include "platform/services/linux/BluezMessages.h"

#include "platform/services/linux/BusReader.h"

namespace zn::bluez {
namespace {

/// The power among an interface's properties.
std::optional<bool> powered(BusReader& reader) {
    std::optional<bool> result;
    reader.dictionary("sv", [&] {
        if (reader.text() == "Powered")
            result = reader.booleanVariant();
        else
            reader.skip("v");
    });
    return result;
}

/// The power of the adapter among an object's interfaces; absent when it is no adapter.
std::optional<bool> adapterAmong(BusReader& reader) {
    std::optional<bool> result;
    reader.dictionary("sa{sv}", [&] {
        if (reader.text() == adapterInterface)
            result = powered(reader).value_or(false);
        else
            reader.skip("a{sv}");
    });
    return result;
}

}  // namespace

std::map<std::string, bool> adapters(const BusMessage& managedObjects) {
    std::map<std::string, bool> found;
    BusReader reader(managedObjects);
    reader.dictionary("oa{sa{sv}}", [&] {
        const std::string path(reader.text('o').value_or(""));
        if (const auto power = adapterAmong(reader))
            found[path] = *power;
    });
    return found;
}

std::optional<Adapter> added(const BusMessage& interfacesAdded) {
    BusReader reader(interfacesAdded);
    const std::string path(reader.text('o').value_or(""));
    const auto power = adapterAmong(reader);
    return power ? std::optional(Adapter{path, *power}) : std::nullopt;
}

std::optional<std::string> removed(const BusMessage& interfacesRemoved) {
    BusReader reader(interfacesRemoved);
    const std::string path(reader.text('o').value_or(""));
    bool isAdapter = false;
    reader.array("s", [&] { isAdapter = reader.text() == adapterInterface || isAdapter; });
    return isAdapter ? std::optional(path) : std::nullopt;
}

std::optional<bool> poweredChange(const BusMessage& propertiesChanged) {
    BusReader reader(propertiesChanged);
    if (reader.text() != adapterInterface)
        return std::nullopt;
    return powered(reader);
}

}  // namespace zn::bluez
