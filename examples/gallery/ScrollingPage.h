#pragma once

#include <zarnic/platform/uikit/UIScrollView.h>

#include "Page.h"

namespace gallery {

/// Pages side by side, a row that scrolls across, and a long list, all inside a page that scrolls.
class ScrollingPage : public PageController, public zn::UIScrollViewDelegate {
    ZN_OBJECT(ScrollingPage, PageController)
public:
    void init() override;
    void scrollViewDidScroll(const zn::Ref<zn::UIScrollView>& scrollView) override;

protected:
    void build() override;

private:
    void addPages();
    void addRow();
    void addList();
    zn::Ref<zn::UIView> card(int index, zn::Size size);

    zn::Ref<zn::UIScrollView> cards_;
    std::vector<zn::Ref<zn::UIView>> dots_;
};

}  // namespace gallery
