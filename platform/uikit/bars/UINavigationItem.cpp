#include "zarnic/platform/uikit/UINavigationItem.h"

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

void UINavigationItem::replace(Items& side, Items items) {
    std::erase(items, nullptr);
    for (const auto& item : side)
        item->setChangeHandler({});
    side = std::move(items);
    const WeakRef<UINavigationItem> weak = ref(this);
    for (const auto& item : side)
        item->setChangeHandler([weak] {
            if (const auto self = weak.lock())
                self->tellBar();
        });
    tellBar();
}

void UINavigationItem::setLeftBarButtonItems(Items items) {
    replace(leftItems_, std::move(items));
}

void UINavigationItem::setRightBarButtonItems(Items items) {
    replace(rightItems_, std::move(items));
}

Ref<UIBarButtonItem> UINavigationItem::leftBarButtonItem() const {
    return leftItems_.empty() ? nullptr : leftItems_.front();
}

void UINavigationItem::setLeftBarButtonItem(const Ref<UIBarButtonItem>& item) {
    setLeftBarButtonItems({item});
}

Ref<UIBarButtonItem> UINavigationItem::rightBarButtonItem() const {
    return rightItems_.empty() ? nullptr : rightItems_.front();
}

void UINavigationItem::setRightBarButtonItem(const Ref<UIBarButtonItem>& item) {
    setRightBarButtonItems({item});
}

void UINavigationItem::setLeftItemsSupplementBackButton(bool supplement) {
    supplementsBackButton_ = supplement;
    tellBar();
}

void UINavigationItem::tellBar() const {
    if (changed_)
        changed_();
}

}  // namespace zn
