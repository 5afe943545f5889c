#include "ColorsPage.h"

#include <zarnic/UIColor+ZNCategory.h>
#include <zarnic/UIView+ZNCategory.h>

#include <array>
#include <cstdio>

#include "RowList.h"
#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

constexpr double swatchHeight = 52;
constexpr std::size_t patchCount = 8;

/// The colour with its text on it, in what can be read there.
Ref<UIView> swatch(const char* text, double width) {
    const auto color = ZN_ColorWithHexString(text);
    auto view = ZN_ViewWithColor(color, {0, 0, width, swatchHeight});
    view->layer()->setCornerRadius(10);
    const bool translucent = zn_GetAlpha(color) < 0.6;
    const auto ink = ZN_IsLightColor(color) || translucent ? theme::ink() : UIColor::whiteColor();
    char reading[64];
    std::snprintf(reading, sizeof reading, "%s, alpha %.2f",
                  ZN_IsLightColor(color) ? "light" : "dark", zn_GetAlpha(color));
    view->addSubview(theme::label(text, UIFont::systemFontOfSize(16, UIFontWeight::Semibold), ink,
                                  {theme::padding, 7}, width - 2 * theme::padding));
    view->addSubview(theme::label(reading, theme::note(), ink, {theme::padding, 29},
                                  width - 2 * theme::padding));
    return view;
}

std::string numberText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", value);
    return text;
}

}  // namespace

void ColorsPage::init() {
    PageController::init();
    setTitle("Colours");
}

void ColorsPage::build() {
    addHeading("TEXTS TO COLOURS");
    for (const char* text : {"#2660E0", "0xFFF8AA3C", "#80B3261E"})
        add(swatch(text, contentWidth()));
    addReading();
    addRandom();
}

void ColorsPage::addReading() {
    const auto color = UIColor::colorWithRed(0.973, 0.667, 0.235, 0.5);
    addHeading("COLOURS TO TEXTS");
    add(make<RowList>(Point{}, contentWidth(),
                      std::vector<Row>{
                          {"Without alpha", ZN_HexStringWithColor(color, false), {}},
                          {"With alpha", ZN_HexStringWithColor(color, true), {}},
                          {"As a number", numberText(ZN_GetDoubleValueFromColor(color)), {}},
                      }));
}

void ColorsPage::addRandom() {
    addHeading("BY CHANCE");
    const double gap = 8;
    const double side = (contentWidth() - gap * (patchCount - 1)) / patchCount;
    const auto row = make<UIView>(Rect(0, 0, contentWidth(), side));
    for (std::size_t i = 0; i < patchCount; ++i) {
        const double x = static_cast<double>(i) * (side + gap);
        const auto patch = ZN_ViewWithColor(theme::line(), {x, 0, side, side});
        patch->layer()->setCornerRadius(8);
        row->addSubview(patch);
        patches_.push_back(patch);
    }
    add(row);
    const WeakRef<ColorsPage> weak = ref(this);
    add(make<RowList>(Point{}, contentWidth(),
                      std::vector<Row>{{"Draw colours", "Eight new ones with every tap", [weak] {
                                            if (const auto page = weak.lock())
                                                page->shuffle();
                                        }}}));
}

void ColorsPage::shuffle() {
    for (const auto& patch : patches_)
        patch->setBackgroundColor(ZN_GetArc4randomColor(1));
}

}  // namespace gallery
