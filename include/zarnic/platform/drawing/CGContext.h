#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "zarnic/platform/drawing/CGImage.h"
#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/drawing/UIBezierPath.h"
#include "zarnic/platform/drawing/UIColor.h"

namespace zn {

/// The platform's numbers.
enum class CGBlendMode {
    Normal,
    Multiply,
    Screen,
    Overlay,
    Darken,
    Lighten,
    ColorDodge,
    ColorBurn,
    SoftLight,
    HardLight,
    Difference,
    Exclusion,
    Hue,
    Saturation,
    Color,
    Luminosity,
    Clear,
    Copy,
    SourceIn,
    SourceOut,
    SourceAtop,
    DestinationOver,
    DestinationIn,
    DestinationOut,
    DestinationAtop,
    XOR,
    PlusDarker,
    PlusLighter,
};
enum class CGPathDrawingMode { Fill, EOFill, Stroke, FillStroke, EOFillStroke };
enum class CGInterpolationQuality { Default, None, Low, High, Medium };

/// Bit set: what a gradient paints beyond its ends.
namespace CGGradientDrawingOptions {
inline constexpr unsigned None = 0;
inline constexpr unsigned DrawsBeforeStartLocation = 1;
inline constexpr unsigned DrawsAfterEndLocation = 2;
}  // namespace CGGradientDrawingOptions

/// Colours at places between 0 and 1, interpolated as straight components, then premultiplied.
struct CGGradient {
    std::vector<CGColor> colors;
    /// As many as colours, or none for even spreading.
    std::vector<double> locations;
};

/// What pixels are drawn with. One thread at a time; a state stack begins with black fill and
/// stroke, line width 1, butt caps, miter joins of limit 10, no dash, normal blending.
class ZN_EXPORT CGContext : public NSObject {
    ZN_OBJECT(CGContext, NSObject)
public:
    struct State;
    explicit CGContext(std::unique_ptr<State> state);
    ~CGContext() override;

    /// A context with its origin at the bottom left, y upward. `bitmapInfo` is the platform's
    /// number (alpha info in the low 5 bits, byte order in bits 12 to 14). With a `buffer` the
    /// result is written there by `flush` and on destruction, and its present content is drawn
    /// over; without one the context owns its memory. Null for a format or size that cannot be.
    static Ref<CGContext> bitmap(void* buffer, std::size_t width, std::size_t height,
                                 std::size_t bitsPerComponent, std::size_t bytesPerRow,
                                 CGColorSpace space, std::uint32_t bitmapInfo);
    /// A context in points with its origin at the top left, y downward, `scale` pixels a point;
    /// sizes in pixels are rounded up. Null when either side is zero or less.
    static Ref<CGContext> image(Size size, bool opaque, double scale);

    std::size_t pixelWidth() const;
    std::size_t pixelHeight() const;
    /// A snapshot of the pixels (upright).
    Ref<CGImage> makeImage() const;
    void flush();

    void saveGState();
    void restoreGState();
    void translate(double dx, double dy);
    void scale(double sx, double sy);
    void rotate(double angle);
    void concat(const AffineTransform& transform);
    /// User space to device pixels.
    AffineTransform ctm() const;
    bool flipped() const;

    void setFillColor(const CGColor& color);
    void setStrokeColor(const CGColor& color);
    void setLineWidth(double width);
    void setLineCap(CGLineCap cap);
    void setLineJoin(CGLineJoin join);
    void setMiterLimit(double limit);
    void setLineDash(double phase, std::vector<double> lengths);
    void setAlpha(double alpha);
    void setBlendMode(CGBlendMode mode);
    void setInterpolationQuality(CGInterpolationQuality quality);
    void setShouldAntialias(bool antialias);
    /// Offset in device direction (not affected by the transform); `blur` is twice the Gaussian's
    /// sigma, in points; an absent colour ends the shadow.
    void setShadow(Size offset, double blur, std::optional<CGColor> color);

    void beginPath();
    void moveTo(Point point);
    void addLineTo(Point point);
    void addCurveTo(Point end, Point control1, Point control2);
    void addRect(const Rect& rect);
    void addEllipse(const Rect& rect);
    /// Angles in radians; `clockwise` as seen with y upward: the angle decreases. In a y-downward
    /// context the same call therefore looks turned the other way, unlike `CGPath::arc`.
    void addArc(Point center, double radius, double startAngle, double endAngle, bool clockwise);
    void addPath(const CGPath& path);
    void closePath();
    /// Draws the current path and clears it.
    void drawPath(CGPathDrawingMode mode);

    void fillRect(const Rect& rect);
    void strokeRect(const Rect& rect);
    void fillEllipse(const Rect& rect);
    void clearRect(const Rect& rect);

    /// Cuts the clip to the current path and clears it.
    void clip(bool evenOdd = false);
    void clipToRect(const Rect& rect);
    /// No rectangles at all clip everything away.
    void clipToRects(std::span<const Rect> rects);
    /// The clip's box in user space; null when nothing is left.
    Rect clipBoundingBox() const;

    void drawLinearGradient(const CGGradient& gradient, Point start, Point end, unsigned options);
    void drawRadialGradient(const CGGradient& gradient, Point startCenter, double startRadius,
                            Point endCenter, double endRadius, unsigned options);
    /// The bitmap's bottom row at the rectangle's origin: upside down in a y-downward context.
    void drawImage(const Rect& rect, const Ref<CGImage>& image);
    /// Upright in a y-downward context.
    void drawImageUpright(const Rect& rect, const Ref<CGImage>& image);

    /// What is drawn until the end is composed with the given alpha as one picture.
    void beginTransparencyLayer(double alpha = 1);
    void endTransparencyLayer();

    /// For the drawing and layer floors only.
    State& state() { return *state_; }

private:
    std::unique_ptr<State> state_;
};

/// The current context of this thread: null outside a drawing call or image context.
ZN_EXPORT Ref<CGContext> UIGraphicsGetCurrentContext();
ZN_EXPORT void UIGraphicsPushContext(const Ref<CGContext>& context);
ZN_EXPORT void UIGraphicsPopContext();

}  // namespace zn
