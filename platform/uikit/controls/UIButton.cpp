#include "zarnic/platform/uikit/UIButton.h"

#include <algorithm>

#include "zarnic/platform/uikit/UIImageView.h"
#include "zarnic/platform/uikit/UILabel.h"

namespace zn {
namespace {

constexpr double customFontSize = 18;
constexpr double systemFontSize = 15;
/// How much of a pressed system button, and of a disabled image, is left.
constexpr double fadedAlpha = 0.2;
constexpr double paleAlpha = 0.5;
/// How black a pressed custom button's images get.
constexpr double darkening = 0.5;

Ref<UIImage> darkened(const Ref<UIImage>& image) {
    const Size size = image->size();
    UIGraphicsBeginImageContextWithOptions(size, false, image->scale());
    const auto context = UIGraphicsGetCurrentContext();
    image->drawAtPoint({0, 0});
    context->setBlendMode(CGBlendMode::SourceAtop);
    context->setFillColor({0, 0, 0, darkening});
    context->fillRect(Rect({0, 0}, size));
    const auto result = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return result;
}

}  // namespace

UIButton::UIButton() = default;

UIButton::UIButton(const Rect& frame) : UIControl(frame) {}

UIButton::UIButton(UIButtonType type) : type_(type) {}

UIButton::~UIButton() = default;

Ref<UIButton> UIButton::buttonWithType(UIButtonType type) {
    return make<UIButton>(type);
}

void UIButton::init() {
    UIControl::init();
    backgroundView_ = make<UIImageView>();
    imageView_ = make<UIImageView>();
    titleLabel_ = make<UILabel>();
    const bool custom = type_ == UIButtonType::Custom;
    titleLabel_->setFont(UIFont::systemFontOfSize(custom ? customFontSize : systemFontSize));
    titleLabel_->setTextAlignment(NSTextAlignment::Center);
    titleLabel_->setLineBreakMode(NSLineBreakMode::TruncatingMiddle);
    for (const Ref<UIView>& part :
         {Ref<UIView>(backgroundView_), Ref<UIView>(imageView_), Ref<UIView>(titleLabel_)}) {
        part->setUserInteractionEnabled(false);
        addSubview(part);
    }
    update();
}

void UIButton::setTitle(std::string_view title, unsigned state) {
    looks_[state].title = title;
    update();
}

void UIButton::setTitleColor(const Ref<UIColor>& color, unsigned state) {
    looks_[state].titleColor = color;
    update();
}

void UIButton::setImage(const Ref<UIImage>& image, unsigned state) {
    looks_[state].image = image;
    update();
}

void UIButton::setBackgroundImage(const Ref<UIImage>& image, unsigned state) {
    looks_[state].background = image;
    update();
}

template <class T>
T UIButton::lookFor(unsigned state, T Look::*member) const {
    for (const unsigned each : {state, UIControlState::Normal}) {
        const auto look = looks_.find(each);
        if (look != looks_.end() && look->second.*member != T())
            return look->second.*member;
    }
    return {};
}

bool UIButton::hasOwn(unsigned state, Ref<UIImage> Look::*member) const {
    const auto look = looks_.find(state);
    return look != looks_.end() && look->second.*member;
}

std::string UIButton::titleForState(unsigned state) const {
    return lookFor(state, &Look::title);
}

Ref<UIColor> UIButton::titleColorForState(unsigned state) const {
    if (const auto color = lookFor(state, &Look::titleColor))
        return color;
    if (type_ == UIButtonType::Custom)
        return UIColor::whiteColor();
    return (state & UIControlState::Disabled) != 0 ? UIColor::colorWithWhite(0.4, 0.35)
                                                   : tintColor();
}

Ref<UIImage> UIButton::imageForState(unsigned state) const {
    return lookFor(state, &Look::image);
}

Ref<UIImage> UIButton::backgroundImageForState(unsigned state) const {
    return lookFor(state, &Look::background);
}

Ref<UIImage> UIButton::shown(Ref<UIImage> Look::*member, Darkened& cache) {
    const Ref<UIImage> image = lookFor(state(), member);
    const bool darkens = image && highlighted() && darkensWhenHighlighted_ &&
                         type_ == UIButtonType::Custom && !hasOwn(state(), member);
    if (!darkens)
        return image;
    if (cache.original != image)
        cache = {image, darkened(image)};
    return cache.picture;
}

void UIButton::updateTitle() {
    titleLabel_->setText(currentTitle());
    titleLabel_->setTextColor(currentTitleColor());
}

void UIButton::update() {
    if (!titleLabel_)
        return;
    updateTitle();
    imageView_->setImage(shown(&Look::image, darkImage_));
    backgroundView_->setImage(shown(&Look::background, darkBackground_));
    const bool fades = type_ == UIButtonType::System && highlighted();
    const bool pales = palesWhenDisabled_ && !enabled() && !hasOwn(state(), &Look::image);
    titleLabel_->setAlpha(fades ? fadedAlpha : 1);
    imageView_->setAlpha(fades ? fadedAlpha : pales ? paleAlpha : 1);
    setNeedsLayout();
}

void UIButton::stateChanged() {
    update();
}

void UIButton::tintColorDidChange() {
    update();
}

unsigned UIButton::upInsideEvents() const {
    return UIControlEvents::TouchUpInside | UIControlEvents::PrimaryActionTriggered;
}

void UIButton::setAdjustsImageWhenHighlighted(bool adjusts) {
    darkensWhenHighlighted_ = adjusts;
    update();
}

void UIButton::setAdjustsImageWhenDisabled(bool adjusts) {
    palesWhenDisabled_ = adjusts;
    update();
}

}  // namespace zn
