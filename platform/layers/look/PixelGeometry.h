#pragma once

#include <cstdint>

#include "zarnic/platform/layers/Compositor.h"

namespace zn {

/// A way in whole pixels.
struct PixelOffset {
    int x = 0;
    int y = 0;
    friend bool operator==(const PixelOffset&, const PixelOffset&) = default;
};

bool isEmpty(const PixelRect& rect);
PixelRect offset(const PixelRect& rect, PixelOffset by);
PixelRect intersection(const PixelRect& a, const PixelRect& b);
/// An empty rectangle adds nothing.
PixelRect unite(const PixelRect& a, const PixelRect& b);
bool contains(const PixelRect& outer, const PixelRect& inner);
PixelRect expanded(const PixelRect& rect, int left, int top, int right, int bottom);
std::int64_t area(const PixelRect& rect);
/// All pixels that the rectangle touches; places far beyond any screen are brought nearer.
PixelRect enclosing(const Rect& rect);
Rect toRect(const PixelRect& rect);

}  // namespace zn
