#pragma once

#include <optional>

#include "platform/uikit/controllers/ScreenSlide.h"
#include "zarnic/platform/uikit/UINavigationController.h"

namespace zn {

/// A change of the shown screen that is under way.
struct UINavigationController::Transition {
    /// What moves the screens: nothing, an animation, or a finger.
    enum class Motion { None, Animated, Interactive };

    bool moves() const { return motion != Motion::None; }

    Ref<UIViewController> from;
    Ref<UIViewController> to;
    Direction direction = Direction::Forward;
    Motion motion = Motion::None;
    /// The screens have been told; until then only the delegate knows. Then the views change.
    bool begun = false;
    bool installed = false;
    /// The finger went back: `from` stays.
    bool cancelled = false;
    /// They leave the family when it ends, unless it is cancelled; bottom to top.
    std::vector<Ref<UIViewController>> leaving;
    bool barWasHidden = false;
    /// The bar comes or goes with one of the screens.
    bool barRides = false;
    /// The tab bar controller whose bar comes or goes with one of the screens.
    Ref<UITabBarController> tabs;
    std::optional<ScreenSlide> slide;
};

}  // namespace zn
