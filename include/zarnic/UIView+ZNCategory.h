#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "zarnic/platform/drawing/UIFont.h"
#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/layers/CAGradientLayer.h"
#include "zarnic/platform/uikit/UIView.h"
#include "zarnic/platform/uikit/UIWindow.h"

/// Additions to `UIView`. Main thread only. Coordinates are points, y downward. An absent view
/// gives 0, nothing or an empty rectangle, and is not drawn into.
namespace zn {

// Geometry: parts of the frame, in the superview's coordinates, standardised.
ZN_EXPORT double zn_GetX(const Ref<UIView>& view);
ZN_EXPORT double zn_GetY(const Ref<UIView>& view);
ZN_EXPORT double zn_GetWidth(const Ref<UIView>& view);
ZN_EXPORT double zn_GetHeight(const Ref<UIView>& view);
ZN_EXPORT double zn_GetLeft(const Ref<UIView>& view);
ZN_EXPORT double zn_GetTop(const Ref<UIView>& view);
ZN_EXPORT double zn_GetRight(const Ref<UIView>& view);
ZN_EXPORT double zn_GetBottom(const Ref<UIView>& view);
/// The setters keep the other three parts as the getters give them.
ZN_EXPORT void zn_SetX(const Ref<UIView>& view, double x);
ZN_EXPORT void zn_SetY(const Ref<UIView>& view, double y);
ZN_EXPORT void zn_SetWidth(const Ref<UIView>& view, double width);
ZN_EXPORT void zn_SetHeight(const Ref<UIView>& view, double height);

/// The first view controller after the view on the responder chain, or null.
ZN_EXPORT Ref<UIViewController> zn_FindViewController(const Ref<UIView>& view);
/// The window that the view of that controller is in: null for a view without a controller, even
/// when it is in a window.
ZN_EXPORT Ref<UIWindow> zn_FindWindow(const Ref<UIView>& view);
/// The view's frame in the coordinates of `zn_FindWindow`. Without one, the frame's origin plus
/// those of the superviews up to a window, less the content offsets of scroll views among them.
ZN_EXPORT Rect zn_GetRelativeFrame(const Ref<UIView>& view);

using ColorList = std::optional<std::vector<Ref<UIColor>>>;
using LocationList = std::optional<std::vector<double>>;
using RectList = std::optional<std::vector<Rect>>;

ZN_EXPORT Ref<UIView> ZN_ViewWithColor(const Ref<UIColor>& color, const Rect& frame);
/// A view of this frame that shows the text filled with a gradient. `textColor` is not used: only
/// the text's shape matters. Gradient places are in units of the view, 0 to 1.
ZN_EXPORT Ref<UIView> ZN_GradientEffectLabelViewText(std::string_view text, const Ref<UIFont>& font,
                                                     const Ref<UIColor>& textColor,
                                                     const Rect& frame,
                                                     const ColorList& effectColors,
                                                     const LocationList& locations,
                                                     Point startPoint, Point endPoint);
/// A picture of a gradient at the main screen's scale; null for a size without area.
ZN_EXPORT Ref<UIImage> ZN_GenerateColorGradientEffectImageColors(const ColorList& colors,
                                                                 const LocationList& locations,
                                                                 Point startPoint, Point endPoint,
                                                                 Size size);

// Drawing, for a view's own `drawRect`: into the current graphics context, whose state is kept.
// Without a context they do nothing but log.
/// Fills the bounds.
ZN_EXPORT void znQuartz2D_FillColor(const Ref<UIView>& view, const Ref<UIColor>& color);
/// Lines at 0, `spacing`, 2 `spacing`, ... across the bounds, as many as whole spacings fit: the
/// far edge has none. Nothing for a spacing of 0 or less, or one that gives more than 100,000
/// lines.
ZN_EXPORT void znQuartz2D_AddGridPatternSpacing(const Ref<UIView>& view, double spacing,
                                                double strokeWidth, const Ref<UIColor>& strokeColor,
                                                const Ref<UIColor>& fillColor);
/// Colours of any kind, blended as RGB; locations between 0 and 1, as many as there are colours,
/// else nothing is drawn. `clipToRects` limits the drawing to the rectangles: an empty list leaves
/// nothing, an absent one everything. `options` are the bits of `CGGradientDrawingOptions`.
ZN_EXPORT void znQuartz2D_AddColorGradientEffectLinearColors(
    const Ref<UIView>& view, const ColorList& colors, const LocationList& locations,
    Point startPoint, Point endPoint, const RectList& clipToRects, unsigned options);
/// The same between two circles.
ZN_EXPORT void znQuartz2D_AddColorGradientEffectRadialColors(
    const Ref<UIView>& view, const ColorList& colors, const LocationList& locations,
    Point startPoint, double startRadius, Point endPoint, double endRadius,
    const RectList& clipToRects, unsigned options);
/// What the two above call. With counts that differ, the surplus is left out.
ZN_EXPORT void znQuartz2D_AddColorGradientEffectRadial(
    const Ref<UIView>& view, bool radial, const ColorList& colors, const LocationList& locations,
    Point startPoint, double startRadius, Point endPoint, double endRadius,
    const RectList& clipToRects, unsigned options);

// Effects of the layer.
/// `radius` is the standard deviation of the blur, in points.
ZN_EXPORT void zn_AddShadowEffectColor(const Ref<UIView>& view, const Ref<UIColor>& color,
                                       Size offset, double radius, double opacity);
/// The shadow of a path, in the view's coordinates.
ZN_EXPORT void zn_AddShadowEffectColor(const Ref<UIView>& view, const Ref<UIColor>& color,
                                       Size offset, const Ref<UIBezierPath>& path, double opacity);
/// Puts a gradient layer of this frame behind all the view's layers and returns it. Places are in
/// units of the frame, 0 to 1.
ZN_EXPORT Ref<CAGradientLayer> zn_AddColorGradientEffectColors(const Ref<UIView>& view,
                                                               const ColorList& colors,
                                                               const LocationList& locations,
                                                               Point startPoint, Point endPoint,
                                                               const Rect& frame);

// Reading.
/// The colour of the pixel at a point of the bounds, with this alpha instead of the pixel's own;
/// null outside. The components are premultiplied: half transparent red reads (0.5, 0, 0).
ZN_EXPORT Ref<UIColor> zn_ColorAtPixelPoint(const Ref<UIView>& view, Point point, double alpha);
/// A picture of the view and all in it at the main screen's scale; null for a view without area.
/// Its corner is the point (0, 0) of the bounds, wherever a scroll view is scrolled to.
ZN_EXPORT Ref<UIImage> zn_TransformToImage(const Ref<UIView>& view);

}  // namespace zn
