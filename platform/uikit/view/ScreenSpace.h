#pragma once

#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

/// A point of the screen in a view's coordinates; without a view, in those of `window`.
Point pointFromScreen(Point place, const Ref<UIView>& view, const Ref<UIWindow>& window);
/// The other way round.
Point pointToScreen(Point point, const Ref<UIView>& view, const Ref<UIWindow>& window);

inline Point operator+(Point left, Point right) {
    return {left.x + right.x, left.y + right.y};
}
inline Point operator-(Point left, Point right) {
    return {left.x - right.x, left.y - right.y};
}
inline double distance(Point from, Point to) {
    return std::hypot(to.x - from.x, to.y - from.y);
}

}  // namespace zn
