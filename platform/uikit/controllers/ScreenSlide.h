#pragma once

#include <vector>

#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// Two screens, of which the upper one slides over the lower from the right, or away again: the
/// lower one moves a part of the way and is darkened, the upper one throws a shadow at its edge.
class ScreenSlide {
public:
    /// How a bar goes along.
    enum class Ride { WithUpper, WithLower, BesideUpper };

    /// The screens are in the container, at the places where they belong when they are seen.
    ScreenSlide(const Ref<UIView>& container, const Ref<UIView>& upper, const Ref<UIView>& lower);
    ~ScreenSlide() { end(); }
    ScreenSlide(const ScreenSlide&) = delete;
    ScreenSlide& operator=(const ScreenSlide&) = delete;

    /// The view moves from where it is now.
    void addRider(const Ref<UIView>& view, Ride ride);
    /// 0: the upper screen covers the lower one; 1: it is gone. In an animation block they move
    /// there.
    void place(double uncovered) const;
    /// Takes darkening and shadow away; everything else stays where it is.
    void end();

private:
    struct Rider {
        Ref<UIView> view;
        Point place;
        Ride ride;
    };

    double width_;
    std::vector<Rider> riders_;
    Ref<UIView> dimming_;
    Ref<UIView> shadow_;
};

}  // namespace zn
