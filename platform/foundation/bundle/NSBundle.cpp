#include "zarnic/platform/foundation/NSBundle.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <mutex>

#include "platform/foundation/bundle/BundleState.h"
#include "platform/foundation/bundle/Folders.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

bool isFolder(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

bool isFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

std::string mainBundlePath() {
    if (const char* path = std::getenv("ZARNIC_BUNDLE"); path != nullptr && *path != '\0')
        return stringByAppendingPathComponent(path, "");
    const std::string program = programPath();
    const std::string beside = program + ".app";
    if (isFolder(beside))
        return beside;
    return std::filesystem::path(program).parent_path().parent_path() / "share" / programName();
}

}  // namespace

NSBundle::NSBundle(std::string path) : path_(std::move(path)), state_(std::make_unique<State>()) {}

NSBundle::~NSBundle() = default;

Ref<NSBundle> NSBundle::mainBundle() {
    static const auto& bundle = *new Ref<NSBundle>([] {
        const std::string path = mainBundlePath();
        const auto existing = bundleWithPath(path);
        return existing ? existing : make<NSBundle>(path);
    }());
    return bundle;
}

Ref<NSBundle> NSBundle::bundleWithPath(std::string_view path) {
    static auto& mutex = *new std::mutex;
    static auto& bundles = *new std::map<std::string, Ref<NSBundle>>;
    const std::string plain = stringByAppendingPathComponent(path, "");
    if (!isFolder(plain))
        return nullptr;
    std::lock_guard guard(mutex);
    auto& bundle = bundles[plain];
    if (!bundle)
        bundle = make<NSBundle>(plain);
    return bundle;
}

std::string NSBundle::bundleIdentifier() const {
    return std::string(objectForInfoDictionaryKey("CFBundleIdentifier").string());
}

Dictionary NSBundle::infoDictionary() const {
    std::call_once(state_->infoRead, [this] {
        const Value info = NSPropertyListSerialization::propertyListWithContentsOfFile(
            stringByAppendingPathComponent(path_, "Info.plist"));
        state_->info = info.isDictionary() ? info.dictionary() : Dictionary().copy();
    });
    return state_->info;
}

std::optional<std::string> NSBundle::pathForResource(std::string_view name,
                                                     std::string_view type) const {
    if (name.empty())
        return std::nullopt;
    std::string path = stringByAppendingPathComponent(path_, name);
    if (!type.empty())
        path.append(".").append(type);
    return isFile(path) || isFolder(path) ? std::optional(path) : std::nullopt;
}

std::optional<NSBundle::ScaledResource> NSBundle::pathForScaledResource(std::string_view name,
                                                                        std::string_view type,
                                                                        int scale) const {
    constexpr int largestScale = 3;
    const auto found = [&](int candidate) -> std::optional<ScaledResource> {
        std::string scaled(name);
        if (candidate > 1 && !name.empty())
            scaled.append("@").append(std::to_string(candidate)).append("x");
        const auto path = pathForResource(scaled, type);
        return path ? std::optional(ScaledResource{*path, candidate}) : std::nullopt;
    };
    const int wanted = std::clamp(scale, 1, largestScale);
    for (int candidate = wanted; candidate <= largestScale; ++candidate) {
        if (auto resource = found(candidate))
            return resource;
    }
    for (int candidate = wanted - 1; candidate >= 1; --candidate) {
        if (auto resource = found(candidate))
            return resource;
    }
    return std::nullopt;
}

}  // namespace zn
