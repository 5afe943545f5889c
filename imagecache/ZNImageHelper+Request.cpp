#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/NSString+ZNCategory.h"
#include "zarnic/ZNImageHelper.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSUserDefaults.h"

namespace zn {
namespace {

constexpr const char* unreadableName = "TKImageHelper_Unbelievable";

void showPlaceholder(const Ref<UIImageView>& view, const Ref<UIImage>& placeholder,
                     const ZNImageHelper::Completed& completed) {
    if (!view || !placeholder)
        return;
    view->setImage(placeholder);
    if (completed)
        completed(view, nullptr);
}

}  // namespace

struct ZNImageHelper::Request {
    const Ref<UIImageView>& view;
    const Ref<UIImage>& placeholder;
    std::string_view url;
    std::string key;
    Completed completed;

    void fill(const Ref<UIImage>& image) const {
        if (view)
            view->setImage(image);
        if (completed)
            completed(view, image);
    }
};

void ZNImageHelper::downloadImageFillView(const Ref<UIImageView>& view,
                                          const Ref<UIImage>& placeholderImage, const Value& url,
                                          Completed completed) {
    if (!zn_NotNull(url))
        return showPlaceholder(view, placeholderImage, completed);
    if (!url.isString())
        throw NSException(NSInvalidArgumentException, "the URL of an image is a text");
    const Request request{view, placeholderImage, url.string(),
                          zn::zn_EncryptMD5(url.string()).value(), std::move(completed)};
    if (!fillFromMemory(request) && !fillFromFile(request))
        queue(request);
}

bool ZNImageHelper::fillFromMemory(const Request& request) {
    const auto entry = getBufMemoryModelByKey(request.key);
    if (!entry)
        return false;
    entry->setLastCallTime(Clock::shared().now());
    // On purpose the block is not called without a view.
    if (request.view)
        request.fill(entry->image());
    return true;
}

bool ZNImageHelper::fillFromFile(const Request& request) {
    if (!existsFile(request.key))
        return false;
    const auto image = UIImage::imageWithData(readFile(request.key).bytes());
    if (!image) {
        recordUnreadable(request.key);
        deleteFilePath(request.key);
        return false;
    }
    setBufMemoryModelByKey(request.key, image);
    request.fill(image);
    return true;
}

void ZNImageHelper::recordUnreadable(std::string_view key) {
    const auto defaults = NSUserDefaults::standardUserDefaults();
    {
        const ObjectLock lock(defaults);
        const Value recorded = defaults->arrayForKey(unreadableName);
        Array keys = recorded.absent() ? Array() : recorded.array().mutableCopy();
        keys.add(key);
        defaults->setObject(keys.copy(), unreadableName);
    }
    defaults->synchronize();
    logMsg("*****【ZNImageHelper】Warning!!! - TKImageHelper_Unbelievable[Key]:" +
           std::string(key));
}

void ZNImageHelper::queue(const Request& request) {
    const auto model = make<ZNImageDownloadModel>();
    model->setKey(request.key);
    model->setImageView(request.view);
    model->setUrl(request.url);
    model->setPlaceholderImage(request.placeholder);
    model->setCompleted(request.completed);
    const bool wasWaiting = joinWaiting(model);
    if (request.placeholder && request.view)
        request.view->setImage(request.placeholder);
    if (wasWaiting)
        return;
    {
        const ObjectLock lock(downloadList_);
        downloadList_->addObject(model);
    }
    const std::lock_guard guard(*conditionLock_);
    conditionLock_->signal();
}

/// Asks and joins under one lock: a download that ends in between would leave the request behind.
bool ZNImageHelper::joinWaiting(const Ref<ZNImageDownloadModel>& model) {
    const ObjectLock lock(bufDownloading_);
    const bool wasWaiting = isBufDownloadingObjectByKey(model->key());
    setBufDownloadingObjectByKey(model->key(), model);
    return wasWaiting;
}

void ZNImageHelper::setBufDownloadingObjectByKey(std::string_view key,
                                                 const Ref<ZNImageDownloadModel>& downloadModel) {
    const ObjectLock lock(bufDownloading_);
    auto waiting = bufDownloading_->objectForKey(key);
    if (!waiting) {
        waiting = make<DownloadList>();
        bufDownloading_->setObjectForKey(waiting, key);
    }
    waiting->addObject(downloadModel);
}

Ref<ZNImageHelper::DownloadList> ZNImageHelper::getBufDownloadingObjectByKey(
    std::string_view key) const {
    const ObjectLock lock(bufDownloading_);
    return bufDownloading_->objectForKey(key);
}

void ZNImageHelper::deleteBufDownloadingObjectByKey(std::string_view key) {
    const ObjectLock lock(bufDownloading_);
    bufDownloading_->removeObjectForKey(key);
}

bool ZNImageHelper::isBufDownloadingObjectByKey(std::string_view key) const {
    const ObjectLock lock(bufDownloading_);
    return bufDownloading_->contains(key);
}

}  // namespace zn
