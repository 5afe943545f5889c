#include "zarnic/platform/uikit/UITabBarItem.h"

namespace zn {

UITabBarItem::UITabBarItem() = default;

UITabBarItem::UITabBarItem(std::string title, Ref<UIImage> image)
    : title_(std::move(title)), image_(std::move(image)) {}

UITabBarItem::~UITabBarItem() = default;

void UITabBarItem::setTitle(std::string_view title) {
    title_ = title;
    tellBar();
}

void UITabBarItem::setImage(const Ref<UIImage>& image) {
    image_ = image;
    tellBar();
}

void UITabBarItem::setSelectedImage(const Ref<UIImage>& image) {
    selectedImage_ = image;
    tellBar();
}

void UITabBarItem::setBadgeValue(std::string_view text) {
    badgeValue_ = text;
    tellBar();
}

void UITabBarItem::setBadgeColor(const Ref<UIColor>& color) {
    badgeColor_ = color;
    tellBar();
}

void UITabBarItem::setEnabled(bool enabled) {
    enabled_ = enabled;
    tellBar();
}

void UITabBarItem::tellBar() const {
    if (changed_)
        changed_();
}

}  // namespace zn
