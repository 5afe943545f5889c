#include "zarnic/UIScrollView+ZNCategory.h"

namespace zn {

Ref<UIScrollView> ZN_ScrollViewWithColor(const Ref<UIColor>& color, const Rect& frame) {
    const auto view = make<UIScrollView>(frame);
    view->setBackgroundColor(color);
    view->setShowsHorizontalScrollIndicator(false);
    view->setShowsVerticalScrollIndicator(false);
    view->setBounces(false);
    return view;
}

}  // namespace zn
