#include <cmath>
#include <map>
#include <mutex>

#include "platform/drawing/context/CurrentContext.h"
#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/foundation/NSBundle.h"

namespace zn {

namespace {

/// Named pictures stay decoded, as long as they fit; when they do not, all make room at once.
class NamedImages {
public:
    static NamedImages& shared() {
        static NamedImages& images = *new NamedImages;
        return images;
    }

    Ref<UIImage> find(const std::string& path) {
        const std::lock_guard guard(mutex_);
        const auto found = images_.find(path);
        return found == images_.end() ? nullptr : found->second;
    }

    void add(const std::string& path, const Ref<UIImage>& image) {
        constexpr std::size_t budget = 32 << 20;
        const std::size_t size = image->cgImage()->byteCount();
        const std::lock_guard guard(mutex_);
        if (size_ + size > budget) {
            images_.clear();
            size_ = 0;
        }
        if (size <= budget && images_.emplace(path, image).second)
            size_ += size;
    }

private:
    std::mutex mutex_;
    std::map<std::string, Ref<UIImage>> images_;
    std::size_t size_ = 0;
};

std::optional<NSBundle::ScaledResource> resource(std::string_view name, std::string_view type) {
    const int scale = static_cast<int>(std::lround(mainScreenScale()));
    return NSBundle::mainBundle()->pathForScaledResource(name, type, scale);
}

/// The name without `.png` first, so that a dot in a name does no harm; then name and type as they
/// are written.
std::optional<NSBundle::ScaledResource> resourceNamed(std::string_view name) {
    if (auto found = resource(name, "png"))
        return found;
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos)
        return std::nullopt;
    return resource(name.substr(0, dot), name.substr(dot + 1));
}

}  // namespace

Ref<UIImage> UIImage::imageNamed(std::string_view name) {
    const auto found = name.empty() ? std::nullopt : resourceNamed(name);
    if (!found)
        return nullptr;
    if (auto image = NamedImages::shared().find(found->path))
        return image;
    auto image = imageWithContentsOfFile(found->path);
    if (image)
        NamedImages::shared().add(found->path, image);
    return image;
}

}  // namespace zn
