#pragma once

#include <cmath>

#include "zarnic/platform/drawing/Geometry.h"

namespace zn {

/// What arithmetic may add to a length that is whole; far below a pixel.
inline constexpr double PixelTolerance = 1e-6;

/// The least whole number of device pixels that holds the length (points), in points.
inline double ceilToPixel(double length, double scale) {
    return std::ceil(length * scale - PixelTolerance) / scale;
}

inline Size ceilToPixels(Size size, double scale) {
    return {ceilToPixel(size.width, scale), ceilToPixel(size.height, scale)};
}

/// The nearest place between device pixels.
inline double roundToPixel(double place, double scale) {
    return std::round(place * scale) / scale;
}

}  // namespace zn
