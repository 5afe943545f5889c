#include "zarnic/platform/drawing/UIBezierPath.h"

#include "platform/drawing/context/CurrentContext.h"

namespace zn {

namespace {

Ref<UIBezierPath> bezierPath(const CGPath& path) {
    auto result = make<UIBezierPath>();
    result->setCGPath(path);
    return result;
}

}  // namespace

UIBezierPath::UIBezierPath() = default;
UIBezierPath::~UIBezierPath() = default;

Ref<UIBezierPath> UIBezierPath::bezierPath() {
    return make<UIBezierPath>();
}

Ref<UIBezierPath> UIBezierPath::bezierPathWithRect(const Rect& rect) {
    return zn::bezierPath(CGPath::rect(rect));
}

Ref<UIBezierPath> UIBezierPath::bezierPathWithOvalInRect(const Rect& rect) {
    return zn::bezierPath(CGPath::ellipse(rect));
}

Ref<UIBezierPath> UIBezierPath::bezierPathWithRoundedRect(const Rect& rect, double cornerRadius) {
    return zn::bezierPath(CGPath::roundedRect(rect, cornerRadius));
}

Ref<UIBezierPath> UIBezierPath::bezierPathWithArcCenter(Point center, double radius,
                                                        double startAngle, double endAngle,
                                                        bool clockwise) {
    CGPath path;
    path.arc(center, radius, startAngle, endAngle, clockwise);
    return zn::bezierPath(path);
}

void UIBezierPath::appendPath(const Ref<UIBezierPath>& other) {
    if (other)
        path_.append(other->path_);
}

void UIBezierPath::fill() const {
    const auto context = currentContextOrLog("UIBezierPath fill");
    if (!context)
        return;
    context->beginPath();
    context->addPath(path_);
    context->drawPath(evenOdd_ ? CGPathDrawingMode::EOFill : CGPathDrawingMode::Fill);
}

void UIBezierPath::stroke() const {
    const auto context = currentContextOrLog("UIBezierPath stroke");
    if (!context)
        return;
    context->saveGState();
    context->setLineWidth(lineWidth_);
    context->setLineCap(cap_);
    context->setLineJoin(join_);
    context->beginPath();
    context->addPath(path_);
    context->drawPath(CGPathDrawingMode::Stroke);
    context->restoreGState();
}

void UIBezierPath::addClip() const {
    const auto context = currentContextOrLog("UIBezierPath addClip");
    if (!context)
        return;
    context->beginPath();
    context->addPath(path_);
    context->clip(evenOdd_);
}

}  // namespace zn
