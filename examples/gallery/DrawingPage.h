#pragma once

#include "Page.h"

namespace gallery {

/// Shows what views draw: grids, gradients, shadows, a gradient label, a snapshot, a pixel.
class DrawingPage : public PageController {
    ZN_OBJECT(DrawingPage, PageController)
public:
    void init() override;

protected:
    void build() override;

private:
    void addPair(const zn::Ref<zn::UIView>& left, std::string_view leftText,
                 const zn::Ref<zn::UIView>& right, std::string_view rightText);
    zn::Ref<zn::UIView> snapshotOf(const zn::Ref<zn::UIView>& view);
    zn::Ref<zn::UIView> pixelOf(const zn::Ref<zn::UIView>& view);
    zn::Size tile();
};

}  // namespace gallery
