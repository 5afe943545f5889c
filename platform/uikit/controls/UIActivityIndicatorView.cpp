#include "zarnic/platform/uikit/UIActivityIndicatorView.h"

#include <numbers>

namespace zn {

namespace {

constexpr int Spokes = 12;
constexpr double TurnDuration = 1;
constexpr double StepAngle = 2 * std::numbers::pi / Spokes;
constexpr const char* TurnKey = "turn";

Size sizeOf(UIActivityIndicatorViewStyle style) {
    const double side = style == UIActivityIndicatorViewStyle::WhiteLarge ? 37 : 20;
    return {side, side};
}

Ref<UIColor> colorOf(UIActivityIndicatorViewStyle style) {
    return style == UIActivityIndicatorViewStyle::Gray ? UIColor::grayColor()
                                                       : UIColor::whiteColor();
}

/// One turn in steps of a spoke: each angle is held, then left at once.
Ref<CAAnimation> turning() {
    const auto turn = make<CAKeyframeAnimation>("transform.rotation");
    for (int step = 0; step < Spokes; ++step) {
        for (const int end : {step, step + 1}) {
            turn->values.emplace_back(step * StepAngle);
            turn->keyTimes.push_back(double(end) / Spokes);
        }
    }
    turn->duration = TurnDuration;
    turn->repeatCount = CAAnimation::RepeatsForever;
    return turn;
}

}  // namespace

/// The spokes, drawn once; only their layer turns.
class UIActivityIndicatorView::Wheel final : public UIView {
public:
    void setColor(const Ref<UIColor>& color) {
        color_ = color;
        setNeedsDisplay();
    }
    void drawRect(const Rect& rect) override;
    bool drawsRect() const override { return true; }

private:
    Ref<UIColor> color_;
};

void UIActivityIndicatorView::Wheel::drawRect(const Rect& rect) {
    const auto context = UIGraphicsGetCurrentContext();
    const double radius = rect.width() / 2;
    const Rect spoke(-radius * 0.09, -radius * 0.95, radius * 0.18, radius * 0.48);
    context->translate(rect.midX(), rect.midY());
    CGColor color = color_->cgColor();
    const double opacity = color.alpha;
    // Clockwise from the top the spokes get stronger, up to the one that leads.
    for (int index = 0; index < Spokes; ++index) {
        color.alpha = opacity * (0.25 + 0.75 * index / (Spokes - 1));
        context->rotate(StepAngle);
        context->setFillColor(color);
        context->addPath(CGPath::roundedRect(spoke, spoke.width() / 2));
        context->drawPath(CGPathDrawingMode::Fill);
    }
}

UIActivityIndicatorView::UIActivityIndicatorView() = default;

UIActivityIndicatorView::UIActivityIndicatorView(const Rect& frame) : UIView(frame) {}

UIActivityIndicatorView::UIActivityIndicatorView(UIActivityIndicatorViewStyle style)
    : UIView(Rect({}, sizeOf(style))), style_(style) {}

UIActivityIndicatorView::~UIActivityIndicatorView() = default;

void UIActivityIndicatorView::init() {
    UIView::init();
    setUserInteractionEnabled(false);
    setHidden(true);
    wheel_ = make<Wheel>();
    addSubview(wheel_);
    setActivityIndicatorViewStyle(style_);
}

void UIActivityIndicatorView::startAnimating() {
    if (animating_)
        return;
    animating_ = true;
    setHidden(false);
    wheel_->layer()->addAnimation(turning(), TurnKey);
}

void UIActivityIndicatorView::stopAnimating() {
    animating_ = false;
    wheel_->layer()->removeAnimationForKey(TurnKey);
    if (hidesWhenStopped_)
        setHidden(true);
}

void UIActivityIndicatorView::setHidesWhenStopped(bool hides) {
    hidesWhenStopped_ = hides;
    setHidden(hides && !animating_);
}

void UIActivityIndicatorView::setActivityIndicatorViewStyle(UIActivityIndicatorViewStyle style) {
    style_ = style;
    wheel_->setBounds({{}, sizeOf(style)});
    wheel_->setNeedsDisplay();
    setNeedsLayout();
    setColor(nullptr);
}

void UIActivityIndicatorView::setColor(const Ref<UIColor>& color) {
    color_ = color ? color : colorOf(style_);
    wheel_->setColor(color_);
}

Size UIActivityIndicatorView::sizeThatFits(Size) const {
    return sizeOf(style_);
}

void UIActivityIndicatorView::layoutSubviews() {
    wheel_->setCenter(bounds().center());
}

}  // namespace zn
