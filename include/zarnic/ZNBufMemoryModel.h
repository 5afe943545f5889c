#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/foundation/Class.h"

namespace zn {

/// An image in the memory cache. The time may be read and written from any thread; the rest is
/// guarded by the cache's lock.
class ZN_EXPORT ZNBufMemoryModel final : public NSObject {
    ZN_OBJECT(ZNBufMemoryModel, NSObject)
public:
    ZNBufMemoryModel();
    ZNBufMemoryModel(std::string_view key, double lastCallTime, Ref<UIImage> image);
    ~ZNBufMemoryModel() override;

    const std::string& key() const { return key_; }
    void setKey(std::string_view key) { key_ = key; }

    /// When the image was put in or found last, in seconds since 1970 by the wall clock.
    double lastCallTime() const { return lastCallTime_.load(std::memory_order_relaxed); }
    void setLastCallTime(double time);

    /// Null for bytes that were no image.
    const Ref<UIImage>& image() const { return image_; }
    void setImage(const Ref<UIImage>& image) { image_ = image; }

private:
    friend class ZNBufMemoryDictionary;
    /// How often the time of any entry was set back in this process: rare, and all that whoever
    /// keeps entries in the order of their times must know of plain writes.
    static std::atomic<std::uint64_t>& setBacks();

    std::string key_;
    std::atomic<double> lastCallTime_ = 0;
    Ref<UIImage> image_;
};

}  // namespace zn
