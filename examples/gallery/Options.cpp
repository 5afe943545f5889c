#include "Options.h"

#include <cstdio>

#include "Page.h"

using namespace zn;

namespace gallery {
namespace {

std::string deviceNames() {
    std::string names;
    for (const DeviceProfile& each : DeviceProfile::all())
        names += (names.empty() ? "" : ", ") + each.name;
    return names;
}

/// Takes the value of an option that needs one; says so when there is none.
const std::string* valueOf(std::span<const std::string> arguments, std::size_t& index,
                           std::optional<std::string>& error) {
    if (index + 1 < arguments.size())
        return &arguments[++index];
    error = arguments[index] + " needs a value";
    return nullptr;
}

void takePage(const std::string& name, ParsedOptions& parsed) {
    if (pageNamed(name) == nullptr)
        parsed.error = "there is no page " + name + "; --list names them";
    parsed.options.page = name;
}

void takeURL(const std::string& text, ParsedOptions& parsed) {
    parsed.options.open = NSURL::URLWithString(text);
    if (!parsed.options.open)
        parsed.error = text + " is no URL";
}

void takeDevice(const std::string& name, ParsedOptions& parsed) {
    if (const DeviceProfile* profile = DeviceProfile::named(name))
        parsed.options.device = *profile;
    else
        parsed.error = "there is no device " + name + "; there are " + deviceNames();
}

void take(std::span<const std::string> arguments, std::size_t& index, ParsedOptions& parsed) {
    const std::string& argument = arguments[index];
    if (argument == "--list")
        parsed.options.list = true;
    else if (argument == "--help" || argument == "-h")
        parsed.options.help = true;
    else if (argument == "--shot")
        parsed.options.mode = Options::Mode::Shot;
    else if (argument == "--window")
        parsed.options.mode = Options::Mode::Window;
    else if (argument == "--page") {
        if (const std::string* name = valueOf(arguments, index, parsed.error))
            takePage(*name, parsed);
    } else if (argument == "--open") {
        if (const std::string* url = valueOf(arguments, index, parsed.error))
            takeURL(*url, parsed);
    } else if (argument == "--device") {
        if (const std::string* name = valueOf(arguments, index, parsed.error))
            takeDevice(*name, parsed);
    } else
        parsed.error = "unknown argument " + argument;
}

std::string column(std::string text, std::size_t width) {
    text.resize(std::max(text.size() + 1, width), ' ');
    return text;
}

std::string sizeOf(const DeviceProfile& device) {
    char text[64];
    std::snprintf(text, sizeof text, "%g x %g points at %g pixels each", device.size.width,
                  device.size.height, device.scale);
    return text;
}

}  // namespace

ParsedOptions parseOptions(std::span<const std::string> arguments) {
    ParsedOptions parsed;
    parsed.options.device = DeviceProfile::all().front();
    if (const DeviceProfile* phone = DeviceProfile::named("phone"))
        parsed.options.device = *phone;
    for (std::size_t index = 0; index < arguments.size() && !parsed.error; ++index)
        take(arguments, index, parsed);
    return parsed;
}

std::string usage() {
    return "usage: run [--list] [--page NAME] [--open URL] [--device NAME] [--shot | --window]\n"
           "  --list         name the pages and the devices\n"
           "  --page NAME    show this page only\n"
           "  --open URL     open the screen that the URL names, as /DetailPage?id=7\n"
           "  --device NAME  on this device: " +
           deviceNames() +
           "\n"
           "  --shot         draw pictures, even where there is a display\n"
           "  --window       open a window, or fail where there is no display\n";
}

std::string listing() {
    std::string text = "Pages:\n";
    for (const Page& page : pages())
        text += "  " + column(page.name, 20) + page.summary + "\n";
    text += "Devices:\n";
    for (const DeviceProfile& device : DeviceProfile::all())
        text += "  " + column(device.name, 20) + sizeOf(device) +
                (device.machine.empty() ? "" : ", " + device.machine) + "\n";
    return text;
}

}  // namespace gallery
