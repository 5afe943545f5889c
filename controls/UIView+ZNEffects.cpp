#include <array>
#include <cstdint>

#include "controls/LayerColors.h"
#include "zarnic/UILabel+ZNCategory.h"
#include "zarnic/UIView+ZNCategory.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {

namespace {

std::vector<CGColor> colorsOf(const ColorList& colors) {
    std::vector<CGColor> result;
    if (colors)
        for (const auto& color : *colors)
            result.push_back(layerColor(color));
    return result;
}

/// An image context for a scope.
class ImageContext {
public:
    explicit ImageContext(Size size) {
        UIGraphicsBeginImageContextWithOptions(size, false, UIScreen::mainScreen()->scale());
    }
    ~ImageContext() { UIGraphicsEndImageContext(); }
    ImageContext(const ImageContext&) = delete;
    ImageContext& operator=(const ImageContext&) = delete;
};

}  // namespace

Ref<UIView> ZN_ViewWithColor(const Ref<UIColor>& color, const Rect& frame) {
    const auto view = make<UIView>(frame);
    view->setBackgroundColor(color);
    return view;
}

Ref<UIView> ZN_GradientEffectLabelViewText(std::string_view text, const Ref<UIFont>& font,
                                           const Ref<UIColor>&, const Rect& frame,
                                           const ColorList& effectColors,
                                           const LocationList& locations, Point startPoint,
                                           Point endPoint) {
    const auto container = ZN_ViewWithColor(UIColor::clearColor(), frame);
    const auto label = ZN_LabelWithColor(UIColor::clearColor(), text, font,
                                         UIColor::colorWithRed(1, 1, 1, 1), container->bounds());
    container->addSubview(label);
    const auto gradient = zn_AddColorGradientEffectColors(
        container, effectColors, locations, startPoint, endPoint, container->bounds());
    gradient->setMask(label->layer());
    label->setFrame(gradient->bounds());
    return container;
}

Ref<UIImage> ZN_GenerateColorGradientEffectImageColors(const ColorList& colors,
                                                       const LocationList& locations,
                                                       Point startPoint, Point endPoint,
                                                       Size size) {
    const auto view = ZN_ViewWithColor(UIColor::clearColor(), {{}, size});
    zn_AddColorGradientEffectColors(view, colors, locations, startPoint, endPoint, view->bounds());
    return zn_TransformToImage(view);
}

void zn_AddShadowEffectColor(const Ref<UIView>& view, const Ref<UIColor>& color, Size offset,
                             double radius, double opacity) {
    if (!view)
        return;
    const auto& layer = view->layer();
    layer->setShadowColor(layerColor(color));
    layer->setShadowOffset(offset);
    layer->setShadowRadius(radius);
    layer->setShadowOpacity(opacity);
}

void zn_AddShadowEffectColor(const Ref<UIView>& view, const Ref<UIColor>& color, Size offset,
                             const Ref<UIBezierPath>& path, double opacity) {
    if (!view)
        return;
    const auto& layer = view->layer();
    layer->setShadowColor(layerColor(color));
    layer->setShadowOffset(offset);
    layer->setShadowPath(path ? std::optional(path->cgPath()) : std::nullopt);
    layer->setShadowOpacity(opacity);
}

Ref<CAGradientLayer> zn_AddColorGradientEffectColors(const Ref<UIView>& view,
                                                     const ColorList& colors,
                                                     const LocationList& locations,
                                                     Point startPoint, Point endPoint,
                                                     const Rect& frame) {
    if (!view)
        return nullptr;
    const auto gradient = make<CAGradientLayer>();
    gradient->setFrame(frame);
    gradient->setColors(colorsOf(colors));
    gradient->setLocations(locations.value_or(std::vector<double>()));
    gradient->setStartPoint(startPoint);
    gradient->setEndPoint(endPoint);
    view->layer()->insertSublayer(gradient, 0);
    return gradient;
}

Ref<UIColor> zn_ColorAtPixelPoint(const Ref<UIView>& view, Point point, double alpha) {
    if (!view || !view->bounds().contains(point))
        return nullptr;
    constexpr std::uint32_t PremultipliedLast = 1;
    std::array<std::uint8_t, 4> pixel{};
    const auto context = CGContext::bitmap(pixel.data(), 1, 1, 8, pixel.size(),
                                           CGColorSpace::DeviceRGB, PremultipliedLast);
    context->translate(-point.x, -point.y);
    view->layer()->renderInContext(context);
    context->flush();
    // On purpose the pixel's own alpha is not used, and the components stay premultiplied.
    return UIColor::colorWithRed(pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0, alpha);
}

Ref<UIImage> zn_TransformToImage(const Ref<UIView>& view) {
    if (!view || view->bounds().isEmpty())
        return nullptr;
    const ImageContext context(view->bounds().size);
    view->layer()->renderInContext(UIGraphicsGetCurrentContext());
    return UIGraphicsGetImageFromCurrentImageContext();
}

}  // namespace zn
