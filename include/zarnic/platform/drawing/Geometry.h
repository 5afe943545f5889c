#pragma once

#include <cmath>
#include <limits>
#include <optional>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

/// Coordinates are doubles in points, y downward, unless said otherwise.
struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0;
    double height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct EdgeInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;
    friend bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

/// A rectangle; sizes may be negative, and every function below standardises them first. The null
/// rectangle (no place at all) is `Rect::null()`.
struct ZN_EXPORT Rect {
    Point origin;
    Size size;

    Rect() = default;
    Rect(double x, double y, double width, double height) : origin{x, y}, size{width, height} {}
    Rect(Point point, Size extent) : origin(point), size(extent) {}

    static Rect null();
    bool isNull() const;
    /// No area (a null one included).
    bool isEmpty() const;

    double minX() const;
    double minY() const;
    double midX() const;
    double midY() const;
    double maxX() const;
    double maxY() const;
    double width() const;
    double height() const;
    Point center() const { return {midX(), midY()}; }

    Rect standardized() const;
    /// The smallest rectangle of whole coordinates around it.
    Rect integral() const;
    Rect offsetBy(double dx, double dy) const;
    Rect insetBy(double dx, double dy) const;
    Rect insetBy(const EdgeInsets& insets) const;
    Rect unionWith(const Rect& other) const;
    /// Null when they do not meet.
    Rect intersection(const Rect& other) const;
    bool intersects(const Rect& other) const;
    /// Minimum edges inclusive, maximum edges exclusive.
    bool contains(Point point) const;
    bool contains(const Rect& other) const;

    friend bool operator==(const Rect&, const Rect&) = default;
};

/// x' = a x + c y + tx, y' = b x + d y + ty.
struct ZN_EXPORT AffineTransform {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    double tx = 0;
    double ty = 0;

    static AffineTransform translation(double dx, double dy);
    static AffineTransform scale(double sx, double sy);
    /// Radians; positive turns clockwise in y-down space.
    static AffineTransform rotation(double angle);

    bool isIdentity() const { return *this == AffineTransform{}; }
    /// `this` first, then `next`.
    AffineTransform concat(const AffineTransform& next) const;
    AffineTransform translatedBy(double dx, double dy) const;
    AffineTransform scaledBy(double sx, double sy) const;
    AffineTransform rotatedBy(double angle) const;
    /// Absent when it cannot be undone.
    std::optional<AffineTransform> inverted() const;

    Point apply(Point point) const;
    /// The bounding box of the transformed rectangle.
    Rect apply(const Rect& rect) const;

    friend bool operator==(const AffineTransform&, const AffineTransform&) = default;
};

}  // namespace zn
