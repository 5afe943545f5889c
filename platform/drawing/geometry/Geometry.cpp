#include "zarnic/platform/drawing/Geometry.h"

#include <algorithm>

namespace zn {

Rect Rect::null() {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return {infinity, infinity, 0, 0};
}

bool Rect::isNull() const {
    return std::isinf(origin.x) || std::isinf(origin.y);
}

bool Rect::isEmpty() const {
    return isNull() || size.width == 0 || size.height == 0;
}

double Rect::minX() const {
    return std::min(origin.x, origin.x + size.width);
}

double Rect::minY() const {
    return std::min(origin.y, origin.y + size.height);
}

double Rect::midX() const {
    return origin.x + size.width * 0.5;
}

double Rect::midY() const {
    return origin.y + size.height * 0.5;
}

double Rect::maxX() const {
    return std::max(origin.x, origin.x + size.width);
}

double Rect::maxY() const {
    return std::max(origin.y, origin.y + size.height);
}

double Rect::width() const {
    return std::abs(size.width);
}

double Rect::height() const {
    return std::abs(size.height);
}

Rect Rect::standardized() const {
    if (isNull())
        return null();
    return {minX(), minY(), width(), height()};
}

Rect Rect::integral() const {
    if (isNull())
        return null();
    const double left = std::floor(minX());
    const double top = std::floor(minY());
    return {left, top, std::ceil(maxX()) - left, std::ceil(maxY()) - top};
}

Rect Rect::offsetBy(double dx, double dy) const {
    if (isNull())
        return null();
    const Rect rect = standardized();
    return {rect.origin.x + dx, rect.origin.y + dy, rect.size.width, rect.size.height};
}

Rect Rect::insetBy(double dx, double dy) const {
    if (isNull())
        return null();
    const Rect inset{minX() + dx, minY() + dy, width() - 2 * dx, height() - 2 * dy};
    return inset.size.width < 0 || inset.size.height < 0 ? null() : inset;
}

Rect Rect::insetBy(const EdgeInsets& insets) const {
    if (isNull())
        return null();
    return {minX() + insets.left, minY() + insets.top, width() - insets.left - insets.right,
            height() - insets.top - insets.bottom};
}

Rect Rect::unionWith(const Rect& other) const {
    if (isNull())
        return other.standardized();
    if (other.isNull())
        return standardized();
    const double left = std::min(minX(), other.minX());
    const double top = std::min(minY(), other.minY());
    return {left, top, std::max(maxX(), other.maxX()) - left, std::max(maxY(), other.maxY()) - top};
}

Rect Rect::intersection(const Rect& other) const {
    if (!intersects(other))
        return null();
    const double left = std::max(minX(), other.minX());
    const double top = std::max(minY(), other.minY());
    return {left, top, std::min(maxX(), other.maxX()) - left, std::min(maxY(), other.maxY()) - top};
}

bool Rect::intersects(const Rect& other) const {
    if (isNull() || other.isNull())
        return false;
    return minX() < other.maxX() && other.minX() < maxX() && minY() < other.maxY() &&
           other.minY() < maxY();
}

bool Rect::contains(Point point) const {
    if (isEmpty())
        return false;
    return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
}

bool Rect::contains(const Rect& other) const {
    if (isNull() || other.isNull())
        return false;
    return minX() <= other.minX() && other.maxX() <= maxX() && minY() <= other.minY() &&
           other.maxY() <= maxY();
}

}  // namespace zn
