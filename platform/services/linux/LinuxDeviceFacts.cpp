#include "platform/services/linux/LinuxDeviceFacts.h"

#include <sys/utsname.h>

#include <algorithm>

#include "platform/foundation/files/FileBytes.h"
#include "platform/services/linux/PowerSupply.h"
#include "platform/services/linux/VendorIdentifier.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

utsname machine() {
    utsname names{};
    uname(&names);
    return names;
}

std::string trimmedFile(const std::string& path) {
    std::string text = fileBytes(path).value_or("");
    // Device tree texts end with a zero.
    std::erase(text, '\0');
    return std::string(stringByTrimmingWhitespaceAndNewlines(text));
}

/// A value of an os-release file without its quotes and escapes (os-release(5)).
std::string unquoted(std::string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    if (quoted)
        value = value.substr(1, value.size() - 2);
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\\' && i + 1 < value.size())
            ++i;
        text += value[i];
    }
    return text;
}

}  // namespace

LinuxDeviceFacts::LinuxDeviceFacts(std::string applicationIdentifier, std::string root)
    : applicationIdentifier_(std::move(applicationIdentifier)), root_(std::move(root)) {}

std::string LinuxDeviceFacts::machineIdentifier() const {
    return machine().machine;
}

std::string LinuxDeviceFacts::name() const {
    return machine().nodename;
}

std::string LinuxDeviceFacts::model() const {
    for (const auto* file : {"/proc/device-tree/model", "/sys/class/dmi/id/product_name"}) {
        std::string model = trimmedFile(root_ + file);
        if (!model.empty())
            return model;
    }
    return machineIdentifier();
}

std::string LinuxDeviceFacts::systemName() const {
    const std::string name = osRelease("NAME");
    return name.empty() ? machine().sysname : name;
}

/// A rolling system names no version: the kernel's stands in.
std::string LinuxDeviceFacts::systemVersion() const {
    const std::string version = osRelease("VERSION_ID");
    return version.empty() ? machine().release : version;
}

std::optional<std::string> LinuxDeviceFacts::identifierForVendor() const {
    return vendorIdentifier(trimmedFile(root_ + "/etc/machine-id"), applicationIdentifier_);
}

BatteryReading LinuxDeviceFacts::battery() const {
    return readPowerSupply(root_ + "/sys/class/power_supply");
}

std::string LinuxDeviceFacts::osRelease(std::string_view key) const {
    auto text = fileBytes(root_ + "/etc/os-release");
    if (!text)
        text = fileBytes(root_ + "/usr/lib/os-release");
    const std::string start = std::string(key) + "=";
    for (const auto& line : componentsSeparatedByString(text.value_or(""), "\n")) {
        if (line.starts_with(start))
            return unquoted(
                stringByTrimmingWhitespaceAndNewlines(std::string_view(line).substr(start.size())));
    }
    return {};
}

}  // namespace zn
