#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/Class.h"
#include "zarnic/platform/Value.h"

namespace zn {

/// A folder of resources. Safe from any thread.
class ZN_EXPORT NSBundle final : public NSObject {
    ZN_OBJECT(NSBundle, NSObject)
public:
    /// See `bundleWithPath`.
    explicit NSBundle(std::string path);
    ~NSBundle() override;

    /// `$ZARNIC_BUNDLE`, else `NAME.app` beside the program, else `../share/NAME` from it; with
    /// none of them there, a bundle without resources. Looked up once.
    static Ref<NSBundle> mainBundle();
    /// The bundle of an existing folder, the same object each time; null for anything else.
    static Ref<NSBundle> bundleWithPath(std::string_view path);

    const std::string& bundlePath() const { return path_; }
    /// `CFBundleIdentifier`, or empty.
    std::string bundleIdentifier() const;
    /// `Info.plist`, read on first use; empty when it is missing or no dictionary.
    Dictionary infoDictionary() const;
    Value objectForInfoDictionaryKey(std::string_view key) const { return infoDictionary()[key]; }

    /// The file `name.type`, or `name` when the type is empty; the name may lead into folders.
    std::optional<std::string> pathForResource(std::string_view name, std::string_view type) const;

    struct ScaledResource {
        std::string path;
        int scale;
    };
    /// The same for pictures: the file for the scale (`name@2x.type`), else for the next larger
    /// one, else for the largest smaller one.
    std::optional<ScaledResource> pathForScaledResource(std::string_view name,
                                                        std::string_view type, int scale) const;

private:
    struct State;
    std::string path_;
    std::unique_ptr<State> state_;
};

}  // namespace zn
