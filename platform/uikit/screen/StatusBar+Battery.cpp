#include <algorithm>

#include "platform/uikit/screen/StatusBar.h"
#include "zarnic/platform/services/DeviceFacts.h"
#include "zarnic/platform/services/Services.h"

namespace zn {
namespace {

constexpr Size bodySize{22, 10.5};
constexpr double bodyRadius = 2.75;
constexpr double wall = 1;
constexpr double gap = 2;
constexpr Size knobSize{1.5, 4};
constexpr double rightMargin = 7;
constexpr double notchedRightMargin = 16;
/// How strong the battery's outline is beside its filling.
constexpr double outlineAlpha = 0.4;
/// At this level it turns red.
constexpr double lowLevel = 0.2;
constexpr CGColor red{1, 0.23, 0.19, 1};
constexpr CGColor green{0.3, 0.85, 0.39, 1};

CGColor fillingColor(const BatteryReading& battery, const CGColor& ink) {
    if (battery.state == UIDeviceBatteryState::Charging ||
        battery.state == UIDeviceBatteryState::Full)
        return green;
    return battery.level <= lowLevel ? red : ink;
}

}  // namespace

void StatusBar::drawBattery(const Ref<CGContext>& context) const {
    const BatteryReading battery = Services::get<DeviceFacts>()->battery();
    if (battery.level < 0)
        return;
    const double right = size_.width - (notched_ ? notchedRightMargin : rightMargin);
    const Rect body{right - knobSize.width - wall - bodySize.width, middle() - bodySize.height / 2,
                    bodySize.width, bodySize.height};
    CGColor outline = ink();
    outline.alpha = outlineAlpha;
    context->setStrokeColor(outline);
    context->setLineWidth(wall);
    context->addPath(CGPath::roundedRect(body.insetBy(wall / 2, wall / 2), bodyRadius - wall / 2));
    context->drawPath(CGPathDrawingMode::Stroke);
    context->setFillColor(outline);
    context->addPath(CGPath::roundedRect(
        {body.maxX() + wall, middle() - knobSize.height / 2, knobSize.width, knobSize.height},
        knobSize.width / 2));
    context->drawPath(CGPathDrawingMode::Fill);
    Rect filling = body.insetBy(gap, gap);
    filling.size.width *= std::clamp(static_cast<double>(battery.level), 0.0, 1.0);
    context->setFillColor(fillingColor(battery, ink()));
    context->addPath(CGPath::roundedRect(filling, bodyRadius - gap + wall / 2));
    context->drawPath(CGPathDrawingMode::Fill);
}

}  // namespace zn
