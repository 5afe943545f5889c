#include "zarnic/platform/UITabBarItem.h"

namespace zn {

UITabBarItem::UITabBarItem() = default;

UITabBarItem::UITabBarItem(std::string title, Ref<UIImage> image)
    : title_(std::move(title)), image_(std::move(image)) {}

UITabBarItem::~UITabBarItem() = default;

}  // namespace zn
