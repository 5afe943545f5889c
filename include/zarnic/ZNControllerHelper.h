#pragma once

#include <functional>
#include <string_view>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"
#include "zarnic/platform/uikit/UINavigationController.h"

namespace zn {

/// Opens screens from anywhere in an application, which registers its navigation controller once.
/// Main thread only.
///
/// A target is a class (`Detail::staticClass()`), or a value: the name of a class as a text, an
/// `NSURL`, or a controller. The class must be known to the runtime: one that no instance was made
/// of yet needs `ZN_REGISTER_CLASS`. The path of a URL names the class, without its slashes and up
/// to its first dot: `app:///Detail.page?id=7` opens a `Detail`. Note that in `app://Detail` that
/// name is the host, and nothing opens.
///
/// A screen that is opened gets the parameters as its `zn_Parameters` (absent for none); one that a
/// URL opens without parameters gets the URL's query as a dictionary. It also gets
/// `hidesBottomBarWhenPushed`.
///
/// Nothing is reported. Without a registered root navigation controller, for a name that nobody
/// has, for a class that is no controller or cannot be made without arguments, and for a controller
/// that cannot be pushed because it is on the stack already, nothing happens.
class ZN_EXPORT ZNControllerHelper final : public NSObject {
    ZN_OBJECT(ZNControllerHelper, NSObject)
public:
    using Completion = UIViewController::Completion;

    /// Kept until another one, or null, is registered. The login one is only kept.
    static void RegisterLoginNavigationController(const Ref<UINavigationController>& controller);
    static Ref<UINavigationController> LoginNavigationController();
    static void RegisterRootNavigationController(const Ref<UINavigationController>& controller);
    static Ref<UINavigationController> RootNavigationController();

    static void PushViewController(const Value& target, bool animated);
    static void PushViewController(const Class& target, bool animated);
    static void PushViewController(const Value& target, const Value& parameters, bool animated);
    static void PushViewController(const Class& target, const Value& parameters, bool animated);
    /// The popped controller; null when only the root was left.
    static Ref<UIViewController> PopViewControllerAnimated(bool animated);

    /// On the root navigation controller. The completion is called once, when the screen has come;
    /// never when it cannot come (see `UIViewController::presentViewController`).
    static void PresentViewController(const Value& target, bool animated, Completion completion);
    static void PresentViewController(const Class& target, bool animated, Completion completion);
    static void PresentViewController(const Value& target, const Value& parameters, bool animated,
                                      Completion completion);
    static void PresentViewController(const Class& target, const Value& parameters, bool animated,
                                      Completion completion);
    /// Of what the root navigation controller shows: the presented screen goes, or nothing.
    static void DismissViewControllerAnimated(bool animated, Completion completion);

    /// The new screen comes in over the old one from below, in 0.3 seconds.
    static void PushViewControllerForRootTransition(const Value& target, const Value& parameters);
    static void PushViewControllerForRootTransition(const Class& target, const Value& parameters);
    /// The old screen goes down and reveals what is below, in 0.3 seconds. The block does the pop,
    /// without animation, to the root or the anchor, say; an empty one pops one screen.
    static void PopViewControllerForRootTransition(const std::function<void()>& block);

    /// A screen to come back to, held weakly, until the next return to it.
    static void SetAnchorViewController(const Ref<UIViewController>& controller);
    /// Null when there is none, or when it has gone.
    static Ref<UIViewController> AnchorViewController();
    /// Pops to the anchor if it is on the root navigation controller's stack, and forgets it in any
    /// case.
    static void PopToAnchorViewController(bool animated);

    /// The pairs of a URL's query, separated by `&` or `;`, as an immutable dictionary. Keys and
    /// values are the text as it stands: percent escapes stay and nothing is trimmed. Of pairs with
    /// the same key the last counts; one without exactly one `=` is left out.
    static Dictionary DictionaryFromQuery(std::string_view query);
};

}  // namespace zn
