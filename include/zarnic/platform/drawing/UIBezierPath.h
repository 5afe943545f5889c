#pragma once

#include <vector>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/foundation/Class.h"

namespace zn {

/// A path as a value: what layers and contexts take.
class ZN_EXPORT CGPath {
public:
    enum class Verb { Move, Line, Curve, Close };
    struct Element {
        Verb verb;
        /// Move and line use the first; a curve has two control points, then its end.
        Point points[3];
        friend bool operator==(const Element&, const Element&) = default;
    };

    static CGPath rect(const Rect& rect);
    static CGPath ellipse(const Rect& rect);
    /// Corner radii larger than half a side are cut to it.
    static CGPath roundedRect(const Rect& rect, double radius);

    void moveTo(Point point);
    /// Begins at `point` when there is no current point.
    void lineTo(Point point);
    void curveTo(Point end, Point control1, Point control2);
    void quadCurveTo(Point end, Point control);
    /// Angles in radians, clockwise in y-down space; joined to the current point by a line.
    void arc(Point center, double radius, double startAngle, double endAngle, bool clockwise);
    void close();
    void append(const CGPath& other);
    void transform(const AffineTransform& transform);

    bool empty() const { return elements_.empty(); }
    const std::vector<Element>& elements() const { return elements_; }
    Point currentPoint() const;
    /// The box of the curve itself, not of its control points; null for an empty path.
    Rect bounds() const;
    /// Non-zero winding unless `evenOdd`.
    bool contains(Point point, bool evenOdd = false) const;

    friend bool operator==(const CGPath&, const CGPath&) = default;

private:
    std::vector<Element> elements_;
};

enum class CGLineCap { Butt, Round, Square };
enum class CGLineJoin { Miter, Round, Bevel };

/// A path with its drawing settings; `fill` and `stroke` draw into the current context.
class ZN_EXPORT UIBezierPath final : public NSObject {
    ZN_OBJECT(UIBezierPath, NSObject)
public:
    UIBezierPath();
    ~UIBezierPath() override;

    static Ref<UIBezierPath> bezierPath();
    static Ref<UIBezierPath> bezierPathWithRect(const Rect& rect);
    static Ref<UIBezierPath> bezierPathWithOvalInRect(const Rect& rect);
    static Ref<UIBezierPath> bezierPathWithRoundedRect(const Rect& rect, double cornerRadius);
    static Ref<UIBezierPath> bezierPathWithArcCenter(Point center, double radius, double startAngle,
                                                     double endAngle, bool clockwise);

    void moveToPoint(Point point) { path_.moveTo(point); }
    void addLineToPoint(Point point) { path_.lineTo(point); }
    void addCurveToPoint(Point end, Point control1, Point control2) {
        path_.curveTo(end, control1, control2);
    }
    void addQuadCurveToPoint(Point end, Point control) { path_.quadCurveTo(end, control); }
    void addArcWithCenter(Point center, double radius, double startAngle, double endAngle,
                          bool clockwise) {
        path_.arc(center, radius, startAngle, endAngle, clockwise);
    }
    void closePath() { path_.close(); }
    void appendPath(const Ref<UIBezierPath>& other);
    void applyTransform(const AffineTransform& transform) { path_.transform(transform); }

    const CGPath& cgPath() const { return path_; }
    void setCGPath(const CGPath& path) { path_ = path; }
    Rect bounds() const { return path_.bounds(); }
    bool containsPoint(Point point) const { return path_.contains(point, evenOdd_); }

    double lineWidth() const { return lineWidth_; }
    void setLineWidth(double width) { lineWidth_ = width; }
    CGLineCap lineCapStyle() const { return cap_; }
    void setLineCapStyle(CGLineCap cap) { cap_ = cap; }
    CGLineJoin lineJoinStyle() const { return join_; }
    void setLineJoinStyle(CGLineJoin join) { join_ = join; }
    bool usesEvenOddFillRule() const { return evenOdd_; }
    void setUsesEvenOddFillRule(bool evenOdd) { evenOdd_ = evenOdd; }

    void fill() const;
    void stroke() const;
    /// Cuts the current context's clip to the path.
    void addClip() const;

private:
    CGPath path_;
    double lineWidth_ = 1;
    CGLineCap cap_ = CGLineCap::Butt;
    CGLineJoin join_ = CGLineJoin::Miter;
    bool evenOdd_ = false;
};

}  // namespace zn
