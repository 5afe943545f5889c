#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "zarnic/platform/uikit/UITabBarItem.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

class TabButton;

/// A bar of items side by side, of which one is selected: picture above title, with a badge, in
/// the tint colour when selected. Main thread only.
class ZN_EXPORT UITabBar : public UIView {
    ZN_OBJECT(UITabBar, UIView)
public:
    /// Points, without the room that a device wants below it.
    static constexpr double Height = 49;

    UITabBar();
    explicit UITabBar(const Rect& frame);
    ~UITabBar() override;
    void init() override;

    const std::vector<Ref<UITabBarItem>>& items() const { return items_; }
    /// Null items are left out. The selected item stays when it is among them.
    void setItems(std::vector<Ref<UITabBarItem>> items);
    /// Null for none.
    const Ref<UITabBarItem>& selectedItem() const { return selected_; }
    /// Does not call the handler.
    void setSelectedItem(const Ref<UITabBarItem>& item);
    /// Called when the user touches an item, with its index, also for the selected one.
    void setSelectHandler(std::function<void(std::size_t)> handler) {
        select_ = std::move(handler);
    }
    /// The bar's own colour; null for the platform's near-white.
    const Ref<UIColor>& barTintColor() const { return barTintColor_; }
    void setBarTintColor(const Ref<UIColor>& color);
    /// Of the items that are not selected; null for grey.
    const Ref<UIColor>& unselectedItemTintColor() const { return unselectedTint_; }
    void setUnselectedItemTintColor(const Ref<UIColor>& color);

    void layoutSubviews() override;
    void tintColorDidChange() override;

private:
    void touched(const Ref<TabButton>& button);
    void showItems();

    std::vector<Ref<UITabBarItem>> items_;
    std::vector<Ref<TabButton>> buttons_;
    Ref<UITabBarItem> selected_;
    Ref<UIView> line_;
    Ref<UIColor> barTintColor_;
    Ref<UIColor> unselectedTint_;
    std::function<void(std::size_t)> select_;
};

}  // namespace zn
