#pragma once

#include <zarnic/platform/drawing/UIImage.h>
#include <zarnic/platform/uikit/UIView.h>

#include <string_view>

namespace gallery {

/// A view with a caption below, to be shown on a panel of its own.
struct Tile {
    zn::Ref<zn::UIView> view;
    std::string_view caption;
};

/// Panels side by side, together as wide as asked; the views are centred in `viewHeight` points.
zn::Ref<zn::UIView> tileRow(double width, double viewHeight, const std::vector<Tile>& tiles);
/// How wide each of so many panels is.
double tileWidth(double width, std::size_t count);
/// A view that shows the image in its own proportions.
zn::Ref<zn::UIView> fitted(const zn::Ref<zn::UIImage>& image, zn::Size size);

}  // namespace gallery
