#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "zarnic/ZNBufMemoryDictionary.h"
#include "zarnic/ZNImageDownloadModel.h"
#include "zarnic/platform/foundation/NSCondition.h"
#include "zarnic/platform/foundation/ObjectList.h"
#include "zarnic/platform/foundation/ObjectMap.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// Fills image views from URLs: from a memory cache bounded in bytes, else from files in the
/// application's Caches folder, else over HTTP by eight threads that serve one queue, first come,
/// first served. However many views wait for a URL, it is fetched once.
///
/// An image counts as many bytes as its JPEG of the best quality has. The key of a URL is the MD5
/// of its text as given, in 32 hexadecimal digits; the file of that name in the folder
/// `ZNImageCaches` holds what the server sent, whatever it is. Files stay until they are deleted.
///
/// Requests may come from any thread; what is cached fills the view within the call, on the
/// caller's thread, and what was downloaded does so later on the main thread. Failures are silent:
/// the view keeps its placeholder, no block is called, and the next request tries again. Settings
/// and the other setters are for one thread at a time.
class ZN_EXPORT ZNImageHelper : public NSObject {
    ZN_OBJECT(ZNImageHelper, NSObject)
public:
    using Completed = ZNImageDownloadModel::Completed;
    using DownloadList = ObjectList<ZNImageDownloadModel>;
    using Waiting = ObjectMap<DownloadList>;
    /// Whether the files were deleted, and the bytes that are left of them.
    using Deleted = std::function<void(bool deleted, std::int64_t size)>;

    /// Use `SharedInstance`. Each helper keeps threads of its own for the life of the process.
    ZNImageHelper();
    ~ZNImageHelper() override;
    void init() override;

    /// Made on first use, with its threads.
    static Ref<ZNImageHelper> SharedInstance();

    /// Takes numbers under "logEnable" (0 is no; log what happens), "cachesMaxSize" (bytes of the
    /// memory cache, from the next insertion on; 40,000,000 unless set) and "threadMaxNum" (kept,
    /// but the threads run already); nothing is clamped, everything else is ignored. Gives the
    /// settings themselves; on purpose an immutable copy instead when there is nothing to take:
    /// for what is no dictionary, and for an empty one.
    static Value ConfigSettings(const Value& settings);
    /// The bytes of the files. Memory does not count.
    static std::int64_t GetAllCachesSize();
    /// Deletes the files, at once; images in memory stay. The block may be empty.
    static void DeleteAllCachesCompleted(const Deleted& completed);

    /// Fill the view with the image of the URL, and show the placeholder until then. View,
    /// placeholder and block may be absent; without a view a hit in memory calls no block, on
    /// purpose, while a hit on disk does. For a URL that counts as null (see `zn_NotNull`) a view
    /// gets the placeholder and the block no image, if there are a view and a placeholder, else
    /// nothing happens. Throws `NSInvalidArgumentException` for a URL that is no text otherwise.
    static void DownloadImageFillView(const Ref<UIImageView>& view, const Value& url);
    static void DownloadImageFillView(const Ref<UIImageView>& view,
                                      const Ref<UIImage>& placeholderImage, const Value& url);
    static void DownloadImageFillView(const Ref<UIImageView>& view,
                                      const Ref<UIImage>& placeholderImage, const Value& url,
                                      Completed completed);
    void downloadImageFillView(const Ref<UIImageView>& view, const Ref<UIImage>& placeholderImage,
                               const Value& url, Completed completed);

    // The memory cache.
    /// The bytes that an image counts; 0 for null. Found once in the life of an image.
    virtual std::int64_t getImageSize(const Ref<UIImage>& image) const;
    /// Makes room by removing what was not used for longest, then puts the image in. Not even tried
    /// for an image above `memoryMaxSize`. Putting a second image under a key counts both from then
    /// on. The calling thread stays here, holding the cache's lock, while there is not enough room
    /// and nothing that is older than now; all that is on purpose.
    void setBufMemoryModelByKey(std::string_view key, const Ref<UIImage>& image);
    /// Null for a key that is not there. Leaves the entry's time alone.
    Ref<ZNBufMemoryModel> getBufMemoryModelByKey(std::string_view key) const;

    // The files.
    std::string getFilePath(std::string_view fileName) const;
    void writeFile(std::string_view key, const Value& data) const;
    Value readFile(std::string_view key) const;
    bool existsFile(std::string_view key) const;
    bool deleteFilePath(std::string_view key) const;
    std::int64_t getAllCachesSize() const;
    void deleteAllCachesCompleted(const Deleted& completed) const;

    // The requests that wait for a key, first come first.
    void setBufDownloadingObjectByKey(std::string_view key,
                                      const Ref<ZNImageDownloadModel>& downloadModel);
    /// The list itself; null for a key that nobody waits for.
    Ref<DownloadList> getBufDownloadingObjectByKey(std::string_view key) const;
    void deleteBufDownloadingObjectByKey(std::string_view key);
    bool isBufDownloadingObjectByKey(std::string_view key) const;

    // Downloading.
    /// The bytes that a server answers with, whatever the status; absent on failure. Blocks the
    /// caller, up to 10 seconds without progress.
    virtual Value downloadImageData(std::optional<std::string_view> url) const;
    /// The URL with everything escaped as UTF-8 that may not stand in one, but not `%:/?#=`.
    /// Nothing for an absent text and for one that is no UTF-8.
    std::optional<std::string> urlEncodeToCN(std::optional<std::string_view> url) const;
    /// Starts `downloadThreadMaxNum` threads; `init` does.
    void downloadThreadInit();
    /// What each of them does; never returns.
    void downloadThreadRun();
    /// Logs the text while `logEnable`.
    void logMsg(std::string_view text) const;

    /// Mutable; what `ConfigSettings` was given last.
    const Dictionary& configSettings() const { return configSettings_; }
    void setConfigSettings(const Dictionary& settings) { configSettings_ = settings; }
    bool logEnable() const { return logEnable_; }
    void setLogEnable(bool enable) { logEnable_ = enable; }
    /// In bytes.
    std::int64_t memoryMaxSize() const { return memoryMaxSize_; }
    void setMemoryMaxSize(std::int64_t size) { memoryMaxSize_ = size; }
    /// The bytes that count as used.
    std::int64_t memorySize() const { return memorySize_; }
    void setMemorySize(std::int64_t size) { memorySize_ = size; }
    /// The memory cache, guarded by its own lock.
    const Ref<ZNBufMemoryDictionary>& bufMemory() const { return bufMemory_; }
    void setBufMemory(const Ref<ZNBufMemoryDictionary>& memory) { bufMemory_ = memory; }
    /// Where threads without work wait.
    const Ref<NSCondition>& conditionLock() const { return conditionLock_; }
    void setConditionLock(const Ref<NSCondition>& condition) { conditionLock_ = condition; }
    std::int32_t downloadThreadMaxNum() const { return downloadThreadMaxNum_; }
    void setDownloadThreadMaxNum(std::int32_t count) { downloadThreadMaxNum_ = count; }
    /// What is not being fetched yet, one request of each key, guarded by its own lock.
    const Ref<DownloadList>& downloadList() const { return downloadList_; }
    void setDownloadList(const Ref<DownloadList>& list) { downloadList_ = list; }
    /// All requests by key, guarded by its own lock.
    const Ref<Waiting>& bufDownloading() const { return bufDownloading_; }
    void setBufDownloading(const Ref<Waiting>& waiting) { bufDownloading_ = waiting; }

private:
    struct Request;
    void takeSetting(const Dictionary& settings, std::string_view name);
    void applySetting(std::string_view name);
    void makeRoom(std::int64_t size);
    bool fillFromMemory(const Request& request);
    bool fillFromFile(const Request& request);
    void recordUnreadable(std::string_view key);
    void queue(const Request& request);
    bool joinWaiting(const Ref<ZNImageDownloadModel>& model);
    Ref<ZNImageDownloadModel> takeFromList();
    void waitForWork();
    void download(Ref<ZNImageDownloadModel> model);

    Dictionary configSettings_;
    std::atomic<bool> logEnable_ = false;
    std::atomic<std::int64_t> memoryMaxSize_ = 0;
    std::atomic<std::int64_t> memorySize_ = 0;
    Ref<ZNBufMemoryDictionary> bufMemory_;
    Ref<NSCondition> conditionLock_;
    std::atomic<std::int32_t> downloadThreadMaxNum_ = 0;
    Ref<DownloadList> downloadList_;
    Ref<Waiting> bufDownloading_;
};

}  // namespace zn
