#pragma once

#include <vector>

#include "zarnic/platform/uikit/UIScrollView.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

/// What a tap on the status bar does: it scrolls to the top what in the window wants that, if it is
/// one scroll view only.
class StatusBarTap {
public:
    /// Whether a place of the screen lies in the status bar that is shown.
    static bool isIn(Point place);
    static void scrollToTop(const Ref<UIWindow>& window);

private:
    static void collect(const Ref<UIView>& view, const Rect& shown,
                        std::vector<Ref<UIScrollView>>& found);
};

}  // namespace zn
