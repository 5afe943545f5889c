#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/uikit/UIImageView.h"

namespace zn {

/// One view's request for the image of a URL.
class ZN_EXPORT ZNImageDownloadModel final : public NSObject {
    ZN_OBJECT(ZNImageDownloadModel, NSObject)
public:
    /// What is called when the image is there: with the view, null when it is gone, and the image,
    /// null when the bytes were none.
    using Completed = std::function<void(const Ref<UIImageView>&, const Ref<UIImage>&)>;

    ZNImageDownloadModel();
    ~ZNImageDownloadModel() override;

    /// The cache's key of the URL (see `ZNImageHelper`).
    const std::string& key() const { return key_; }
    void setKey(std::string_view key) { key_ = key; }
    /// Held weakly; null when the view is gone.
    Ref<UIImageView> imageView() const { return imageView_.lock(); }
    void setImageView(const Ref<UIImageView>& view) { imageView_ = view; }
    /// As the caller gave it.
    const std::string& url() const { return url_; }
    void setUrl(std::string_view url) { url_ = url; }
    /// May be null.
    const Ref<UIImage>& placeholderImage() const { return placeholderImage_; }
    void setPlaceholderImage(const Ref<UIImage>& image) { placeholderImage_ = image; }
    /// May be empty.
    const Completed& completed() const { return completed_; }
    void setCompleted(Completed completed) { completed_ = std::move(completed); }

private:
    std::string key_;
    WeakRef<UIImageView> imageView_;
    std::string url_;
    Ref<UIImage> placeholderImage_;
    Completed completed_;
};

}  // namespace zn
