#include "KeyboardPanel.h"

#include <zarnic/UIView+ZNCategory.h>
#include <zarnic/platform/UIApplication.h>
#include <zarnic/platform/UILabel.h>

#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

constexpr double rowHeight = 54;
constexpr double keyHeight = 42;
constexpr double keyGap = 6;
constexpr double side = 3;

Rect belowScreen() {
    const auto screen = UIScreen::mainScreen();
    const Rect bounds = screen->bounds();
    return {0, bounds.height(), bounds.width(), KeyboardPanel::heightFor(*screen)};
}

}  // namespace

Ref<KeyboardPanel> KeyboardPanel::shared() {
    static const auto& panel = *new Ref<KeyboardPanel>(make<KeyboardPanel>());
    return panel;
}

double KeyboardPanel::heightFor(const UIScreen& screen) {
    return 4 * rowHeight + screen.profile().safeBottom;
}

KeyboardPanel::KeyboardPanel() : UIWindow(belowScreen()) {}

void KeyboardPanel::init() {
    UIWindow::init();
    setWindowLevel(UIWindowLevel::Normal + 1);
    setBackgroundColor(UIColor::colorWithRed(0.82, 0.835, 0.86, 1));
    const double keyWidth = (bounds().width() - 2 * side) / 10 - keyGap;
    addRow("QWERTYUIOP", 0, keyWidth);
    addRow("ASDFGHJKL", rowHeight, keyWidth);
    addRow("ZXCVBNM", 2 * rowHeight, keyWidth);
    const double wide = 1.5 * keyWidth + keyGap / 2;
    const double right = bounds().width() - side - keyGap / 2;
    const double third = 2 * rowHeight + keyGap;
    addKey("⇧", {side + keyGap / 2, third, wide - keyGap, keyHeight}, true);
    addKey("⌫", {right - wide + keyGap, third, wide - keyGap, keyHeight}, true);
    const double last = 3 * rowHeight + keyGap;
    const double corner = 2.5 * keyWidth;
    addKey("123", {side + keyGap / 2, last, corner, keyHeight}, true);
    addKey("return", {right - corner, last, corner, keyHeight}, true);
    addKey("space",
           {side + keyGap / 2 + corner + keyGap, last, right - side - 2.5 * keyGap - 2 * corner,
            keyHeight},
           false);
}

void KeyboardPanel::addRow(std::string_view letters, double y, double keyWidth) {
    const double width = static_cast<double>(letters.size()) * (keyWidth + keyGap) - keyGap;
    double x = (bounds().width() - width) / 2;
    for (std::size_t index = 0; index < letters.size(); ++index) {
        addKey(letters.substr(index, 1), {x, y + keyGap, keyWidth, keyHeight}, false);
        x += keyWidth + keyGap;
    }
}

void KeyboardPanel::addKey(std::string_view text, const Rect& frame, bool dark) {
    const auto key = make<UIView>(frame);
    key->setBackgroundColor(dark ? UIColor::colorWithRed(0.675, 0.70, 0.74, 1)
                                 : UIColor::whiteColor());
    key->layer()->setCornerRadius(5);
    zn_AddShadowEffectColor(key, UIColor::blackColor(), Size{0, 1}, 0, 0.3);
    const auto font = UIFont::systemFontOfSize(text.size() == 1 ? 22 : 16);
    const double height = std::ceil(font->lineHeight());
    const auto label = theme::label(text, font, UIColor::blackColor(),
                                    {0, (frame.height() - height) / 2}, frame.width());
    label->setTextAlignment(NSTextAlignment::Center);
    key->addSubview(label);
    addSubview(key);
}

void KeyboardPanel::follow() {
    const Rect screen = UIScreen::mainScreen()->bounds();
    const double up = UIApplication::sharedApplication()->keyboardHeight();
    const Ref<KeyboardPanel> self = as<KeyboardPanel>(ref(this));
    if (up > 0)
        setHidden(false);
    UIView::animateWithDuration(
        0.25, [&] { zn_SetY(self, screen.height() - up); },
        [self, up](bool finished) {
            if (finished && up <= 0)
                self->setHidden(true);
        });
}

}  // namespace gallery
