#include "ImagesPage.h"

#include <zarnic/UIColor+ZNCategory.h>
#include <zarnic/UIImage+ZNCategory.h>
#include <zarnic/ZNAppIconHelper.h>
#include <zarnic/ZNPromptWindow.h>

#include <array>
#include <cmath>

#include "CodesPage.h"
#include "RowList.h"
#include "Theme.h"
#include "Tiles.h"

using namespace zn;

namespace gallery {
namespace {

constexpr double viewHeight = 96;

void addHill(CGContext& context, const char* color, double left, double top, double right) {
    context.setFillColor(ZN_ColorWithHexString(color)->cgColor());
    context.moveTo({left, 1024});
    context.addCurveTo({right, 1024}, {left + (right - left) * 0.35, top},
                       {left + (right - left) * 0.65, top});
    context.closePath();
    context.drawPath(CGPathDrawingMode::Fill);
}

/// A sun between hills, 1024 pixels square, with round corners that are clear.
Ref<UIImage> picture() {
    UIGraphicsBeginImageContext({1024, 1024});
    const auto context = UIGraphicsGetCurrentContext();
    context->addPath(CGPath::roundedRect({0, 0, 1024, 1024}, 220));
    context->clip();
    context->drawLinearGradient(
        {{ZN_ColorWithHexString("#2660E0")->cgColor(), ZN_ColorWithHexString("#7C5CE7")->cgColor(),
          ZN_ColorWithHexString("#F8AA3C")->cgColor()},
         {0, 0.55, 1}},
        {0, 0}, {0, 1024}, CGGradientDrawingOptions::None);
    context->setFillColor({1, 0.96, 0.85, 1});
    context->fillEllipse({352, 300, 320, 320});
    addHill(*context, "#1D4E89", -300, 420, 720);
    addHill(*context, "#123456", 300, 520, 1400);
    auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

/// The picture's sun and hills alone, to be tinted.
Ref<UIImage> mark() {
    UIGraphicsBeginImageContext({192, 192});
    const auto context = UIGraphicsGetCurrentContext();
    context->fillEllipse({60, 24, 72, 72});
    context->scale(192.0 / 1024, 192.0 / 1024);
    addHill(*context, "#000000", -100, 480, 620);
    addHill(*context, "#000000", 380, 420, 1120);
    auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

}  // namespace

void ImagesPage::init() {
    PageController::init();
    setTitle("Images");
}

void ImagesPage::build() {
    const auto source = picture();
    addOperations(source);
    addCaptures();
    addIcons(source);
}

void ImagesPage::addOperations(const Ref<UIImage>& source) {
    const Size size{tileWidth(contentWidth(), 3) - 2 * theme::gap, viewHeight - theme::gap};
    const auto tinted = zn_ImageWithTintColor(mark(), theme::accent(), CGBlendMode::Normal);
    const auto small = zn_imageToScale(source, 0.03F);
    addHeading("TINTED, SCALED");
    add(tileRow(contentWidth(), viewHeight,
                {{fitted(tinted, size), "Tinted"},
                 {fitted(zn_imageByScalingToSize(source, {300, 300}), size), "Scaled"},
                 {fitted(small, size), "3 per cent"}}));
}

void ImagesPage::addCaptures() {
    constexpr double height = 130;
    const double width = tileWidth(contentWidth(), 2) - 2 * theme::gap;
    const auto page = make<CodesPage>()->view();
    const Rect code(theme::margin, 148, tileWidth(contentWidth(), 2), 158);
    addHeading("CAPTURED, CROPPED");
    add(tileRow(contentWidth(), height,
                {{fitted(ZN_CapturedView(page), {width, height}), "A page"},
                 {fitted(ZN_Captured(page, code), {width, height}), "A part of it"}}));
}

void ImagesPage::addIcons(const Ref<UIImage>& source) {
    constexpr std::array edges{180.0, 120.0, 87.0, 58.0, 40.0, 20.0};
    const double height = 180.0 / 2 + 2 * theme::padding;
    addHeading("ICONS OF AN APPLICATION");
    const auto panel = theme::panel(Rect(0, 0, contentWidth(), height));
    double x = theme::padding;
    for (const double edge : edges) {
        // Two pixels a point.
        const auto icon = fitted(zn_imageAutoSize(source, {edge, edge}), {edge / 2, edge / 2});
        icon->setFrame(Rect(x, height - theme::padding - edge / 2, edge / 2, edge / 2));
        panel->addSubview(icon);
        x += edge / 2 + theme::gap;
    }
    add(panel);
    add(make<RowList>(
        Point{}, contentWidth(),
        std::vector<Row>{{"Write all 18", "JPEG files, into the Documents folder", [source] {
                              ZNAppIconHelper::ZN_GeneratorAppIconViaImage(source);
                              ZNPromptWindow::ShowMsg("Written");
                          }}}));
}

}  // namespace gallery
