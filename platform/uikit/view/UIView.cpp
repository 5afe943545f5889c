#include "zarnic/platform/uikit/UIView.h"

#include <algorithm>

#include "platform/drawing/context/CurrentContext.h"
#include "platform/uikit/view/ViewAnimation.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {

namespace {

CAContentsGravity gravityOf(UIViewContentMode mode) {
    switch (mode) {
        case UIViewContentMode::ScaleToFill:
        case UIViewContentMode::Redraw:
            return CAContentsGravity::Resize;
        case UIViewContentMode::ScaleAspectFit:
            return CAContentsGravity::ResizeAspect;
        case UIViewContentMode::ScaleAspectFill:
            return CAContentsGravity::ResizeAspectFill;
        case UIViewContentMode::Center:
            return CAContentsGravity::Center;
        case UIViewContentMode::Top:
            return CAContentsGravity::Top;
        case UIViewContentMode::Bottom:
            return CAContentsGravity::Bottom;
        case UIViewContentMode::Left:
            return CAContentsGravity::Left;
        case UIViewContentMode::Right:
            return CAContentsGravity::Right;
        case UIViewContentMode::TopLeft:
            return CAContentsGravity::TopLeft;
        case UIViewContentMode::TopRight:
            return CAContentsGravity::TopRight;
        case UIViewContentMode::BottomLeft:
            return CAContentsGravity::BottomLeft;
        case UIViewContentMode::BottomRight:
            return CAContentsGravity::BottomRight;
    }
    return CAContentsGravity::Resize;
}

/// Makes a context the current one for a scope.
class CurrentContextScope {
public:
    explicit CurrentContextScope(const Ref<CGContext>& context) { UIGraphicsPushContext(context); }
    ~CurrentContextScope() { UIGraphicsPopContext(); }
    CurrentContextScope(const CurrentContextScope&) = delete;
    CurrentContextScope& operator=(const CurrentContextScope&) = delete;
};

}  // namespace

UIView::UIView() = default;

UIView::UIView(const Rect& frame) : initialFrame_(frame.standardized()) {}

UIView::~UIView() {
    if (!layer_)
        return;
    layer_->setDelegate(nullptr);
    layer_->removeFromSuperlayer();
    // A subview that somebody else keeps goes on without a superview, and so does its layer.
    for (const auto& subview : subviews_)
        if (subview.use_count() > 1)
            subview->layer_->removeFromSuperlayer();
}

void UIView::init() {
    UIResponder::init();
    layer_ = makeLayer();
    layer_->setDelegate(this);
    // What a view begins with is no change of it, even when it is made in an animation block.
    const AnimationsOff off;
    layer_->setFrame(initialFrame_);
    updateContentScale();
}

Ref<CALayer> UIView::makeLayer() const {
    return make<CALayer>();
}

void UIView::setBackgroundColor(const Ref<UIColor>& color) {
    backgroundColor_ = color;
    layer_->setBackgroundColor(color ? color->cgColor() : CGColor{});
}

double UIView::alpha() const {
    return layer_->opacity();
}

void UIView::setAlpha(double alpha) {
    layer_->setOpacity(std::clamp(alpha, 0.0, 1.0));
}

bool UIView::hidden() const {
    return layer_->hidden();
}

void UIView::setHidden(bool hidden) {
    layer_->setHidden(hidden);
}

bool UIView::clipsToBounds() const {
    return layer_->masksToBounds();
}

void UIView::setClipsToBounds(bool clips) {
    layer_->setMasksToBounds(clips);
}

void UIView::setContentMode(UIViewContentMode mode) {
    if (mode == contentMode_)
        return;
    contentMode_ = mode;
    layer_->setContentsGravity(gravityOf(mode));
    layer_->setNeedsDisplayOnBoundsChange(mode == UIViewContentMode::Redraw);
}

double UIView::contentScaleFactor() const {
    return contentScale_ > 0 ? contentScale_ : mainScreenScale();
}

void UIView::setContentScaleFactor(double scale) {
    contentScale_ = scale;
    updateContentScale();
}

void UIView::updateContentScale() {
    if (layer_->contentsScale() == contentScaleFactor())
        return;
    layer_->setContentsScale(contentScaleFactor());
    layer_->setNeedsDisplay();
}

Ref<UIColor> UIView::tintColor() const {
    static const Ref<UIColor> systemBlue = UIColor::colorWithRed(0, 122.0 / 255, 1, 1);
    if (tintColor_)
        return tintColor_;
    const auto parent = superview();
    return parent ? parent->tintColor() : systemBlue;
}

void UIView::setTintColor(const Ref<UIColor>& color) {
    const Ref<UIColor> before = tintColor();
    tintColor_ = color;
    if (!tintColor()->isEqual(*before))
        spreadTintColor();
}

void UIView::spreadTintColor() {
    const Ref<UIView> self = ref(this);
    tintColorDidChange();
    for (const auto& subview : std::vector(subviews_))
        if (!subview->tintColor_)
            subview->spreadTintColor();
}

void UIView::setNeedsDisplay() {
    layer_->setNeedsDisplay();
}

void UIView::setNeedsLayout() {
    layer_->setNeedsLayout();
}

void UIView::layoutIfNeeded() {
    layer_->layoutIfNeeded();
}

bool UIView::layerDraws(const CALayer&) {
    return drawsRect();
}

void UIView::drawLayer(CALayer& layer, const Ref<CGContext>& context) {
    const CurrentContextScope current(context);
    drawRect(layer.bounds());
}

void UIView::layoutSublayersOfLayer(CALayer&) {
    const Ref<UIView> self = ref(this);
    const auto controller = controller_.lock();
    if (controller)
        controller->viewWillLayoutSubviews();
    layoutSubviews();
    if (controller)
        controller->viewDidLayoutSubviews();
}

}  // namespace zn
