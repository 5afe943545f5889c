#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "zarnic/platform/drawing/UIColor.h"
#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/foundation/Class.h"

namespace zn {

/// What a tab bar shows for a controller. Main thread only.
class ZN_EXPORT UITabBarItem final : public NSObject {
    ZN_OBJECT(UITabBarItem, NSObject)
public:
    UITabBarItem();
    UITabBarItem(std::string title, Ref<UIImage> image);
    ~UITabBarItem() override;

    const std::string& title() const { return title_; }
    void setTitle(std::string_view title);
    /// Only the picture's shape is shown, in the colour of the state; 25 points high fits best.
    const Ref<UIImage>& image() const { return image_; }
    void setImage(const Ref<UIImage>& image);
    /// In place of the image while it is selected; null for the same.
    const Ref<UIImage>& selectedImage() const { return selectedImage_; }
    void setSelectedImage(const Ref<UIImage>& image);
    /// A short text in a round badge; empty for none.
    const std::string& badgeValue() const { return badgeValue_; }
    void setBadgeValue(std::string_view text);
    /// Null for red.
    const Ref<UIColor>& badgeColor() const { return badgeColor_; }
    void setBadgeColor(const Ref<UIColor>& color);
    /// Default yes.
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    /// Called by the bar that shows the item.
    void setChangeHandler(std::function<void()> handler) { changed_ = std::move(handler); }

private:
    void tellBar() const;

    std::string title_;
    Ref<UIImage> image_;
    Ref<UIImage> selectedImage_;
    std::string badgeValue_;
    Ref<UIColor> badgeColor_;
    std::function<void()> changed_;
    bool enabled_ = true;
};

}  // namespace zn
