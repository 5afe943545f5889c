#pragma once

#include <string>
#include <string_view>

#include "zarnic/platform/Class.h"
#include "zarnic/platform/UIImage.h"

namespace zn {

/// What a tab bar shows for a controller.
class ZN_EXPORT UITabBarItem final : public NSObject {
    ZN_OBJECT(UITabBarItem, NSObject)
public:
    UITabBarItem();
    UITabBarItem(std::string title, Ref<UIImage> image);
    ~UITabBarItem() override;

    const std::string& title() const { return title_; }
    void setTitle(std::string_view title) { title_ = title; }
    const Ref<UIImage>& image() const { return image_; }
    void setImage(const Ref<UIImage>& image) { image_ = image; }

private:
    std::string title_;
    Ref<UIImage> image_;
};

}  // namespace zn
