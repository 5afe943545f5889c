#include <algorithm>
#include <cmath>

#include "controls/LayerColors.h"
#include "platform/drawing/context/CurrentContext.h"
#include "zarnic/UIView+ZNCategory.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {

namespace {

constexpr double MostGridLines = 100'000;

/// Keeps the state of the current context for a scope; null without a context or a view.
class DrawingScope {
public:
    DrawingScope(const Ref<UIView>& view, const char* call)
        : context_(view ? currentContextOrLog(call) : nullptr) {
        if (context_)
            context_->saveGState();
    }
    ~DrawingScope() {
        if (context_)
            context_->restoreGState();
    }
    DrawingScope(const DrawingScope&) = delete;
    DrawingScope& operator=(const DrawingScope&) = delete;

    explicit operator bool() const { return context_ != nullptr; }
    CGContext* operator->() const { return context_.get(); }

private:
    Ref<CGContext> context_;
};

/// Named greys have their components as RGB too.
CGColor inRGB(CGColor color) {
    color.space = CGColor::Space::RGB;
    return color;
}

CGGradient gradientOf(const ColorList& colors, const LocationList& locations) {
    CGGradient gradient;
    const std::size_t count =
        std::min(colors ? colors->size() : 0, locations ? locations->size() : 0);
    for (std::size_t index = 0; index < count; ++index) {
        gradient.colors.push_back(inRGB(layerColor((*colors)[index])));
        gradient.locations.push_back((*locations)[index]);
    }
    return gradient;
}

bool sameCount(const ColorList& colors, const LocationList& locations) {
    return colors && locations && colors->size() == locations->size();
}

/// How many whole spacings fit along a side; 0 where no grid can be.
std::size_t gridLines(double side, double spacing) {
    const double count = spacing > 0 ? std::trunc(side / spacing) : 0;
    if (count <= MostGridLines)
        return static_cast<std::size_t>(std::max(count, 0.0));
    NSLog("a grid of %g points over %g points has too many lines", spacing, side);
    return 0;
}

}  // namespace

void znQuartz2D_FillColor(const Ref<UIView>& view, const Ref<UIColor>& color) {
    const DrawingScope context(view, "znQuartz2D_FillColor");
    if (!context)
        return;
    const Size size = view->bounds().size;
    context->beginPath();
    context->moveTo({0, 0});
    for (const Point corner :
         {Point{size.width, 0}, Point{size.width, size.height}, Point{0, size.height}, Point{0, 0}})
        context->addLineTo(corner);
    context->setLineWidth(0);
    context->setStrokeColor(CGColor());
    context->setFillColor(layerColor(color));
    context->closePath();
    context->drawPath(CGPathDrawingMode::FillStroke);
}

void znQuartz2D_AddGridPatternSpacing(const Ref<UIView>& view, double spacing, double strokeWidth,
                                      const Ref<UIColor>& strokeColor,
                                      const Ref<UIColor>& fillColor) {
    const DrawingScope context(view, "znQuartz2D_AddGridPatternSpacing");
    if (!context)
        return;
    const Size size = view->bounds().size;
    const std::size_t columns = gridLines(size.width, spacing);
    const std::size_t rows = gridLines(size.height, spacing);
    context->beginPath();
    for (std::size_t column = 0; column < columns; ++column) {
        context->moveTo({double(column) * spacing, 0});
        context->addLineTo({double(column) * spacing, size.height});
    }
    for (std::size_t row = 0; row < rows; ++row) {
        context->moveTo({0, double(row) * spacing});
        context->addLineTo({size.width, double(row) * spacing});
    }
    context->setLineWidth(strokeWidth);
    context->setStrokeColor(layerColor(strokeColor));
    context->setFillColor(layerColor(fillColor));
    context->closePath();
    context->drawPath(CGPathDrawingMode::FillStroke);
}

void znQuartz2D_AddColorGradientEffectLinearColors(const Ref<UIView>& view, const ColorList& colors,
                                                   const LocationList& locations, Point startPoint,
                                                   Point endPoint, const RectList& clipToRects,
                                                   unsigned options) {
    if (sameCount(colors, locations))
        znQuartz2D_AddColorGradientEffectRadial(view, false, colors, locations, startPoint, 0,
                                                endPoint, 0, clipToRects, options);
}

void znQuartz2D_AddColorGradientEffectRadialColors(const Ref<UIView>& view, const ColorList& colors,
                                                   const LocationList& locations, Point startPoint,
                                                   double startRadius, Point endPoint,
                                                   double endRadius, const RectList& clipToRects,
                                                   unsigned options) {
    if (sameCount(colors, locations))
        znQuartz2D_AddColorGradientEffectRadial(view, true, colors, locations, startPoint,
                                                startRadius, endPoint, endRadius, clipToRects,
                                                options);
}

void znQuartz2D_AddColorGradientEffectRadial(const Ref<UIView>& view, bool radial,
                                             const ColorList& colors, const LocationList& locations,
                                             Point startPoint, double startRadius, Point endPoint,
                                             double endRadius, const RectList& clipToRects,
                                             unsigned options) {
    const DrawingScope context(view, "znQuartz2D_AddColorGradientEffect");
    if (!context)
        return;
    const CGGradient gradient = gradientOf(colors, locations);
    if (clipToRects && clipToRects->size() == 1)
        context->clipToRect(clipToRects->front());
    else if (clipToRects)
        context->clipToRects(*clipToRects);
    if (radial)
        context->drawRadialGradient(gradient, startPoint, startRadius, endPoint, endRadius,
                                    options);
    else
        context->drawLinearGradient(gradient, startPoint, endPoint, options);
}

}  // namespace zn
