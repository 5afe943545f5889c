#pragma once

#include <deque>

#include "platform/layers/tree/RunningAnimation.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {

/// Begins and ends animations and calls their completions: exactly once each, at the exact end,
/// whether or not frames are drawn. Main thread only.
class AnimationScheduler {
public:
    static AnimationScheduler& shared();

    struct Entry {
        WeakRef<CALayer> layer;
        std::shared_ptr<RunningAnimation> animation;
    };
    const std::vector<Entry>& entries() const { return entries_; }

    void add(const Ref<CALayer>& layer, const std::shared_ptr<RunningAnimation>& animation);
    /// The animation was removed or replaced.
    void cancel(const std::shared_ptr<RunningAnimation>& animation);
    /// Starts what was added since the last commit; ends what nobody can see.
    void begin(double now);
    /// A closed transaction calls its completion when nothing of it runs any more.
    void close(const std::shared_ptr<TransactionGroup>& group);
    /// Calls what waits to be called.
    void deliver();

private:
    void finish(RunningAnimation& animation, bool finished);
    /// Takes an animation that ran its course off its layer.
    void complete(const Entry& entry);
    void endDue();
    void scheduleNextEnd();

    std::vector<Entry> entries_;
    std::deque<std::function<void()>> callbacks_;
    RunLoopToken deadline_;
};

}  // namespace zn
