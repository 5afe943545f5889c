#include "zarnic/ZNUIAdaptationHelper.h"

#include "zarnic/UIDevice+ZNCategory.h"
#include "zarnic/platform/foundation/NSBundle.h"
#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {
namespace {

/// The short sides, in points, of the screens that layouts are drawn for.
constexpr double phoneSide = 375;
constexpr double tabletSide = 768;
constexpr double notchedSafeBottom = 34;

std::optional<std::string> bundleText(std::string_view key) {
    const Value value = NSBundle::mainBundle()->objectForInfoDictionaryKey(key);
    return value.isString() ? std::optional(value.stringValue()) : std::nullopt;
}

}  // namespace

ZNUIAdaptationHelper::ZNUIAdaptationHelper() = default;

ZNUIAdaptationHelper::~ZNUIAdaptationHelper() = default;

Ref<ZNUIAdaptationHelper> ZNUIAdaptationHelper::SharedInstance() {
    static const auto& instance = *new Ref<ZNUIAdaptationHelper>(make<ZNUIAdaptationHelper>());
    return instance;
}

void ZNUIAdaptationHelper::init() {
    NSObject::init();
    const auto type = static_cast<ZNDeviceType>(ZN_DeviceType());
    // Through single precision, as text is read into a number here.
    sysVersion_ = static_cast<double>(Value(ZN_SystemVersion()).floatValue());
    appShortVersion_ = bundleText("CFBundleShortVersionString");
    appBuildVersion_ = bundleText("CFBundleVersion");
    const Rect screen = UIScreen::mainScreen()->bounds();
    width_ = screen.size.width;
    height_ = screen.size.height;
    const double shortSide = height_ > width_ ? width_ : height_;
    scale_ = type == ZNDeviceType::iPad ? 1.0 : shortSide / phoneSide;
    safeTop_ = UIApplication::sharedApplication()->statusBarFrame().size.height;
    safeBottom_ = type == ZNDeviceType::iPhoneX ? notchedSafeBottom : 0.0;
    scale4iPad_ = shortSide / tabletSide;
}

}  // namespace zn
