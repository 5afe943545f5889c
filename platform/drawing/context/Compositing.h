#pragma once

#include "platform/drawing/context/ContextState.h"

namespace zn {

/// How the source goes through the current path.
enum class Coverage { Fill, Stroke, Paint };

/// Cairo's operator for a blend mode; `PlusDarker`, which Cairo lacks, gives the normal one.
cairo_operator_t cairoOperator(CGBlendMode mode);

/// Draws the source that is set on the context's Cairo handle through its current path, as the
/// state says: shadow, then shape, with its blend mode, and only where the shape is. `alpha`
/// multiplies a source that is not a solid colour. The path stays.
void compose(CGContext::State& state, Coverage coverage, double alpha = 1);

/// Only the source through the path, with the operator that is set.
void applyCoverage(cairo_t* cairo, Coverage coverage, double alpha);

/// For blend modes that Cairo cannot keep inside the shape, or does not have: pixel by pixel.
void composePixels(CGContext::State& state, Coverage coverage, double alpha);

/// The shadow of what `compose` is about to draw.
void composeShadow(CGContext::State& state, Coverage coverage, double alpha);

}  // namespace zn
