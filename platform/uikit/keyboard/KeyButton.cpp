#include "platform/uikit/keyboard/KeyButton.h"

#include <cmath>

#include "zarnic/platform/layers/CAShapeLayer.h"
#include "zarnic/platform/uikit/UILabel.h"

namespace zn {
namespace {

using Kind = KeyboardKey::Kind;

constexpr double cornerRadius = 5;
constexpr double letterSize = 23;
constexpr double wordSize = 16;
constexpr Size reach{3, 6};
constexpr Size previewGrowth{16, 6};

Ref<UIColor> lightKey() {
    return UIColor::whiteColor();
}

Ref<UIColor> darkKey() {
    return UIColor::colorWithRed(0.675, 0.70, 0.74, 1);
}

CGPath arrowUp(Point middle) {
    CGPath path;
    const double corners[][2] = {{0, -9},   {9, 0.5},    {4.5, 0.5}, {4.5, 7},
                                 {-4.5, 7}, {-4.5, 0.5}, {-9, 0.5}};
    for (const auto& [x, y] : corners) {
        const Point corner{middle.x + x, middle.y + y};
        path.empty() ? path.moveTo(corner) : path.lineTo(corner);
    }
    path.close();
    return path;
}

/// The line beneath the arrow says that it stays.
CGPath lockedArrow(Point middle) {
    CGPath path = arrowUp({middle.x, middle.y - 2});
    path.append(CGPath::rect({middle.x - 4.5, middle.y + 8, 9, 1.5}));
    return path;
}

CGPath eraser(Point middle) {
    CGPath path;
    const double corners[][2] = {{-4, -8}, {11, -8}, {11, 8}, {-4, 8}, {-11, 0}};
    for (const auto& [x, y] : corners) {
        const Point corner{middle.x + x, middle.y + y};
        path.empty() ? path.moveTo(corner) : path.lineTo(corner);
    }
    path.close();
    const Point cross{middle.x + 3, middle.y};
    path.moveTo({cross.x - 3, cross.y - 3});
    path.lineTo({cross.x + 3, cross.y + 3});
    path.moveTo({cross.x + 3, cross.y - 3});
    path.lineTo({cross.x - 3, cross.y + 3});
    return path;
}

void addShadow(const Ref<CALayer>& layer, double radius, double opacity) {
    layer->setShadowColor(UIColor::blackColor()->cgColor());
    layer->setShadowOffset({0, 1});
    layer->setShadowRadius(radius);
    layer->setShadowOpacity(opacity);
}

Ref<UILabel> centredLabel(std::string_view text, double size, const Rect& bounds) {
    const auto label = make<UILabel>(bounds);
    label->setFont(UIFont::systemFontOfSize(size));
    label->setText(text);
    label->setTextAlignment(NSTextAlignment::Center);
    return label;
}

}  // namespace

KeyButton::KeyButton(KeyboardKey key, bool standsOut)
    : UIControl(key.frame), key_(std::move(key)), standsOut_(standsOut) {}

KeyButton::~KeyButton() = default;

void KeyButton::init() {
    UIControl::init();
    layer()->setCornerRadius(cornerRadius);
    addShadow(layer(), 0, 0.3);
    label_ = centredLabel(key_.label, isText() ? letterSize : wordSize, bounds());
    addSubview(label_);
    addIcon();
    recolor();
}

void KeyButton::addIcon() {
    if (key_.kind != Kind::Shift && key_.kind != Kind::Delete)
        return;
    icon_ = make<CAShapeLayer>();
    icon_->setFrame(bounds());
    const Point middle = bounds().center();
    icon_->setPath(key_.kind == Kind::Delete ? eraser(middle) : arrowUp(middle));
    icon_->setFillColor({});
    icon_->setStrokeColor(UIColor::blackColor()->cgColor());
    icon_->setLineWidth(1.5);
    icon_->setLineJoin(CGLineJoin::Round);
    icon_->setLineCap(CGLineCap::Round);
    layer()->addSublayer(icon_);
}

void KeyButton::setLabel(std::string_view label) {
    label_->setText(label);
}

const std::string& KeyButton::label() const {
    return label_->text();
}

void KeyButton::showShift(Shift shift) {
    if (!icon_ || shift == shift_)
        return;
    shift_ = shift;
    const Point middle = bounds().center();
    icon_->setPath(shift == Shift::Locked ? lockedArrow(middle) : arrowUp(middle));
    icon_->setFillColor(shift == Shift::Off ? CGColor() : UIColor::blackColor()->cgColor());
    recolor();
}

void KeyButton::recolor() {
    const bool light = isText() || key_.kind == Kind::Space || shift_ != Shift::Off;
    // A pressed key takes the other kind's colour; one with a preview shows it there.
    const bool turned = highlighted() && !isText();
    if (standsOut_ && !turned)
        setBackgroundColor(tintColor());
    else
        setBackgroundColor(light != turned ? lightKey() : darkKey());
    label_->setTextColor(standsOut_ && !turned ? UIColor::whiteColor() : UIColor::blackColor());
}

void KeyButton::setHighlighted(bool highlighted) {
    UIControl::setHighlighted(highlighted);
    recolor();
    if (preview_)
        preview_->removeFromSuperview();
    preview_ = nullptr;
    if (highlighted && isText())
        showPreview();
}

void KeyButton::showPreview() {
    const Rect box(-previewGrowth.width / 2, -bounds().height() - previewGrowth.height,
                   bounds().width() + previewGrowth.width,
                   bounds().height() + previewGrowth.height + cornerRadius);
    preview_ = make<UIView>(box);
    preview_->setUserInteractionEnabled(false);
    preview_->setBackgroundColor(lightKey());
    preview_->layer()->setCornerRadius(2 * cornerRadius);
    addShadow(preview_->layer(), 3, 0.35);
    preview_->addSubview(centredLabel(label(), 1.5 * letterSize, preview_->bounds()));
    addSubview(preview_);
    if (const auto parent = superview())
        parent->bringSubviewToFront(ref(this));
}

bool KeyButton::pointInside(Point point, const Ref<UIEvent>&) const {
    return bounds().insetBy(-reach.width, -reach.height).contains(point);
}

}  // namespace zn
