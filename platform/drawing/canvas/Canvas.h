#pragma once

#include <memory>
#include <vector>

#include "platform/drawing/canvas/Picture.h"
#include "zarnic/platform/drawing/CGContext.h"

using cairo_t = struct _cairo;
using cairo_pattern_t = struct _cairo_pattern;

namespace zn {

/// What was drawn between `beginGroup` and `endGroup`.
struct GroupDeleter {
    void operator()(cairo_pattern_t* pattern) const;
};
using Group = std::unique_ptr<cairo_pattern_t, GroupDeleter>;

struct StrokeStyle {
    double width = 1;
    CGLineCap cap = CGLineCap::Butt;
    CGLineJoin join = CGLineJoin::Miter;
    std::vector<double> dash;
    double dashPhase = 0;
};

/// The few things that the layer floor paints with. Coordinates are those of the current space,
/// which begins as pixel space: y downward, one unit a pixel.
class Canvas {
public:
    /// `base` takes pixel space to the context's present user space.
    Canvas(CGContext& context, const AffineTransform& base);
    /// (x, y) is the place of the picture's first pixel in pixel space.
    Canvas(Picture& picture, int x, int y);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// Brings clip and space back when it ends.
    class Saved {
    public:
        explicit Saved(Canvas& canvas);
        ~Saved();
        Saved(const Saved&) = delete;
        Saved& operator=(const Saved&) = delete;

    private:
        Canvas& canvas_;
    };

    /// `toPixels` takes the new space to pixel space.
    void setSpace(const AffineTransform& toPixels);
    /// The box of the clip in the current space; empty when nothing is left.
    Rect clipBox() const;
    void clipRect(const Rect& rect);
    void clipRoundedRect(const Rect& rect, double radius);

    /// Everything inside the clip becomes this colour.
    void clear(const CGColor& color);
    void fillRoundedRect(const Rect& rect, double radius, const CGColor& color);
    /// Between two rounded rectangles.
    void fillRing(const Rect& outer, double outerRadius, const Rect& inner, double innerRadius,
                  const CGColor& color);
    void fillPath(const CGPath& path, const CGColor& color);
    void strokePath(const CGPath& path, const StrokeStyle& style, const CGColor& color);
    /// The end colours go on beyond start and end.
    void fillGradient(const Rect& rect, double radius, const CGGradient& gradient, Point start,
                      Point end, double alpha);
    void drawImage(const CGImage& image, const PixelPart& part, const Rect& destination,
                   double alpha);
    void drawPicture(const Picture& picture, const Rect& destination, double alpha);
    /// Paints the colour through a part of a coverage picture.
    void fillThrough(const Picture& coverage, const PixelPart& part, const Rect& destination,
                     const CGColor& color);

    void beginGroup();
    Group endGroup();
    enum class Blend { Over, Add };
    void drawGroup(const Group& group, double alpha, Blend blend = Blend::Over);
    void drawGroupThrough(const Group& group, const Group& mask);

private:
    void addRoundedRect(const Rect& rect, double radius);
    void fillSource(const Rect& destination, double alpha);

    cairo_t* cairo_;
    AffineTransform base_;
};

}  // namespace zn
