#include "platform/uikit/controllers/ScreenSlide.h"

#include "zarnic/platform/layers/CAGradientLayer.h"

namespace zn {
namespace {

/// The part of the width by which the lower screen moves.
constexpr double parallax = 0.3;
constexpr double dimmingAlpha = 0.1;
/// Points.
constexpr double shadowWidth = 9;
constexpr CGColor shadowColor{0, 0, 0, 0.14};

/// The shadow that falls to the left of the upper screen's edge.
class EdgeShadow final : public UIView {
    ZN_OBJECT(EdgeShadow, UIView)
public:
    explicit EdgeShadow(const Rect& frame) : UIView(frame) {}
    void init() override {
        UIView::init();
        setUserInteractionEnabled(false);
        const auto gradient = as<CAGradientLayer>(layer());
        gradient->setColors({CGColor{0, 0, 0, 0}, shadowColor});
        gradient->setStartPoint({0, 0.5});
        gradient->setEndPoint({1, 0.5});
    }

protected:
    Ref<CALayer> makeLayer() const override { return make<CAGradientLayer>(); }
};

}  // namespace

ScreenSlide::ScreenSlide(const Ref<UIView>& container, const Ref<UIView>& upper,
                         const Ref<UIView>& lower)
    : width_(container->bounds().width()),
      dimming_(make<UIView>(container->bounds())),
      shadow_(make<EdgeShadow>(Rect(upper->frame().minX() - shadowWidth, 0, shadowWidth,
                                    container->bounds().height()))) {
    dimming_->setBackgroundColor(UIColor::blackColor());
    dimming_->setUserInteractionEnabled(false);
    UIView::performWithoutAnimation([&] {
        container->insertSubviewBelow(dimming_, upper);
        container->insertSubviewBelow(shadow_, upper);
    });
    addRider(lower, Ride::WithLower);
    addRider(upper, Ride::WithUpper);
    addRider(shadow_, Ride::WithUpper);
}

void ScreenSlide::addRider(const Ref<UIView>& view, Ride ride) {
    riders_.push_back({view, view->center(), ride});
}

void ScreenSlide::place(double uncovered) const {
    for (const Rider& rider : riders_) {
        double offset = 0;
        switch (rider.ride) {
            case Ride::WithUpper:
                offset = width_ * uncovered;
                break;
            case Ride::WithLower:
                offset = -width_ * parallax * (1 - uncovered);
                break;
            case Ride::BesideUpper:
                offset = -width_ * (1 - uncovered);
                break;
        }
        rider.view->setCenter(Point{rider.place.x + offset, rider.place.y});
    }
    dimming_->setAlpha(dimmingAlpha * (1 - uncovered));
    shadow_->setAlpha(1 - uncovered * uncovered);
}

void ScreenSlide::end() {
    dimming_->removeFromSuperview();
    shadow_->removeFromSuperview();
}

}  // namespace zn
