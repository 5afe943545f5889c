#pragma once

#include <vector>

#include "zarnic/platform/layers/CALayer.h"

namespace zn {

/// Draws a path in its own coordinates: filled (black unless set), then stroked (clear unless
/// set). Every property animates.
class ZN_EXPORT CAShapeLayer : public CALayer {
    ZN_OBJECT(CAShapeLayer, CALayer)
public:
    CAShapeLayer();
    ~CAShapeLayer() override;

    const CGPath& path() const;
    void setPath(const CGPath& path);
    const CGColor& fillColor() const;
    void setFillColor(const CGColor& color);
    const CGColor& strokeColor() const;
    void setStrokeColor(const CGColor& color);
    double lineWidth() const;
    void setLineWidth(double width);
    CGLineCap lineCap() const;
    void setLineCap(CGLineCap cap);
    CGLineJoin lineJoin() const;
    void setLineJoin(CGLineJoin join);
    const std::vector<double>& lineDashPattern() const;
    void setLineDashPattern(const std::vector<double>& pattern);
    double lineDashPhase() const;
    void setLineDashPhase(double phase);
    /// The stroked part of the path, fractions of its length; default 0 to 1.
    double strokeStart() const;
    void setStrokeStart(double start);
    double strokeEnd() const;
    void setStrokeEnd(double end);
};

}  // namespace zn
