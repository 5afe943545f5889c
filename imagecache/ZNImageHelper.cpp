#include "zarnic/ZNImageHelper.h"

namespace zn {
namespace {

constexpr const char* logEnableName = "logEnable";
constexpr const char* cachesMaxSizeName = "cachesMaxSize";
constexpr const char* threadMaxNumName = "threadMaxNum";

}  // namespace

ZNImageHelper::ZNImageHelper() = default;

ZNImageHelper::~ZNImageHelper() = default;

void ZNImageHelper::init() {
    NSObject::init();
    configSettings_ = Dictionary{
        {logEnableName, false}, {cachesMaxSizeName, 40'000'000.0F}, {threadMaxNumName, 8}};
    applySetting(logEnableName);
    applySetting(cachesMaxSizeName);
    memorySize_ = 0;
    bufMemory_ = make<ZNBufMemoryDictionary>();
    conditionLock_ = make<NSCondition>();
    applySetting(threadMaxNumName);
    downloadList_ = make<DownloadList>();
    bufDownloading_ = make<Waiting>();
    downloadThreadInit();
}

Ref<ZNImageHelper> ZNImageHelper::SharedInstance() {
    static const auto& instance = *new Ref<ZNImageHelper>(make<ZNImageHelper>());
    return instance;
}

Value ZNImageHelper::ConfigSettings(const Value& settings) {
    const auto helper = SharedInstance();
    if (!settings.isDictionary() || settings.dictionary().empty())
        return helper->configSettings_.copy();
    for (const char* name : {logEnableName, cachesMaxSizeName, threadMaxNumName})
        helper->takeSetting(settings.dictionary(), name);
    return helper->configSettings_;
}

void ZNImageHelper::takeSetting(const Dictionary& settings, std::string_view name) {
    const Value& value = settings[name];
    if (!value.isNumber())
        return;
    configSettings_.set(name, value);
    applySetting(name);
}

void ZNImageHelper::applySetting(std::string_view name) {
    const Value& value = configSettings_[name];
    if (name == logEnableName)
        logEnable_ = value.intValue() != 0;
    else if (name == cachesMaxSizeName)
        memoryMaxSize_ = value.longLongValue();
    else
        downloadThreadMaxNum_ = value.intValue();
}

std::int64_t ZNImageHelper::GetAllCachesSize() {
    return SharedInstance()->getAllCachesSize();
}

void ZNImageHelper::DeleteAllCachesCompleted(const Deleted& completed) {
    SharedInstance()->deleteAllCachesCompleted(completed);
}

void ZNImageHelper::DownloadImageFillView(const Ref<UIImageView>& view, const Value& url) {
    DownloadImageFillView(view, nullptr, url, nullptr);
}

void ZNImageHelper::DownloadImageFillView(const Ref<UIImageView>& view,
                                          const Ref<UIImage>& placeholderImage, const Value& url) {
    DownloadImageFillView(view, placeholderImage, url, nullptr);
}

void ZNImageHelper::DownloadImageFillView(const Ref<UIImageView>& view,
                                          const Ref<UIImage>& placeholderImage, const Value& url,
                                          Completed completed) {
    SharedInstance()->downloadImageFillView(view, placeholderImage, url, std::move(completed));
}

}  // namespace zn
