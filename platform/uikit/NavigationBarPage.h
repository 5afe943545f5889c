#pragma once

#include "zarnic/platform/CAShapeLayer.h"
#include "zarnic/platform/UINavigationBar.h"

namespace zn {

/// What a navigation bar shows for one item: the title in the middle, the way back at the left.
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
    /// Moves title and back button sideways by so many points.
    void slideTo(double offset);
    void layoutSubviews() override;

private:
    void makeTitle();
    void makeBackButton();
    double layoutBackButton();

    Look look_;
    double offset_ = 0;
    Ref<UIView> title_;
    Ref<UIButton> back_;
    Ref<CAShapeLayer> chevron_;
};

}  // namespace zn
