#include "zarnic/platform/layers/DisplayTick.h"

#include <cmath>

#include "zarnic/platform/layers/CAAnimation.h"

namespace zn {

DisplayTick::DisplayTick(std::function<void()> frame, double framesPerSecond)
    : frame_(std::move(frame)), interval_(1 / framesPerSecond) {}

void DisplayTick::start() {
    if (running())
        return;
    origin_ = CACurrentMediaTime();
    frames_ = 0;
    schedule();
}

void DisplayTick::stop() {
    deadline_.reset();
}

void DisplayTick::schedule() {
    frames_ = std::max(frames_ + 1, std::ceil((CACurrentMediaTime() - origin_) / interval_));
    deadline_ =
        NSRunLoop::mainRunLoop()->addDeadline(origin_ + frames_ * interval_, [this] { fire(); });
}

void DisplayTick::fire() {
    schedule();
    frame_();
}

}  // namespace zn
