#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"

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

    /// `CFBundleDevelopmentRegion`, or empty.
    std::string developmentLocalization() const;
    /// Those that `Info.plist` lists, then the names of the `.lproj` folders in ascending order,
    /// then the development region when there is only a base; only the development region when
    /// there is nothing else. A name may come twice.
    std::vector<std::string> localizations() const;
    /// The localizations that suit the user's languages, best first; at least one.
    std::vector<std::string> preferredLocalizations() const;
    /// The text under the key in the strings file `table` (empty: `Localizable`), which may be
    /// empty; for a key that is not there `value`, or the key itself when that is empty. The file
    /// is read once: that of the preferred localization, of the base, or directly in the bundle. A
    /// file that cannot be read is logged once and has no keys.
    std::string localizedStringForKey(std::string_view key, std::string_view value,
                                      std::string_view table) const;

private:
    struct State;
    std::string path_;
    std::unique_ptr<State> state_;
};

}  // namespace zn
