#include "zarnic/ZNFileHelper.h"
#include "zarnic/ZNImageHelper.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

constexpr const char* folderName = "ZNImageCaches";
constexpr double pauseWithoutChange = 0.001;

bool exceeds(std::int64_t used, std::int64_t added, std::int64_t limit) {
    std::int64_t sum = 0;
    return __builtin_add_overflow(used, added, &sum) || sum > limit;
}

}  // namespace

std::int64_t ZNImageHelper::getImageSize(const Ref<UIImage>& image) const {
    return image ? image->jpegByteCount() : 0;
}

void ZNImageHelper::setBufMemoryModelByKey(std::string_view key, const Ref<UIImage>& image) {
    // Encodes an image that nobody has asked yet, which takes a while: before the lock.
    const std::int64_t size = getImageSize(image);
    const ObjectLock lock(bufMemory_);
    if (size > memoryMaxSize_)
        return;
    const auto entry = make<ZNBufMemoryModel>(key, Clock::shared().now(), image);
    makeRoom(size);
    // On purpose an entry that this one replaces stays counted.
    memorySize_ += size;
    bufMemory_->setObjectForKey(entry, key);
}

/// Never returns, on purpose, while too much counts as used and no entry is older than now; a
/// higher `memoryMaxSize` ends that, and the time, where there are entries.
void ZNImageHelper::makeRoom(std::int64_t size) {
    while (exceeds(memorySize_, size, memoryMaxSize_)) {
        if (const auto oldest = bufMemory_->takeOldestBefore(Clock::shared().now()))
            memorySize_ -= getImageSize(oldest->image());
        else
            Clock::shared().sleep(pauseWithoutChange);
    }
}

Ref<ZNBufMemoryModel> ZNImageHelper::getBufMemoryModelByKey(std::string_view key) const {
    const ObjectLock lock(bufMemory_);
    return bufMemory_->objectForKey(key);
}

std::string ZNImageHelper::getFilePath(std::string_view fileName) const {
    return ZNFileHelper::GetFilePath(NSSearchPathDirectory::Caches,
                                     stringByAppendingPathComponent(folderName, fileName))
        .value();
}

void ZNImageHelper::writeFile(std::string_view key, const Value& data) const {
    ZNFileHelper::WriteFileAtPath(getFilePath(key), true, data);
}

Value ZNImageHelper::readFile(std::string_view key) const {
    return ZNFileHelper::ReadFileAtPath(getFilePath(key));
}

bool ZNImageHelper::existsFile(std::string_view key) const {
    return ZNFileHelper::FileExistsAtPath(getFilePath(key));
}

bool ZNImageHelper::deleteFilePath(std::string_view key) const {
    return ZNFileHelper::DeleteFileAtPath(getFilePath(key));
}

std::int64_t ZNImageHelper::getAllCachesSize() const {
    return ZNFileHelper::GetFileSizeAtPath(getFilePath(""));
}

void ZNImageHelper::deleteAllCachesCompleted(const Deleted& completed) const {
    const bool deleted = ZNFileHelper::DeleteFileAtPath(getFilePath(""));
    if (completed)
        completed(deleted, getAllCachesSize());
}

}  // namespace zn
