#pragma once

#include "zarnic/platform/drawing/CGImage.h"
#include "zarnic/platform/uikit/UIScrollView.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace bench {

/// The page in a scroll view, on the headless screen, while the scene exists.
class ZarnicScrollScene {
public:
    ZarnicScrollScene();
    ~ZarnicScrollScene();

    /// Moves the content there and paints what that changes.
    void show(double offset);
    zn::Ref<zn::CGImage> picture() const;

private:
    zn::Ref<zn::UIWindow> window_;
    zn::Ref<zn::UIScrollView> page_;
};

}  // namespace bench
