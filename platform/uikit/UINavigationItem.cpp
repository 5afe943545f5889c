#include "zarnic/platform/UINavigationItem.h"

namespace zn {

UINavigationItem::UINavigationItem() = default;

UINavigationItem::UINavigationItem(std::string title) : title_(std::move(title)) {}

UINavigationItem::~UINavigationItem() = default;

void UINavigationItem::setTitle(std::string_view title) {
    title_ = title;
    tellBar();
}

void UINavigationItem::setTitleView(const Ref<UIView>& view) {
    titleView_ = view;
    tellBar();
}

void UINavigationItem::setBackTitle(std::string_view title) {
    backTitle_ = title;
    tellBar();
}

void UINavigationItem::setHidesBackButton(bool hides) {
    hidesBackButton_ = hides;
    tellBar();
}

void UINavigationItem::tellBar() const {
    if (changed_)
        changed_();
}

}  // namespace zn
