#include "platform/uikit/screen/StatusBar.h"

#include <cmath>
#include <ctime>

#include "zarnic/platform/drawing/TextLayout.h"
#include "zarnic/platform/foundation/Clock.h"

namespace zn {
namespace {

/// Seconds.
constexpr double fadeDuration = 0.25;
constexpr double slideDuration = 0.35;
/// Status bars higher than this have a notch in their middle.
constexpr double plainHeight = 40;

std::string timeOfDay() {
    const auto now = static_cast<std::time_t>(Clock::shared().now());
    std::tm parts{};
    localtime_r(&now, &parts);
    char text[8];
    std::strftime(text, sizeof text, "%H:%M", &parts);
    return text;
}

}  // namespace

StatusBar::StatusBar() : layer_(make<CALayer>()) {
    layer_->setDelegate(this);
    layer_->setName("status bar");
    layer_->setAnchorPoint({0, 0});
}

StatusBar::~StatusBar() {
    layer_->setDelegate(nullptr);
}

void StatusBar::setProfile(const DeviceProfile& profile) {
    size_ = {profile.size.width, profile.statusBarHeight};
    notched_ = profile.statusBarHeight > plainHeight;
    layer_->setBounds(Rect({0, 0}, size_));
    layer_->setContentsScale(profile.scale);
    layer_->setNeedsDisplay();
}

void StatusBar::show(const Look& look) {
    // Hidden, it did not follow the time.
    if (!look.hidden && (look.style != look_.style || look_.hidden))
        layer_->setNeedsDisplay();
    if (look.hidden != look_.hidden)
        move(look);
    look_ = look;
}

/// Hidden bars are clear when they faded and above the screen when they slid.
void StatusBar::move(const Look& look) {
    const bool slides = look.animation == UIStatusBarAnimation::Slide;
    const double aside = -size_.height;
    const bool rests = !layer_->animates("opacity") && !layer_->animates("position");
    if (look.animation == UIStatusBarAnimation::None)
        layer_->removeAllAnimations();
    else if (!look.hidden && rests)
        // It comes in its own way, not in the one it went.
        place(slides ? aside : 0, slides ? 1 : 0);
    const double top = layer_->position().y;
    const double opacity = layer_->opacity();
    if (look.hidden)
        place(slides ? aside : 0, slides ? 1 : 0);
    else
        place(0, 1);
    if (look.animation == UIStatusBarAnimation::None)
        return;
    if (layer_->opacity() != opacity)
        animate("opacity", fadeDuration, opacity);
    if (layer_->position().y != top)
        animate("position", slideDuration, Point{0, top});
}

void StatusBar::place(double top, double opacity) {
    layer_->setPosition({0, top});
    layer_->setOpacity(opacity);
}

/// From what is on the screen, else from `from`, to the value that is set.
void StatusBar::animate(const char* property, double duration, const CAValue& from) {
    const auto animation = make<CABasicAnimation>(property);
    animation->duration = duration;
    animation->timingFunction = CAMediaTimingFunction::easeInEaseOut();
    animation->fromValue = layer_->animates(property) ? layer_->presentationValue(property) : from;
    layer_->addAnimation(animation, property);
}

bool StatusBar::layerDraws(const CALayer&) {
    return !look_.hidden;
}

void StatusBar::drawLayer(CALayer&, const Ref<CGContext>& context) {
    UIGraphicsPushContext(context);
    drawTime();
    drawBattery(context);
    UIGraphicsPopContext();
    waitForMinute();
}

CGColor StatusBar::ink() const {
    const bool dark =
        look_.style == UIStatusBarStyle::Default || look_.style == UIStatusBarStyle::DarkContent;
    return dark ? CGColor{0, 0, 0, 1} : CGColor{1, 1, 1, 1};
}

double StatusBar::middle() const {
    return notched_ ? 23 : size_.height / 2;
}

void StatusBar::drawTime() const {
    const auto font = UIFont::systemFontOfSize(notched_ ? 15 : 12, UIFontWeight::Semibold);
    const std::string text = timeOfDay();
    const Size size = sizeWithFont(text, font);
    // Beside the notch, else in the middle.
    const double center = notched_ ? 51 : size_.width / 2;
    const Rect place{center - size.width / 2, middle() - size.height / 2, std::ceil(size.width),
                     size.height};
    TextStyle style;
    style.font = font;
    style.numberOfLines = 1;
    drawText(text, place, style, ink());
}

void StatusBar::waitForMinute() {
    const double untilMinute = 60 - std::fmod(Clock::shared().now(), 60);
    minute_ =
        NSRunLoop::mainRunLoop()->addDeadline(Clock::shared().monotonic() + untilMinute, [this] {
            if (!look_.hidden)
                layer_->setNeedsDisplay();
        });
}

}  // namespace zn
