#pragma once

#include "zarnic/platform/layers/CAShapeLayer.h"
#include "zarnic/platform/uikit/UINavigationBar.h"

namespace zn {

/// What a navigation bar shows for one item: the title in the middle, the way back and the left
/// items at the left, the right items at the right.
class UINavigationBar::Page final : public UIView {
    ZN_OBJECT(Page, UIView)
public:
    struct Look {
        Ref<UINavigationItem> item;
        Ref<UIColor> titleColor;
        Ref<UIFont> titleFont;
        Ref<UIColor> tint;
        /// Empty for no way back.
        std::string backTitle;
    };

    Page(const Rect& frame, Look look);
    void init() override;

    void setBackAction(const Action& action);
    /// Moves the title by so many points sideways, and the back button half as far.
    void slideTo(double offset);
    void layoutSubviews() override;

private:
    void makeTitle();
    void makeBackButton();
    std::vector<Ref<UIView>> makeItems(const UINavigationItem::Items& items);
    double layoutBackButton();
    /// Each gives the room that it takes at its edge.
    double layoutLeft();
    double layoutRight();
    Size itemSize(const UIView& view) const;

    Look look_;
    double offset_ = 0;
    Ref<UIView> title_;
    Ref<UIButton> back_;
    Ref<CAShapeLayer> chevron_;
    std::vector<Ref<UIView>> left_;
    std::vector<Ref<UIView>> right_;
};

}  // namespace zn
