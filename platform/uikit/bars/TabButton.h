#pragma once

#include "platform/uikit/controls/TintedImage.h"
#include "zarnic/platform/uikit/UIControl.h"
#include "zarnic/platform/uikit/UILabel.h"
#include "zarnic/platform/uikit/UITabBarItem.h"

namespace zn {

/// What a tab bar shows for one item.
class TabButton final : public UIControl {
    ZN_OBJECT(TabButton, UIControl)
public:
    TabButton();
    ~TabButton() override;
    void init() override;

    void show(const UITabBarItem& item, bool selected, const Ref<UIColor>& color);
    void layoutSubviews() override;

private:
    void layoutBadge(const Rect& picture);

    Ref<TintedImage> picture_;
    Ref<UILabel> title_;
    Ref<UILabel> badge_;
};

}  // namespace zn
