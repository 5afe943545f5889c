#pragma once

#include "Page.h"

namespace gallery {

/// Screens that push one another: with and without a bar, with and without the back-swipe.
class NavigationPage : public PageController {
    ZN_OBJECT(NavigationPage, PageController)
public:
    NavigationPage() = default;
    explicit NavigationPage(int depth) : depth_(depth) {}
    void init() override;
    void push();
    void pushWithoutBar();
    void pushWithoutSwipe();
    void pop();

protected:
    void build() override;

private:
    void pushScreen(const zn::Ref<NavigationPage>& screen);

    int depth_ = 1;
};

}  // namespace gallery
