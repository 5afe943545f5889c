#include "platform/drawing/canvas/Canvas.h"

#include <cairo.h>

#include <algorithm>
#include <numbers>

#include "platform/drawing/context/CairoAccess.h"

namespace zn {
void GroupDeleter::operator()(cairo_pattern_t* pattern) const {
    cairo_pattern_destroy(pattern);
}

Canvas::Canvas(CGContext& context, const AffineTransform& base)
    : cairo_(cairo_reference(cairoHandle(context))), base_(base.concat(context.ctm())) {
    cairo_save(cairo_);
    cairo_new_path(cairo_);
    cairo_set_operator(cairo_, CAIRO_OPERATOR_OVER);
    cairo_set_antialias(cairo_, CAIRO_ANTIALIAS_DEFAULT);
    setSpace({});
}

Canvas::Canvas(Picture& picture, int x, int y)
    : cairo_(cairo_create(picture.surface())), base_(AffineTransform::translation(-x, -y)) {
    cairo_save(cairo_);
    setSpace({});
}

Canvas::~Canvas() {
    cairo_restore(cairo_);
    cairo_destroy(cairo_);
}

Canvas::Saved::Saved(Canvas& canvas) : canvas_(canvas) {
    cairo_save(canvas_.cairo_);
}

Canvas::Saved::~Saved() {
    cairo_restore(canvas_.cairo_);
}

void Canvas::setSpace(const AffineTransform& toPixels) {
    cairo_matrix_t space = toCairo(toPixels.concat(base_));
    // A space without area would put the whole context into an error; nothing is drawn in one.
    if (cairo_matrix_t inverse = space; cairo_matrix_invert(&inverse) == CAIRO_STATUS_SUCCESS)
        cairo_set_matrix(cairo_, &space);
    else
        clipRect({});
}

Rect Canvas::clipBox() const {
    double left = 0, top = 0, right = 0, bottom = 0;
    cairo_clip_extents(cairo_, &left, &top, &right, &bottom);
    return {left, top, right - left, bottom - top};
}

void Canvas::clipRect(const Rect& rect) {
    addRect(cairo_, rect);
    cairo_clip(cairo_);
}

void Canvas::clipRoundedRect(const Rect& rect, double radius) {
    addRoundedRect(rect, radius);
    cairo_clip(cairo_);
}

void Canvas::clear(const CGColor& color) {
    cairo_save(cairo_);
    setSource(cairo_, color);
    cairo_set_operator(cairo_, CAIRO_OPERATOR_SOURCE);
    cairo_paint(cairo_);
    cairo_restore(cairo_);
}

void Canvas::fillRoundedRect(const Rect& rect, double radius, const CGColor& color) {
    addRoundedRect(rect, radius);
    setSource(cairo_, color);
    cairo_fill(cairo_);
}

void Canvas::fillRing(const Rect& outer, double outerRadius, const Rect& inner, double innerRadius,
                      const CGColor& color) {
    addRoundedRect(outer, outerRadius);
    if (inner.size.width > 0 && inner.size.height > 0)
        addRoundedRect(inner, innerRadius);
    setSource(cairo_, color);
    cairo_set_fill_rule(cairo_, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_fill(cairo_);
    cairo_set_fill_rule(cairo_, CAIRO_FILL_RULE_WINDING);
}

void Canvas::fillPath(const CGPath& path, const CGColor& color) {
    addPath(cairo_, path);
    setSource(cairo_, color);
    cairo_fill(cairo_);
}

void Canvas::strokePath(const CGPath& path, const StrokeStyle& style, const CGColor& color) {
    cairo_save(cairo_);
    addPath(cairo_, path);
    setSource(cairo_, color);
    cairo_set_line_width(cairo_, style.width);
    cairo_set_line_cap(cairo_, static_cast<cairo_line_cap_t>(style.cap));
    cairo_set_line_join(cairo_, static_cast<cairo_line_join_t>(style.join));
    cairo_set_miter_limit(cairo_, 10);
    bool dashes = std::any_of(style.dash.begin(), style.dash.end(), [](double x) { return x > 0; });
    bool valid = std::none_of(style.dash.begin(), style.dash.end(), [](double x) { return x < 0; });
    if (dashes && valid)
        cairo_set_dash(cairo_, style.dash.data(), static_cast<int>(style.dash.size()),
                       style.dashPhase);
    cairo_stroke(cairo_);
    cairo_restore(cairo_);
}

void Canvas::addRoundedRect(const Rect& rect, double radius) {
    radius = std::min({radius, rect.width() / 2, rect.height() / 2});
    if (radius <= 0) {
        addRect(cairo_, rect);
        return;
    }
    constexpr double Quarter = std::numbers::pi / 2;
    cairo_new_sub_path(cairo_);
    cairo_arc(cairo_, rect.maxX() - radius, rect.minY() + radius, radius, -Quarter, 0);
    cairo_arc(cairo_, rect.maxX() - radius, rect.maxY() - radius, radius, 0, Quarter);
    cairo_arc(cairo_, rect.minX() + radius, rect.maxY() - radius, radius, Quarter, 2 * Quarter);
    cairo_arc(cairo_, rect.minX() + radius, rect.minY() + radius, radius, 2 * Quarter, 3 * Quarter);
    cairo_close_path(cairo_);
}

void Canvas::beginGroup() {
    cairo_push_group(cairo_);
}

Group Canvas::endGroup() {
    return Group(cairo_pop_group(cairo_));
}

void Canvas::drawGroup(const Group& group, double alpha, Blend blend) {
    cairo_save(cairo_);
    cairo_set_source(cairo_, group.get());
    if (blend == Blend::Add)
        cairo_set_operator(cairo_, CAIRO_OPERATOR_ADD);
    cairo_paint_with_alpha(cairo_, alpha);
    cairo_restore(cairo_);
}

void Canvas::drawGroupThrough(const Group& group, const Group& mask) {
    cairo_save(cairo_);
    cairo_set_source(cairo_, group.get());
    cairo_mask(cairo_, mask.get());
    cairo_restore(cairo_);
}

}  // namespace zn
