#pragma once

#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/layers/CALayer.h"
#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {

/// The strip at the top of the screen: the time, and the battery where there is one.
class StatusBar final : public NSObject, private CALayerDelegate {
public:
    /// What the topmost window's controller wants.
    struct Look {
        bool hidden = false;
        UIStatusBarStyle style = UIStatusBarStyle::Default;
        UIStatusBarAnimation animation = UIStatusBarAnimation::Fade;
    };

    StatusBar();
    ~StatusBar() override;

    const Ref<CALayer>& layer() const { return layer_; }
    void setProfile(const DeviceProfile& profile);
    /// Comes, goes, or changes its colour; the bar hides or shows in the way the look says.
    void show(const Look& look);
    bool hidden() const { return look_.hidden; }
    UIStatusBarStyle style() const { return look_.style; }

private:
    bool layerDraws(const CALayer& layer) override;
    void drawLayer(CALayer& layer, const Ref<CGContext>& context) override;
    CGColor ink() const;
    /// The line that everything in the bar is centred on.
    double middle() const;
    void drawTime() const;
    void drawBattery(const Ref<CGContext>& context) const;
    /// The time of day that it shows goes stale at the next full minute.
    void waitForMinute();
    void move(const Look& look);
    void place(double top, double opacity);
    void animate(const char* property, double duration, const CAValue& from);

    Ref<CALayer> layer_;
    Size size_;
    bool notched_ = false;
    Look look_;
    RunLoopToken minute_;
};

}  // namespace zn
