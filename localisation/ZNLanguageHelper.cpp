#include "zarnic/ZNLanguageHelper.h"

#include <mutex>
#include <set>

#include "zarnic/platform/foundation/NSLog.h"
#include "zarnic/platform/foundation/NSString.h"
#include "zarnic/platform/foundation/NSUserDefaults.h"

namespace zn {
namespace {

constexpr const char* codeKey = "ZNLanguageHelper_ZNLanguageCode_Key";
constexpr const char* nameKey = "ZNLanguageHelper_ZNLanguageString_Key";
constexpr std::int64_t followDevice = -1;

std::atomic<ZNLanguageHelper*> madeInstance = nullptr;

/// The instance, without making it; says so when there is none.
ZNLanguageHelper* initialised() {
    ZNLanguageHelper* const instance = madeInstance;
    if (instance == nullptr)
        NSLog("【ZNLanguageHelper】未初始化！");
    return instance;
}

}  // namespace

/// Languages are few: each that was in use is kept, since a look-up may still be in it.
struct ZNLanguageHelper::Bundles {
    std::mutex mutex;
    std::set<Ref<NSBundle>> kept;
};

ZNLanguageHelper::ZNLanguageHelper() : bundles_(std::make_unique<Bundles>()) {}

ZNLanguageHelper::~ZNLanguageHelper() = default;

Ref<ZNLanguageHelper> ZNLanguageHelper::SharedInstance() {
    static const auto& instance = *new Ref<ZNLanguageHelper>([] {
        auto made = make<ZNLanguageHelper>();
        madeInstance = made.get();
        return made;
    }());
    return instance;
}

void ZNLanguageHelper::InitLanguageHelper(std::string_view tableName) {
    if (madeInstance != nullptr || tableName.empty())
        return;
    const auto instance = SharedInstance();
    instance->setTableName(tableName);
    instance->readLanguages();
    instance->readChoice();
}

void ZNLanguageHelper::readLanguages() {
    const auto bundle = NSBundle::mainBundle();
    const auto names = bundle->localizations();
    const std::string preferred = bundle->preferredLocalizations().front();
    LanguageTable languages;
    for (std::size_t index = 0; index < names.size(); ++index) {
        languages[static_cast<std::int64_t>(index)] = names[index];
        if (names[index] == preferred)
            languages[followDevice] = preferred;
    }
    if (!names.empty() && !languages.contains(followDevice))
        languages[followDevice] = names.front();
    setAppLanguage(std::move(languages));
}

/// Of the stored name only its presence counts: the language of the stored number is used.
void ZNLanguageHelper::readChoice() {
    const auto defaults = NSUserDefaults::standardUserDefaults();
    const std::int64_t code = defaults->objectForKey(codeKey).longLongValue();
    const Value name = defaults->objectForKey(nameKey);
    if (!name.string().empty() && appLanguage_->contains(code)) {
        setLanguageCode(code);
    } else {
        setLanguageCode(followDevice);
        storeChoice(followDevice);
    }
    const auto chosen = appLanguage_->find(languageCode());
    ResetBundle(chosen == appLanguage_->end() ? std::string() : chosen->second);
}

void ZNLanguageHelper::storeChoice(std::int64_t code) {
    const auto defaults = NSUserDefaults::standardUserDefaults();
    const auto name = appLanguage_->find(code);
    defaults->setObject(code, codeKey);
    defaults->setObject(name == appLanguage_->end() ? Value() : Value(name->second), nameKey);
    defaults->synchronize();
}

std::optional<ZNLanguageHelper::LanguageTable> ZNLanguageHelper::AppLanguage() {
    const ZNLanguageHelper* const instance = initialised();
    return instance != nullptr ? instance->appLanguage() : std::nullopt;
}

/// The entry that follows the device is never the answer: what it names has a number of its own.
std::int64_t ZNLanguageHelper::LanguageCodeViaKey(std::string_view key) {
    const ZNLanguageHelper* const instance = initialised();
    if (instance == nullptr || !instance->appLanguage_)
        return followDevice;
    for (const auto& [code, name] : *instance->appLanguage_) {
        if (name == key && code != followDevice)
            return code;
    }
    return followDevice;
}

std::int64_t ZNLanguageHelper::LanguageCode() {
    const ZNLanguageHelper* const instance = initialised();
    return instance != nullptr ? instance->languageCode() : followDevice;
}

void ZNLanguageHelper::SetAppLanguageViaCode(std::int64_t code,
                                             const std::function<void()>& completion) {
    ZNLanguageHelper* const instance = initialised();
    if (instance == nullptr)
        return;
    if (instance->bundle_ == nullptr) {
        NSLog("【ZNLanguageHelper】语言文件未本地化！");
        return;
    }
    if (!instance->appLanguage_ || !instance->appLanguage_->contains(code)) {
        NSLog("【ZNLanguageHelper】该语言类型码不存在！");
        return;
    }
    instance->setLanguageCode(code);
    instance->storeChoice(code);
    ResetBundle(instance->appLanguage_->at(code));
    if (completion)
        completion();
}

std::string ZNLanguageHelper::GetStringByKey(std::string_view key) {
    const ZNLanguageHelper* const instance = initialised();
    const NSBundle* const bundle = instance != nullptr ? instance->bundle_.load() : nullptr;
    if (bundle == nullptr)
        return std::string(key);
    return bundle->localizedStringForKey(key, "", instance->tableName_);
}

void ZNLanguageHelper::ResetBundle(std::string_view name) {
    const auto path = NSBundle::mainBundle()->pathForResource(name, "lproj");
    SharedInstance()->setBundle(path ? NSBundle::bundleWithPath(*path) : nullptr);
}

std::string ZNLanguageHelper::LanguageFormat(std::string_view language) {
    const auto hyphen = language.find('-');
    if (language.find("zh-") != language.npos || hyphen == language.npos)
        return std::string(language);
    return std::string(language.substr(0, hyphen));
}

Ref<NSBundle> ZNLanguageHelper::bundle() const {
    NSBundle* const bundle = bundle_;
    return bundle != nullptr ? ref(bundle) : nullptr;
}

void ZNLanguageHelper::setBundle(const Ref<NSBundle>& bundle) {
    {
        std::lock_guard guard(bundles_->mutex);
        bundles_->kept.insert(bundle);
    }
    bundle_ = bundle.get();
}

void ZNLanguageHelper::setAppLanguage(std::optional<LanguageTable> languages) {
    appLanguage_ = std::move(languages);
}

}  // namespace zn
