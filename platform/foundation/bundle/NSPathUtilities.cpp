#include "zarnic/platform/foundation/NSPathUtilities.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "platform/foundation/bundle/Folders.h"
#include "zarnic/platform/foundation/NSBundle.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::string userHome() {
    const std::string home = environment("HOME");
    if (!home.empty())
        return home;
    const auto* user = getpwuid(getuid());
    return user == nullptr ? "/" : user->pw_dir;
}

/// An XDG base folder with the application's own in it; relative settings are ignored, as the XDG
/// base directory specification demands.
std::string applicationFolder(const char* variable, const char* underHome) {
    std::string base = environment(variable);
    if (!base.starts_with('/'))
        base = stringByAppendingPathComponent(userHome(), underHome);
    return stringByAppendingPathComponent(base, applicationIdentifier());
}

std::string dataFolder(const char* name) {
    const std::string home = environment("ZARNIC_HOME");
    return stringByAppendingPathComponent(
        home.empty() ? applicationFolder("XDG_DATA_HOME", ".local/share") : home, name);
}

std::string folder(NSSearchPathDirectory directory) {
    switch (directory) {
        case NSSearchPathDirectory::Library:
            return dataFolder("Library");
        case NSSearchPathDirectory::Document:
            return dataFolder("Documents");
        case NSSearchPathDirectory::Caches:
            return environment("ZARNIC_HOME").empty()
                       ? applicationFolder("XDG_CACHE_HOME", ".cache")
                       : dataFolder("Library/Caches");
        case NSSearchPathDirectory::ApplicationSupport:
            return dataFolder("Library/Application Support");
    }
    return {};
}

/// A folder that cannot be made shows when it is used.
void makeFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
}

}  // namespace

std::string programPath() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

std::string programName() {
    const std::string path = programPath();
    return path.substr(path.rfind('/') + 1);
}

std::string applicationIdentifier() {
    std::string identifier = NSBundle::mainBundle()->bundleIdentifier();
    if (identifier.empty() || identifier == "." || identifier == "..")
        identifier = programName();
    std::ranges::replace(identifier, '/', '-');
    return identifier;
}

std::string userDefaultsPath() {
    const std::string folder = environment("ZARNIC_HOME").empty()
                                   ? applicationFolder("XDG_CONFIG_HOME", ".config")
                                   : dataFolder("Library/Preferences");
    makeFolder(folder);
    return stringByAppendingPathComponent(folder, "defaults.plist");
}

std::vector<std::string> NSSearchPathForDirectoriesInDomains(std::int64_t directory,
                                                             std::uint64_t domainMask) {
    const std::string path = folder(static_cast<NSSearchPathDirectory>(directory));
    if (path.empty() || (domainMask & NSUserDomainMask) == 0)
        return {};
    makeFolder(path);
    return {path};
}

}  // namespace zn
