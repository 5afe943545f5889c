#include "platform/drawing/context/Compositing.h"

namespace zn {

void CGContext::beginPath() {
    cairo_new_path(state_->cairo.get());
}

void CGContext::moveTo(Point point) {
    zn::moveTo(state_->cairo.get(), point);
}

void CGContext::addLineTo(Point point) {
    zn::lineTo(state_->cairo.get(), point);
}

void CGContext::addCurveTo(Point end, Point control1, Point control2) {
    zn::curveTo(state_->cairo.get(), end, control1, control2);
}

void CGContext::addRect(const Rect& rect) {
    zn::addRect(state_->cairo.get(), rect);
}

void CGContext::addEllipse(const Rect& rect) {
    addPath(CGPath::ellipse(rect));
}

void CGContext::addArc(Point center, double radius, double startAngle, double endAngle,
                       bool clockwise) {
    CGPath path;
    path.arc(center, radius, startAngle, endAngle, !clockwise);
    for (const auto& [verb, points] : path.elements()) {
        // Cairo begins here when there is no current point, and else joins by a line.
        if (verb == CGPath::Verb::Curve)
            addCurveTo(points[2], points[0], points[1]);
        else
            addLineTo(points[0]);
    }
}

void CGContext::addPath(const CGPath& path) {
    zn::addPath(state_->cairo.get(), path);
}

void CGContext::closePath() {
    cairo_close_path(state_->cairo.get());
}

void CGContext::drawPath(CGPathDrawingMode mode) {
    cairo_t* cairo = state_->cairo.get();
    const GraphicsState& graphics = state_->graphics;
    if (graphics.drawable && mode != CGPathDrawingMode::Stroke) {
        const bool evenOdd =
            mode == CGPathDrawingMode::EOFill || mode == CGPathDrawingMode::EOFillStroke;
        cairo_set_fill_rule(cairo, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
        setSource(cairo, graphics.fillColor, graphics.alpha);
        compose(*state_, Coverage::Fill);
    }
    const bool strokes = mode == CGPathDrawingMode::Stroke ||
                         mode == CGPathDrawingMode::FillStroke ||
                         mode == CGPathDrawingMode::EOFillStroke;
    if (graphics.drawable && strokes && cairo_get_line_width(cairo) > 0) {
        setSource(cairo, graphics.strokeColor, graphics.alpha);
        compose(*state_, Coverage::Stroke);
    }
    cairo_new_path(cairo);
}

void CGContext::fillRect(const Rect& rect) {
    beginPath();
    addRect(rect);
    drawPath(CGPathDrawingMode::Fill);
}

void CGContext::strokeRect(const Rect& rect) {
    beginPath();
    addRect(rect);
    drawPath(CGPathDrawingMode::Stroke);
}

void CGContext::fillEllipse(const Rect& rect) {
    beginPath();
    addEllipse(rect);
    drawPath(CGPathDrawingMode::Fill);
}

void CGContext::clearRect(const Rect& rect) {
    beginPath();
    if (!state_->graphics.drawable)
        return;
    cairo_t* cairo = state_->cairo.get();
    addRect(rect);
    cairo_set_operator(cairo, CAIRO_OPERATOR_CLEAR);
    cairo_fill(cairo);
}

void CGContext::clip(bool evenOdd) {
    cairo_t* cairo = state_->cairo.get();
    if (!state_->graphics.drawable)
        cairo_new_path(cairo);
    cairo_set_fill_rule(cairo, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    cairo_clip(cairo);
}

void CGContext::clipToRect(const Rect& rect) {
    clipToRects({&rect, 1});
}

void CGContext::clipToRects(std::span<const Rect> rects) {
    beginPath();
    for (const Rect& rect : rects)
        addRect(rect);
    clip();
}

Rect CGContext::clipBoundingBox() const {
    double left = 0, top = 0, right = 0, bottom = 0;
    cairo_clip_extents(state_->cairo.get(), &left, &top, &right, &bottom);
    if (left == right || top == bottom)
        return Rect::null();
    return {left, top, right - left, bottom - top};
}

}  // namespace zn
