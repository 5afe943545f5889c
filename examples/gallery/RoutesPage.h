#pragma once

#include "Page.h"

namespace gallery {

/// Every way to open a screen, and to come back.
class RoutesPage : public PageController {
    ZN_OBJECT(RoutesPage, PageController)
public:
    void init() override;
    static void openByURL();
    static void rise();
    static void present();
    static void presentTabs();

protected:
    void build() override;

private:
    void detailTapped() { openByURL(); }
    void addWaysIn();
    void addOtherWays();
};

}  // namespace gallery
