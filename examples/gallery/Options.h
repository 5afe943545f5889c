#pragma once

#include <zarnic/platform/foundation/NSURL.h>
#include <zarnic/platform/uikit/UIScreen.h>

#include <optional>
#include <span>
#include <string>

namespace gallery {

/// What the command line asked for.
struct Options {
    enum class Mode { Automatic, Window, Shot };

    Mode mode = Mode::Automatic;
    bool list = false;
    bool help = false;
    /// Empty for all of them.
    std::string page;
    /// The URL of a screen to open; null for none.
    zn::Ref<zn::NSURL> open;
    zn::DeviceProfile device;
};

/// The options, or what is wrong with the arguments.
struct ParsedOptions {
    Options options;
    std::optional<std::string> error;
};

ParsedOptions parseOptions(std::span<const std::string> arguments);
std::string usage();
/// Pages and devices, a line each.
std::string listing();

}  // namespace gallery
