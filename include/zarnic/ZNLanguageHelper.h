#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSBundle.h"

namespace zn {

/// The application's language, which the user may choose apart from the device's. The choice is
/// kept in the user defaults and found again at the next start. The languages are numbered: 0 and
/// up are the main bundle's localizations in their order, -1 is the one that the device prefers.
///
/// Looking texts up is safe from any thread while another one switches: a look-up sees the old
/// language or the new one. Everything else is for one thread at a time. Before
/// `InitLanguageHelper` every call logs that and does nothing.
class ZN_EXPORT ZNLanguageHelper final : public NSObject {
    ZN_OBJECT(ZNLanguageHelper, NSObject)
public:
    using LanguageTable = std::map<std::int64_t, std::string>;

    /// Use `InitLanguageHelper`.
    ZNLanguageHelper();
    ~ZNLanguageHelper() override;

    /// Reads the main bundle's localizations and the stored choice, and loads that language.
    /// `tableName` is the strings file to look in, without its ending. Only the first call with a
    /// name has an effect, and none when `SharedInstance` was called before it.
    static void InitLanguageHelper(std::string_view tableName);

    /// The languages by number; absent before the initialisation.
    static std::optional<LanguageTable> AppLanguage();
    /// The number of a localization, never -1 for one that is there; -1 for one that is not.
    static std::int64_t LanguageCodeViaKey(std::string_view key);
    /// The chosen number; -1 follows the device.
    static std::int64_t LanguageCode();
    /// Chooses a language, stores the choice, loads the language and calls the block. A number
    /// that no language has, and an application without language folders, are logged and change
    /// nothing; the block is not called then.
    static void SetAppLanguageViaCode(std::int64_t code, const std::function<void()>& completion);
    /// The text under the key in the chosen language, or the key itself.
    static std::string GetStringByKey(std::string_view key);

    /// Made on first use, without languages.
    static Ref<ZNLanguageHelper> SharedInstance();
    /// Loads the folder `name.lproj` of the main bundle; without one nothing is loaded any more.
    static void ResetBundle(std::string_view name);
    /// The language alone (`en` of `en-US`), except that Chinese keeps its script and region.
    static std::string LanguageFormat(std::string_view language);

    const std::string& tableName() const { return tableName_; }
    void setTableName(std::string_view name) { tableName_ = name; }
    /// The chosen language's folder; null when there is none.
    Ref<NSBundle> bundle() const;
    void setBundle(const Ref<NSBundle>& bundle);
    /// Absent before the initialisation.
    const std::optional<LanguageTable>& appLanguage() const { return appLanguage_; }
    void setAppLanguage(std::optional<LanguageTable> languages);
    std::int64_t languageCode() const { return languageCode_; }
    void setLanguageCode(std::int64_t code) { languageCode_ = code; }

private:
    struct Bundles;
    void readLanguages();
    void readChoice();
    void storeChoice(std::int64_t code);

    std::string tableName_;
    std::optional<LanguageTable> appLanguage_;
    std::atomic<std::int64_t> languageCode_ = 0;
    /// The one in use, among those that are kept for readers that still look.
    std::atomic<NSBundle*> bundle_ = nullptr;
    std::unique_ptr<Bundles> bundles_;
};

}  // namespace zn
