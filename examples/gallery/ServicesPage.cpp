#include "ServicesPage.h"

#include <zarnic/UIFont+ZNCategory.h>
#include <zarnic/ZNAppDelegateHelper.h>
#include <zarnic/ZNBluetoothHelper.h>

#include <cmath>

#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

constexpr const char* fontFile = "/usr/share/fonts/truetype/dejavu/DejaVuSerif-Bold.ttf";
constexpr const char* sampleText = "Quick wafting zephyrs vex bold Jim";
constexpr double statusHeight = 56;
constexpr double sampleHeight = 84;

/// The notice of the lock is wanted once for the whole gallery.
void beginLockNotice() {
    static const bool begun = [] {
        ZNAppDelegateHelper::ConfigBlock({});
        return true;
    }();
    static_cast<void>(begun);
}

const char* bluetoothText(bool on) {
    return on ? "On" : "Off, or none";
}

}  // namespace

void ServicesPage::init() {
    PageController::init();
    setTitle("Services");
    beginLockNotice();
    ZNBluetoothHelper::AddObserve(ref(this));
    NSNotificationCenter::defaultCenter()->addObserver(ZN_ACTION(ref(this), lockStatusChanged),
                                                       ZN_ScreenLockStatusChangedNotification);
}

void ServicesPage::viewDidLoad() {
    PageController::viewDidLoad();
    ZNBluetoothHelperDelegateStatus(ZNBluetoothHelper::BluetoothStatus());
}

void ServicesPage::build() {
    addText("What the machine says now. The lines change when it does.");
    addHeading("MACHINE");
    bluetooth_ = addStatus("Bluetooth", bluetoothText(false));
    lock_ = addStatus("Screen lock", "Not locked since the start");
    addHeading("FONTS");
    addSample("The system's", UIFont::systemFontOfSize(20));
    const auto name = ZN_GetCustomFontNameWithPath(fontFile);
    const auto font = name ? UIFont::fontWithName(*name, 20) : nullptr;
    addSample(font ? "From a file: " + *name : "From a file: there is none here",
              font ? font : UIFont::systemFontOfSize(20));
}

Ref<UILabel> ServicesPage::addStatus(std::string_view title, std::string_view text) {
    const auto panel = theme::panel(Rect(0, 0, contentWidth(), statusHeight));
    const double y = (statusHeight - std::ceil(theme::body()->lineHeight())) / 2;
    const double width = contentWidth() - 2 * theme::padding;
    panel->addSubview(theme::label(title, theme::body(), theme::ink(), {theme::padding, y}, width));
    const auto detail =
        theme::label(text, theme::body(), theme::quietInk(), {theme::padding, y}, width);
    detail->setTextAlignment(NSTextAlignment::Right);
    panel->addSubview(detail);
    add(panel);
    return detail;
}

void ServicesPage::addSample(std::string_view title, const Ref<UIFont>& font) {
    const auto panel = theme::panel(Rect(0, 0, contentWidth(), sampleHeight));
    const double width = contentWidth() - 2 * theme::padding;
    panel->addSubview(
        theme::label(title, theme::note(), theme::quietInk(), {theme::padding, 14}, width));
    const auto sample = theme::label(sampleText, font, theme::ink(), {theme::padding, 40}, width);
    sample->setAdjustsFontSizeToFitWidth(true);
    sample->setMinimumScaleFactor(0.5);
    panel->addSubview(sample);
    add(panel);
}

void ServicesPage::ZNBluetoothHelperDelegateStatus(bool status) {
    if (bluetooth_)
        bluetooth_->setText(bluetoothText(status));
}

void ServicesPage::lockStatusChanged(const Ref<NSNotification>& notification) {
    const auto state = as<NSNumber>(notification->object());
    if (lock_ && state)
        lock_->setText(state->unsignedLongLongValue() == 0 ? "Locked" : "Unlocked");
}

ZN_BLUETOOTH_OBSERVER(ServicesPage);

}  // namespace gallery
