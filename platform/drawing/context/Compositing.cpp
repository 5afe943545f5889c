#include "platform/drawing/context/Compositing.h"

namespace zn {

namespace {

/// Cairo lets these change everything inside the clip; here they act inside the shape only.
bool reachesBeyondShape(CGBlendMode mode) {
    return mode == CGBlendMode::SourceIn || mode == CGBlendMode::SourceOut ||
           mode == CGBlendMode::DestinationIn || mode == CGBlendMode::DestinationAtop;
}

void composeClipped(CGContext::State& state, Coverage coverage, double alpha) {
    cairo_t* cairo = state.cairo.get();
    const CairoSave save(cairo);
    if (coverage == Coverage::Fill)
        cairo_clip_preserve(cairo);
    cairo_set_operator(cairo, cairoOperator(state.graphics.blendMode));
    cairo_paint_with_alpha(cairo, alpha);
}

/// Cairo's own clearing paints the source when it strokes straight lines (1.16).
void clearShape(cairo_t* cairo, Coverage coverage) {
    const CairoSave save(cairo);
    cairo_set_source_rgba(cairo, 0, 0, 0, 1);
    cairo_set_operator(cairo, CAIRO_OPERATOR_DEST_OUT);
    applyCoverage(cairo, coverage, 1);
}

}  // namespace

cairo_operator_t cairoOperator(CGBlendMode mode) {
    static constexpr cairo_operator_t operators[] = {
        CAIRO_OPERATOR_OVER,        CAIRO_OPERATOR_MULTIPLY,
        CAIRO_OPERATOR_SCREEN,      CAIRO_OPERATOR_OVERLAY,
        CAIRO_OPERATOR_DARKEN,      CAIRO_OPERATOR_LIGHTEN,
        CAIRO_OPERATOR_COLOR_DODGE, CAIRO_OPERATOR_COLOR_BURN,
        CAIRO_OPERATOR_SOFT_LIGHT,  CAIRO_OPERATOR_HARD_LIGHT,
        CAIRO_OPERATOR_DIFFERENCE,  CAIRO_OPERATOR_EXCLUSION,
        CAIRO_OPERATOR_HSL_HUE,     CAIRO_OPERATOR_HSL_SATURATION,
        CAIRO_OPERATOR_HSL_COLOR,   CAIRO_OPERATOR_HSL_LUMINOSITY,
        CAIRO_OPERATOR_CLEAR,       CAIRO_OPERATOR_SOURCE,
        CAIRO_OPERATOR_IN,          CAIRO_OPERATOR_OUT,
        CAIRO_OPERATOR_ATOP,        CAIRO_OPERATOR_DEST_OVER,
        CAIRO_OPERATOR_DEST_IN,     CAIRO_OPERATOR_DEST_OUT,
        CAIRO_OPERATOR_DEST_ATOP,   CAIRO_OPERATOR_XOR,
        CAIRO_OPERATOR_OVER,        CAIRO_OPERATOR_ADD,
    };
    const auto index = static_cast<std::size_t>(mode);
    return index < std::size(operators) ? operators[index] : CAIRO_OPERATOR_OVER;
}

void applyCoverage(cairo_t* cairo, Coverage coverage, double alpha) {
    if (coverage == Coverage::Stroke) {
        cairo_stroke_preserve(cairo);
    } else if (coverage == Coverage::Paint) {
        cairo_paint_with_alpha(cairo, alpha);
    } else if (alpha == 1) {
        cairo_fill_preserve(cairo);
    } else {
        const CairoSave save(cairo);
        cairo_clip_preserve(cairo);
        cairo_paint_with_alpha(cairo, alpha);
    }
}

void compose(CGContext::State& state, Coverage coverage, double alpha) {
    if (state.graphics.shadow)
        composeShadow(state, coverage, alpha);
    const CGBlendMode mode = state.graphics.blendMode;
    if (mode == CGBlendMode::Clear) {
        clearShape(state.cairo.get(), coverage);
    } else if (mode == CGBlendMode::PlusDarker ||
               (reachesBeyondShape(mode) && coverage == Coverage::Stroke)) {
        composePixels(state, coverage, alpha);
    } else if (reachesBeyondShape(mode)) {
        composeClipped(state, coverage, alpha);
    } else {
        cairo_set_operator(state.cairo.get(), cairoOperator(mode));
        applyCoverage(state.cairo.get(), coverage, alpha);
    }
}

}  // namespace zn
