#include "platform/drawing/context/TakeImage.h"

#include "platform/drawing/context/ContextState.h"

namespace zn {

Ref<CGImage> takeImage(CGContext& context) {
    CGContext::State& state = context.state();
    if (!state.pixels || state.opaque)
        return context.makeImage();
    cairo_surface_finish(state.surface.get());
    return make<CGImage>(context.pixelWidth(), context.pixelHeight(), std::move(state.pixels));
}

}  // namespace zn
