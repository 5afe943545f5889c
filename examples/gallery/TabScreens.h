#pragma once

#include <zarnic/ZNTabBarController.h>

#include "Page.h"

namespace gallery {

/// A screen in a tab, which can push one that hides the tab bar.
class TabPage : public PageController {
    ZN_OBJECT(TabPage, PageController)
public:
    TabPage() = default;
    explicit TabPage(std::string name) : name_(std::move(name)) {}
    void init() override;
    void pushWithoutBar();

protected:
    void build() override;

private:
    std::string name_ = "Tab";
};

/// Three tabs with pictures and a badge.
zn::Ref<zn::ZNTabBarController> tabScreens();

}  // namespace gallery
