#pragma once

#include <string_view>

#include "zarnic/platform/drawing/UIColor.h"
#include "zarnic/platform/drawing/UIFont.h"
#include "zarnic/platform/foundation/Value.h"
#include "zarnic/platform/uikit/UIViewController.h"

/// Additions to `UIViewController`. Main thread only. An absent controller gives nothing and is
/// left alone.
namespace zn {

/// What was handed to the screen when it was opened (see `ZNControllerHelper`); absent for nothing.
/// Any value may be stored; a container is shared, not copied.
ZN_EXPORT Value zn_Parameters(const Ref<UIViewController>& controller);
ZN_EXPORT void setZn_Parameters(const Ref<UIViewController>& controller, const Value& parameters);

/// The title in the navigation bar; the controller's own title stays.
ZN_EXPORT void zn_SetNavigationTitleText(const Ref<UIViewController>& controller,
                                         std::string_view text);
/// Font and colour of the titles. They belong to the bar of the controller's navigation controller,
/// and so hold for every screen of that stack from then on; there is no return to what was before.
/// Null gives the bar's own. Nothing without a navigation controller.
ZN_EXPORT void zn_SetNavigationTitleTextFont(const Ref<UIViewController>& controller,
                                             const Ref<UIFont>& font);
ZN_EXPORT void zn_SetNavigationTitleTextColor(const Ref<UIViewController>& controller,
                                              const Ref<UIColor>& color);
/// An array of views and `UIBarButtonItem`s, which may be mixed, in the order of
/// `UINavigationItem`: on the left from left to right, on the right from right to left. Other
/// things in it are left out; an empty one, or no array, takes the items away.
ZN_EXPORT void zn_SetNavigationLeftItems(const Ref<UIViewController>& controller,
                                         const Value& items);
ZN_EXPORT void zn_SetNavigationRightItems(const Ref<UIViewController>& controller,
                                          const Value& items);

}  // namespace zn
