#pragma once

#include <vector>

#include "zarnic/platform/layers/CALayer.h"

namespace zn {

/// Fills its bounds (corner radius followed) with a linear gradient; beyond the ends the end
/// colours go on. One colour fills evenly.
class ZN_EXPORT CAGradientLayer : public CALayer {
    ZN_OBJECT(CAGradientLayer, CALayer)
public:
    CAGradientLayer();
    ~CAGradientLayer() override;

    const std::vector<CGColor>& colors() const;
    void setColors(const std::vector<CGColor>& colors);
    /// Between 0 and 1; empty for even spreading.
    const std::vector<double>& locations() const;
    void setLocations(const std::vector<double>& locations);
    /// In units of the bounds; default (0.5, 0) to (0.5, 1).
    Point startPoint() const;
    void setStartPoint(Point point);
    Point endPoint() const;
    void setEndPoint(Point point);
};

}  // namespace zn
