#pragma once

#include "zarnic/platform/UINavigationController.h"

namespace zn {

/// A change of the shown screen that is under way.
struct UINavigationController::Transition {
    Ref<UIViewController> from;
    Ref<UIViewController> to;
    Direction direction = Direction::Forward;
    bool animated = false;
    /// The views have changed; until then only the delegate knows.
    bool begun = false;
    /// Darkens the screen below while the one above moves.
    Ref<UIView> dimming;
};

}  // namespace zn
