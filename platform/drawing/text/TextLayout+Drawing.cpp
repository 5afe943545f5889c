#include <algorithm>
#include <span>

#include "platform/drawing/context/CairoAccess.h"
#include "platform/drawing/context/Compositing.h"
#include "platform/drawing/context/ContextState.h"
#include "platform/drawing/text/TextLayoutState.h"

namespace zn {
namespace {

/// Glyphs may stick out of their line's frame by this many lines.
constexpr double overhang = 1;

Rect clipBox(cairo_t* context) {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    cairo_clip_extents(context, &left, &top, &right, &bottom);
    return {left, top, right - left, bottom - top};
}

}  // namespace

void TextLayout::State::drawLine(cairo_t* context, std::size_t index, Point origin,
                                 Drawing drawing) const {
    const Line& line = lines[index];
    const Point start{origin.x + line.frame.origin.x, origin.y + line.baseline};
    for (const Run& run : runsOf(index)) {
        const auto& font = *run.font;
        const auto shown = glyphsOf(run);
        if (drawing == Drawing::Path && !font.colored())
            font.addPath(context, start, shown);
        else
            font.show(context, start, shown);
    }
}

void TextLayout::State::draw(cairo_t* context, Point origin, Drawing drawing) const {
    const Rect clip = clipBox(context);
    const double margin = overhang * style.font->lineHeight();
    const auto first = std::ranges::lower_bound(
        lines, clip.minY() - margin, {},
        [origin](const Line& line) { return origin.y + line.frame.maxY(); });
    for (auto line = first;
         line != lines.end() && origin.y + line->frame.minY() < clip.maxY() + margin; ++line)
        drawLine(context, static_cast<std::size_t>(line - lines.begin()), origin, drawing);
}

void TextLayout::draw(const Ref<CGContext>& context, Point origin, const CGColor& color) const {
    if (!context || !context->state().graphics.drawable)
        return;
    cairo_t* cairo = cairoHandle(*context);
    const GraphicsState& graphics = context->state().graphics;
    const CairoSave saved(cairo);
    if (state_->clips) {
        cairo_new_path(cairo);
        addRect(cairo, {origin, {state_->box.width, state_->size.height}});
        cairo_clip(cairo);
    }
    if (graphics.blendMode != CGBlendMode::Normal) {
        // Cairo lets some operators act beyond glyphs, but `compose` keeps to a path's inside.
        cairo_new_path(cairo);
        prepareSource(*context, color);
        state_->draw(cairo, origin, State::Drawing::Path);
        compose(context->state(), Coverage::Fill);
        cairo_new_path(cairo);
    } else if (graphics.shadow) {
        context->beginTransparencyLayer();
        prepareSource(*context, color);
        state_->draw(cairo, origin, State::Drawing::Glyphs);
        context->endTransparencyLayer();
    } else {
        prepareSource(*context, color);
        state_->draw(cairo, origin, State::Drawing::Glyphs);
    }
}

}  // namespace zn
