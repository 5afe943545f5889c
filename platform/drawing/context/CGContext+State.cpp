#include <algorithm>

#include "platform/drawing/context/Compositing.h"

namespace zn {

void CGContext::saveGState() {
    state_->saved.push_back({state_->graphics});
    cairo_save(state_->cairo.get());
}

void CGContext::restoreGState() {
    auto& saved = state_->saved;
    // One restore too many is ignored; it never reaches out of a transparency layer.
    if (saved.empty() || saved.back().beginsLayer)
        return;
    state_->graphics = std::move(saved.back().graphics);
    saved.pop_back();
    cairo_restore(state_->cairo.get());
}

void CGContext::translate(double dx, double dy) {
    concat(AffineTransform::translation(dx, dy));
}

void CGContext::scale(double sx, double sy) {
    concat(AffineTransform::scale(sx, sy));
}

void CGContext::rotate(double angle) {
    concat(AffineTransform::rotation(angle));
}

void CGContext::concat(const AffineTransform& transform) {
    const AffineTransform result = transform.concat(ctm());
    if (!result.inverted() || !std::isfinite(result.tx) || !std::isfinite(result.ty)) {
        state_->graphics.drawable = false;
        return;
    }
    const cairo_matrix_t matrix = toCairo(result);
    cairo_set_matrix(state_->cairo.get(), &matrix);
}

void CGContext::setFillColor(const CGColor& color) {
    state_->graphics.fillColor = color;
}

void CGContext::setStrokeColor(const CGColor& color) {
    state_->graphics.strokeColor = color;
}

void CGContext::setLineWidth(double width) {
    if (width >= 0)
        cairo_set_line_width(state_->cairo.get(), width);
}

void CGContext::setLineCap(CGLineCap cap) {
    cairo_set_line_cap(state_->cairo.get(), cap == CGLineCap::Round    ? CAIRO_LINE_CAP_ROUND
                                            : cap == CGLineCap::Square ? CAIRO_LINE_CAP_SQUARE
                                                                       : CAIRO_LINE_CAP_BUTT);
}

void CGContext::setLineJoin(CGLineJoin join) {
    cairo_set_line_join(state_->cairo.get(), join == CGLineJoin::Round   ? CAIRO_LINE_JOIN_ROUND
                                             : join == CGLineJoin::Bevel ? CAIRO_LINE_JOIN_BEVEL
                                                                         : CAIRO_LINE_JOIN_MITER);
}

void CGContext::setMiterLimit(double limit) {
    cairo_set_miter_limit(state_->cairo.get(), limit);
}

void CGContext::setLineDash(double phase, std::vector<double> lengths) {
    // Cairo would refuse these for the rest of the context's life; here they mean a solid line.
    const bool usable =
        std::isfinite(phase) &&
        std::ranges::all_of(lengths, [](double length) { return length >= 0; }) &&
        std::ranges::any_of(lengths, [](double length) { return length > 0; }) &&
        std::ranges::all_of(lengths, [](double length) { return std::isfinite(length); });
    if (!usable)
        lengths.clear();
    cairo_set_dash(state_->cairo.get(), lengths.data(), static_cast<int>(lengths.size()), phase);
}

void CGContext::setAlpha(double alpha) {
    state_->graphics.alpha = alpha > 0 ? std::min(alpha, 1.0) : 0;
}

void CGContext::setBlendMode(CGBlendMode mode) {
    state_->graphics.blendMode = mode;
}

void CGContext::setInterpolationQuality(CGInterpolationQuality quality) {
    state_->graphics.interpolation = quality;
}

void CGContext::setShouldAntialias(bool antialias) {
    cairo_set_antialias(state_->cairo.get(),
                        antialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
}

void CGContext::setShadow(Size offset, double blur, std::optional<CGColor> color) {
    auto& shadow = state_->graphics.shadow;
    shadow.reset();
    if (color && color->alpha > 0)
        shadow = ContextShadow{offset, std::max(0.0, blur), *color};
}

void CGContext::beginTransparencyLayer(double alpha) {
    state_->saved.push_back({state_->graphics, true, alpha});
    cairo_push_group(state_->cairo.get());
    state_->graphics.alpha = 1;
    state_->graphics.blendMode = CGBlendMode::Normal;
    state_->graphics.shadow.reset();
}

void CGContext::endTransparencyLayer() {
    auto& saved = state_->saved;
    if (std::ranges::none_of(saved, &SavedState::beginsLayer))
        return;
    while (!saved.back().beginsLayer)
        restoreGState();
    cairo_t* cairo = state_->cairo.get();
    const CairoPattern layer(cairo_pop_group(cairo));
    const double layerAlpha = saved.back().layerAlpha;
    state_->graphics = std::move(saved.back().graphics);
    saved.pop_back();
    cairo_set_source(cairo, layer.get());
    compose(*state_, Coverage::Paint, layerAlpha * state_->graphics.alpha);
}

}  // namespace zn
