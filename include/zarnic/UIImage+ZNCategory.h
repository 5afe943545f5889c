#pragma once

#include <string_view>

#include "zarnic/platform/drawing/UIColor.h"
#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/foundation/Value.h"
#include "zarnic/platform/uikit/UIScrollView.h"

/// Additions to `UIImage`: making, tinting, reading, capturing and scaling pictures. Any thread,
/// except where views are captured: main thread only. Sizes are points; a side that comes out as a
/// part of a pixel is rounded up to a whole one. An absent image, or a size without area, gives
/// none.
namespace zn {

/// A plain picture at one pixel a point; clear for an absent colour.
ZN_EXPORT Ref<UIImage> ZN_ImageWithColor(const Ref<UIColor>& color, Size size);
/// The image of this name from the main bundle as a silhouette in the colour.
ZN_EXPORT Ref<UIImage> ZN_ImageNamed(std::string_view name, const Ref<UIColor>& tintColor);
/// The image as a silhouette in the colour (black for an absent one), at the main screen's scale:
/// its alpha multiplies the colour's. `DestinationIn` gives a plain rectangle of the colour; all
/// other modes give the same.
ZN_EXPORT Ref<UIImage> zn_ImageWithTintColor(const Ref<UIImage>& image,
                                             const Ref<UIColor>& tintColor, CGBlendMode blendMode);

/// The colour of the pixel in the row above the point, with this alpha instead of the pixel's own:
/// points with 0 <= y < 1 have no row above them and read as black, those with 1 <= y < 2 read the
/// top row. The components are premultiplied: half transparent red reads (0.5, 0, 0). Null for a
/// point outside the image.
ZN_EXPORT Ref<UIColor> zn_ColorAtPixelPoint(const Ref<UIImage>& image, Point point, double alpha);
/// Whether the picture is dark: the mean perceived brightness of its 9 x 16 miniature, between 0
/// and 255, is below 65. Bands beside the picture and clear pixels count as black, so a white
/// picture twice as wide as high is dark. Brightness by the HSP model: the square root of 0.299 R^2
/// + 0.587 G^2 + 0.114 B^2.
ZN_EXPORT bool zn_isBlackColor(const Ref<UIImage>& image);

/// The whole content of a scroll view, or any other view as it shows, at the main screen's scale;
/// null for what is no view. A rectangle (points of the capture) with a width and a height above 0
/// cuts its pixels out, as an image of scale 1, or null where it meets nothing.
ZN_EXPORT Ref<UIImage> ZN_Captured(const Value& view, const Rect& cropRect);
ZN_EXPORT Ref<UIImage> ZN_CapturedView(const Ref<UIView>& view);
/// The view is scrolled to its beginning and made as large as its content while it is drawn, and
/// put back afterwards; its delegate hears of that.
ZN_EXPORT Ref<UIImage> ZN_CapturedScrollView(const Ref<UIScrollView>& scrollView);

/// The picture as large as it fits into the size, centred, at one pixel a point; place and size are
/// cut to whole points, the rest is clear.
ZN_EXPORT Ref<UIImage> zn_imageByScalingToSize(const Ref<UIImage>& image, Size targetSize);
/// At one pixel a point.
ZN_EXPORT Ref<UIImage> zn_imageToScale(const Ref<UIImage>& image, float factor);
/// Smaller in the same proportions, at one pixel a point: a picture higher than wide is limited in
/// its width, any other in its height, so that the longer side may exceed the limit. Never larger.
ZN_EXPORT Ref<UIImage> zn_imageAutoSize(const Ref<UIImage>& image, Size limit);

}  // namespace zn
