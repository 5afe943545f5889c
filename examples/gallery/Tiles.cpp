#include "Tiles.h"

#include <zarnic/platform/uikit/UIImageView.h>

#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

constexpr double captionHeight = 34;

Ref<UIView> panelWith(const Tile& tile, const Rect& frame, double viewHeight) {
    auto panel = theme::panel(frame);
    tile.view->setCenter({frame.width() / 2, theme::gap + viewHeight / 2});
    panel->addSubview(tile.view);
    const auto caption = theme::label(tile.caption, theme::note(), theme::quietInk(),
                                      {0, theme::gap + viewHeight + 8}, frame.width());
    caption->setTextAlignment(NSTextAlignment::Center);
    panel->addSubview(caption);
    return panel;
}

}  // namespace

double tileWidth(double width, std::size_t count) {
    const auto parts = static_cast<double>(count);
    return (width - (parts - 1) * theme::gap) / parts;
}

Ref<UIView> tileRow(double width, double viewHeight, const std::vector<Tile>& tiles) {
    const double height = viewHeight + captionHeight + theme::gap;
    auto row = make<UIView>(Rect(0, 0, width, height));
    const double panelWidth = tileWidth(width, tiles.size());
    double x = 0;
    for (const Tile& tile : tiles) {
        row->addSubview(panelWith(tile, {x, 0, panelWidth, height}, viewHeight));
        x += panelWidth + theme::gap;
    }
    return row;
}

Ref<UIView> fitted(const Ref<UIImage>& image, Size size) {
    auto view = make<UIImageView>(Rect(Point{}, size));
    view->setContentMode(UIViewContentMode::ScaleAspectFit);
    view->setImage(image);
    return view;
}

}  // namespace gallery
