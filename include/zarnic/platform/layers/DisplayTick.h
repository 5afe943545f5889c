#pragma once

#include <functional>

#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {

/// Calls back once a frame while it runs, on the main loop. Frames lie on an even grid from the
/// start; those that the loop was too busy for are left out. Main thread only.
class ZN_EXPORT DisplayTick {
public:
    explicit DisplayTick(std::function<void()> frame, double framesPerSecond = 60);
    DisplayTick(const DisplayTick&) = delete;
    DisplayTick& operator=(const DisplayTick&) = delete;

    /// Does nothing while it runs.
    void start();
    void stop();
    bool running() const { return static_cast<bool>(deadline_); }

private:
    void schedule();
    void fire();

    std::function<void()> frame_;
    double interval_;
    double origin_ = 0;
    double frames_ = 0;
    RunLoopToken deadline_;
};

}  // namespace zn
