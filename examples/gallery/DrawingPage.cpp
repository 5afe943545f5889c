#include "DrawingPage.h"

#include <zarnic/UIView+ZNCategory.h>
#include <zarnic/platform/uikit/UIImageView.h>

#include <cstdio>

#include "Theme.h"
#include "Tiles.h"

using namespace zn;

namespace gallery {

ZN_REGISTER_CLASS(DrawingPage);

namespace {

constexpr double tileHeight = 92;

Ref<UIColor> violet() {
    return UIColor::colorWithRed(0.486, 0.361, 0.906, 1);
}

Ref<UIColor> teal() {
    return UIColor::colorWithRed(0.102, 0.675, 0.659, 1);
}

Ref<UIColor> amber() {
    return UIColor::colorWithRed(0.973, 0.667, 0.235, 1);
}

/// A view that draws by a block, into rounded corners.
class DrawnView : public UIView {
    ZN_OBJECT(DrawnView, UIView)
public:
    using Drawing = std::function<void(const Ref<UIView>&)>;
    DrawnView(Size size, Drawing drawing)
        : UIView(Rect(Point{}, size)), drawing_(std::move(drawing)) {}

    void init() override {
        UIView::init();
        layer()->setCornerRadius(8);
        setClipsToBounds(true);
    }
    bool drawsRect() const override { return true; }
    void drawRect(const Rect&) override { drawing_(ref(static_cast<UIView*>(this))); }

private:
    Drawing drawing_;
};

Ref<UIView> grid(Size size) {
    return make<DrawnView>(size, [](const Ref<UIView>& view) {
        znQuartz2D_FillColor(view, UIColor::colorWithRed(0.965, 0.973, 0.992, 1));
        znQuartz2D_AddGridPatternSpacing(view, 12, 0.5, theme::accent(), UIColor::clearColor());
    });
}

Ref<UIView> linear(Size size) {
    return make<DrawnView>(size, [size](const Ref<UIView>& view) {
        znQuartz2D_AddColorGradientEffectLinearColors(
            view, std::vector{theme::accent(), violet(), amber()}, std::vector{0.0, 0.55, 1.0},
            Point{0, 0}, Point{size.width, size.height}, std::nullopt,
            CGGradientDrawingOptions::None);
    });
}

Ref<UIView> radial(Size size) {
    return make<DrawnView>(size, [size](const Ref<UIView>& view) {
        const Point centre{size.width / 2, size.height / 2};
        znQuartz2D_FillColor(view, UIColor::colorWithRed(0.93, 0.97, 0.97, 1));
        znQuartz2D_AddColorGradientEffectRadialColors(
            view,
            std::vector{UIColor::colorWithRed(1, 1, 1, 1), teal(),
                        UIColor::colorWithRed(0.10, 0.68, 0.66, 0)},
            std::vector{0.0, 0.5, 1.0}, Point{centre.x - 8, centre.y - 8}, 2, centre,
            size.height / 2, std::nullopt, CGGradientDrawingOptions::DrawsBeforeStartLocation);
    });
}

Ref<UIView> shadowed(Size size) {
    const Ref<UIView> holder = ZN_ViewWithColor(UIColor::clearColor(), Rect(Point{}, size));
    const Ref<UIView> box =
        ZN_ViewWithColor(theme::card(), Rect(size.width / 2 - 40, size.height / 2 - 26, 80, 52));
    box->layer()->setCornerRadius(10);
    zn_AddShadowEffectColor(box, theme::accent(), Size{0, 8}, 10, 0.45);
    holder->addSubview(box);
    return holder;
}

Ref<UIView> gradientLabel(double width) {
    return ZN_GradientEffectLabelViewText(
        "Zarnic 触摸应用", UIFont::systemFontOfSize(34, UIFontWeight::Bold), UIColor::blackColor(),
        Rect(0, 0, width, 48), std::vector{theme::accent(), violet(), amber()},
        std::vector{0.0, 0.5, 1.0}, Point{0, 0.5}, Point{1, 0.5});
}

}  // namespace

void DrawingPage::init() {
    PageController::init();
    setTitle("Drawing");
}

Size DrawingPage::tile() {
    return {tileWidth(contentWidth(), 2) - 2 * theme::gap, tileHeight};
}

void DrawingPage::build() {
    add(gradientLabel(contentWidth()));
    const Ref<UIView> lines = linear(tile());
    addPair(grid(tile()), "Grid", lines, "Linear gradient");
    const Ref<UIView> circles = radial(tile());
    addPair(circles, "Radial gradient", shadowed(tile()), "Shadow");
    addPair(snapshotOf(lines), "Snapshot, turned", pixelOf(circles), "Colour of a pixel");
}

Ref<UIView> DrawingPage::snapshotOf(const Ref<UIView>& view) {
    const auto picture = make<UIImageView>(Rect(Point{}, tile()));
    picture->setImage(zn_TransformToImage(view));
    picture->setContentMode(UIViewContentMode::ScaleAspectFit);
    picture->setTransform(AffineTransform::rotation(-0.12).scaledBy(0.8, 0.8));
    return picture;
}

Ref<UIView> DrawingPage::pixelOf(const Ref<UIView>& view) {
    const Size size = tile();
    const Point place{size.width * 0.4, size.height / 2};
    const Ref<UIColor> color = zn_ColorAtPixelPoint(view, place, 1);
    const CGColor parts = color->cgColor();
    char text[16];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", static_cast<unsigned>(parts.red * 255),
                  static_cast<unsigned>(parts.green * 255),
                  static_cast<unsigned>(parts.blue * 255));
    const Ref<UIView> swatch = ZN_ViewWithColor(color, Rect(Point{}, size));
    swatch->layer()->setCornerRadius(8);
    const bool light = parts.red + parts.green + parts.blue > 1.6;
    const auto label = theme::label(text, UIFont::systemFontOfSize(17, UIFontWeight::Semibold),
                                    light ? theme::ink() : UIColor::whiteColor(),
                                    {0, size.height / 2 - 11}, size.width);
    label->setTextAlignment(NSTextAlignment::Center);
    swatch->addSubview(label);
    return swatch;
}

void DrawingPage::addPair(const Ref<UIView>& left, std::string_view leftText,
                          const Ref<UIView>& right, std::string_view rightText) {
    add(tileRow(contentWidth(), tileHeight, {{left, leftText}, {right, rightText}}));
}

}  // namespace gallery
