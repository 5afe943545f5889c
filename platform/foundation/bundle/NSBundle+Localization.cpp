#include <algorithm>
#include <filesystem>

#include "platform/foundation/bundle/BundleState.h"
#include "platform/foundation/text/LocaleNames.h"
#include "zarnic/platform/foundation/NSBundle.h"
#include "zarnic/platform/foundation/NSLocale.h"

namespace zn {
namespace {

constexpr std::string_view base = "Base";
constexpr std::string_view folderEnding = ".lproj";

std::vector<std::string> localizedFolders(const std::string& bundle) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator folder(bundle, error), end; !error && folder != end;
         folder.increment(error)) {
        const std::string name = folder->path().filename();
        std::error_code unknown;
        if (name.size() > folderEnding.size() && name.ends_with(folderEnding) &&
            folder->is_directory(unknown))
            names.push_back(name.substr(0, name.size() - folderEnding.size()));
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace

std::string NSBundle::developmentLocalization() const {
    return std::string(objectForInfoDictionaryKey("CFBundleDevelopmentRegion").string());
}

std::vector<std::string> NSBundle::localizations() const {
    std::vector<std::string> names;
    const Value listed = objectForInfoDictionaryKey("CFBundleLocalizations");
    if (listed.isArray()) {
        for (const Value& name : listed.array()) {
            if (name.isString() && !name.string().empty())
                names.emplace_back(name.string());
        }
    }
    for (std::string& folder : localizedFolders(path_))
        names.push_back(std::move(folder));
    const std::string region = developmentLocalization();
    const bool onlyBase = std::ranges::find(names, base) != names.end() &&
                          std::ranges::none_of(names, [&](const std::string& name) {
                              return sameLocalization(name, region);
                          });
    if (!region.empty() && (names.empty() || onlyBase))
        names.push_back(region);
    return names;
}

std::vector<std::string> NSBundle::preferredLocalizations() const {
    return zn::preferredLocalizations(localizations(), preferredLanguages(),
                                      developmentLocalization());
}

std::string NSBundle::localizedStringForKey(std::string_view key, std::string_view value,
                                            std::string_view table) const {
    const auto found = state_->tables.named(*this, table.empty() ? "Localizable" : table).find(key);
    if (found)
        return std::string(*found);
    return std::string(value.empty() ? key : value);
}

}  // namespace zn
