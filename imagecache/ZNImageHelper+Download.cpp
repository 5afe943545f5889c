#include <mutex>

#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/ZNImageHelper.h"
#include "zarnic/ZNQuickHelper.h"
#include "zarnic/platform/foundation/CFURL.h"
#include "zarnic/platform/foundation/Dispatch.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSLog.h"
#include "zarnic/platform/foundation/NSThread.h"
#include "zarnic/platform/services/NSURLConnection.h"

namespace zn {
namespace {

constexpr double timeout = 10;
/// How long a request that was put into the list without a signal waits at most, in seconds.
constexpr double longestIdling = 5;

void deliver(const ZNImageHelper::DownloadList& waiting, std::string_view key,
             const Ref<UIImage>& image) {
    for (const auto& model : waiting) {
        if (model->key() != key)
            continue;
        const auto view = model->imageView();
        if (view)
            view->setImage(image);
        if (model->completed())
            model->completed()(view, image);
    }
}

}  // namespace

void ZNImageHelper::downloadThreadInit() {
    for (int number = 1; number <= downloadThreadMaxNum_; ++number) {
        const auto thread = make<NSThread>(ZN_ACTION(ref(this), downloadThreadRun));
        thread->setName("ZNImageHelperDownloadThread:" + std::to_string(number) +
                        "(max:" + std::to_string(downloadThreadMaxNum_) + ")");
        thread->start();
    }
}

void ZNImageHelper::downloadThreadRun() {
    for (;;) {
        if (logEnable_)
            logMsg("*****【ZNImageHelper】downloadThreadRun:start:" +
                   NSThread::currentThread()->description());
        if (auto model = takeFromList())
            download(std::move(model));
        else
            waitForWork();
    }
}

Ref<ZNImageDownloadModel> ZNImageHelper::takeFromList() {
    const ObjectLock lock(downloadList_);
    return downloadList_->takeFirst();
}

/// Looks at the list once more: a signal that came since it was looked at is lost. Not to wait then
/// is no more than one of the wake-ups without a signal that a condition may have anyway.
void ZNImageHelper::waitForWork() {
    const std::lock_guard guard(*conditionLock_);
    if (downloadList_->empty())
        conditionLock_->idleUntilDate(NSDate::dateWithTimeIntervalSinceNow(longestIdling));
}

void ZNImageHelper::download(Ref<ZNImageDownloadModel> model) {
    const std::string key = model->key();
    logMsg("*****【ZNImageHelper】downloadImage[Key]:" + key);
    const Value data = downloadImageData(model->url());
    auto waiting = getBufDownloadingObjectByKey(key);
    deleteBufDownloadingObjectByKey(key);
    if (!zn_NotNull(data)) {
        // What the blocks hold, views perhaps, must not die on this thread.
        return dispatchMain([model = std::move(model), waiting = std::move(waiting)] {});
    }
    const auto image = UIImage::imageWithData(data.bytes());
    writeFile(key, data);
    setBufMemoryModelByKey(key, image);
    ZNQuickHelper::GCDPutOneBlockIntoMainThreadIsNew(
        true, 0, [model = std::move(model), waiting = std::move(waiting), key, image] {
            if (waiting)
                deliver(*waiting, key, image);
        });
}

Value ZNImageHelper::downloadImageData(std::optional<std::string_view> url) const {
    const auto encoded = urlEncodeToCN(url);
    return NSURLConnection::sendSynchronousRequest(make<NSURLRequest>(
        encoded ? NSURL::URLWithString(*encoded) : nullptr,
        NSURLRequestCachePolicy::ReloadIgnoringLocalAndRemoteCacheData, timeout));
}

std::optional<std::string> ZNImageHelper::urlEncodeToCN(std::optional<std::string_view> url) const {
    return url ? CFURLCreateStringByAddingPercentEscapes(*url, "%:/?#=", "") : std::nullopt;
}

void ZNImageHelper::logMsg(std::string_view text) const {
    if (logEnable_)
        NSLog("%.*s", static_cast<int>(text.size()), text.data());
}

}  // namespace zn
