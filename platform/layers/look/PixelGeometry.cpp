#include "platform/layers/look/PixelGeometry.h"

#include <algorithm>

namespace zn {
namespace {

PixelRect fromEdges(int left, int top, int right, int bottom) {
    if (right <= left || bottom <= top)
        return {};
    return {left, top, right - left, bottom - top};
}

int bounded(double place) {
    constexpr double Far = 1 << 24;
    return place >= -Far ? static_cast<int>(std::min(place, Far)) : static_cast<int>(-Far);
}

}  // namespace

bool isEmpty(const PixelRect& rect) {
    return rect.width <= 0 || rect.height <= 0;
}

PixelRect offset(const PixelRect& rect, PixelOffset by) {
    return {rect.x + by.x, rect.y + by.y, rect.width, rect.height};
}

PixelRect intersection(const PixelRect& a, const PixelRect& b) {
    return fromEdges(std::max(a.x, b.x), std::max(a.y, b.y), std::min(a.x + a.width, b.x + b.width),
                     std::min(a.y + a.height, b.y + b.height));
}

PixelRect unite(const PixelRect& a, const PixelRect& b) {
    if (isEmpty(a))
        return b;
    if (isEmpty(b))
        return a;
    return fromEdges(std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x + a.width, b.x + b.width),
                     std::max(a.y + a.height, b.y + b.height));
}

bool contains(const PixelRect& outer, const PixelRect& inner) {
    return intersection(outer, inner) == inner;
}

PixelRect expanded(const PixelRect& rect, int left, int top, int right, int bottom) {
    if (isEmpty(rect))
        return {};
    return fromEdges(rect.x - left, rect.y - top, rect.x + rect.width + right,
                     rect.y + rect.height + bottom);
}

std::int64_t area(const PixelRect& rect) {
    return isEmpty(rect) ? 0 : std::int64_t{rect.width} * rect.height;
}

PixelRect enclosing(const Rect& rect) {
    // Places that arithmetic left a hair beside a whole pixel do not reach the next one.
    constexpr double Hair = 1e-6;
    if (rect.isNull())
        return {};
    return fromEdges(
        bounded(std::floor(rect.minX() + Hair)), bounded(std::floor(rect.minY() + Hair)),
        bounded(std::ceil(rect.maxX() - Hair)), bounded(std::ceil(rect.maxY() - Hair)));
}

Rect toRect(const PixelRect& rect) {
    return {static_cast<double>(rect.x), static_cast<double>(rect.y),
            static_cast<double>(rect.width), static_cast<double>(rect.height)};
}

}  // namespace zn
