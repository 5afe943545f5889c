#pragma once

#include <zarnic/platform/uikit/UIImageView.h>

#include "Page.h"

namespace gallery {

/// A text as QR code and bar code in chosen colours, and the code recoloured.
class CodesPage : public PageController {
    ZN_OBJECT(CodesPage, PageController)
public:
    void init() override;

protected:
    void build() override;

private:
    void refresh();

    std::size_t text_ = 0;
    std::size_t color_ = 0;
    zn::Ref<zn::UIImageView> qrCode_;
    zn::Ref<zn::UIImageView> recolored_;
    zn::Ref<zn::UIImageView> barCode_;
};

}  // namespace gallery
