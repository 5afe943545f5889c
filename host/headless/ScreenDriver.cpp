#include "zarnic/platform/host/ScreenDriver.h"

#include "zarnic/platform/layers/CAAnimation.h"

namespace zn {
namespace {

constexpr int paintOrder = CACommitOrder + 1000;

Ref<CALayer> rootOf(const DeviceProfile& device, double framesPerSecond) {
    const auto screen = UIScreen::mainScreen();
    screen->setMaximumFramesPerSecond(framesPerSecond);
    screen->setProfile(device);
    return screen->rootLayer();
}

}  // namespace

ScreenDriver::ScreenDriver(const DeviceProfile& device, Presenter presenter, double framesPerSecond)
    : compositor_(rootOf(device, framesPerSecond), device.scale),
      presenter_(std::move(presenter)),
      tick_([this] { paintCommitted(); }, framesPerSecond),
      afterCommit_(
          NSRunLoop::mainRunLoop()->addBeforeWaiting(paintOrder, [this] { paintCommitted(); })) {}

void ScreenDriver::paint() {
    CATransaction::flush();
    paintCommitted();
}

void ScreenDriver::paintCommitted() {
    const std::vector<PixelRect> damage = compositor_.composite();
    if (!damage.empty() && presenter_)
        presenter_(damage);
    if (compositor_.animating())
        tick_.start();
    else
        tick_.stop();
}

}  // namespace zn
