#include "platform/layers/tree/AnimationScheduler.h"

#include <algorithm>

#include "platform/layers/tree/LayerCommit.h"
#include "platform/layers/tree/LayerNode.h"

namespace zn {

AnimationScheduler& AnimationScheduler::shared() {
    static auto* scheduler = new AnimationScheduler;
    return *scheduler;
}

void AnimationScheduler::add(const Ref<CALayer>& layer,
                             const std::shared_ptr<RunningAnimation>& animation) {
    for (const auto& group : animation->groups)
        ++group->running;
    entries_.push_back({layer, animation});
    LayerCommit::shared().schedule();
}

void AnimationScheduler::cancel(const std::shared_ptr<RunningAnimation>& animation) {
    std::erase_if(entries_, [&](const Entry& entry) { return entry.animation == animation; });
    finish(*animation, false);
    LayerCommit::shared().schedule();
}

void AnimationScheduler::finish(RunningAnimation& animation, bool finished) {
    if (animation.ended)
        return;
    animation.ended = true;
    if (animation.completion)
        callbacks_.emplace_back(
            [call = std::move(animation.completion), finished] { call(finished); });
    for (const auto& group : animation.groups) {
        --group->running;
        if (group->committed)
            close(group);
    }
    animation.groups.clear();
}

void AnimationScheduler::close(const std::shared_ptr<TransactionGroup>& group) {
    group->committed = true;
    if (group->running > 0 || !group->completion)
        return;
    callbacks_.push_back(std::exchange(group->completion, nullptr));
    LayerCommit::shared().schedule();
}

void AnimationScheduler::complete(const Entry& entry) {
    if (auto layer = entry.layer.lock()) {
        if (entry.animation->removedOnCompletion)
            std::erase(layer->node().animations, entry.animation);
        layer->node().mark(LayerWork::State);
    }
    finish(*entry.animation, true);
}

void AnimationScheduler::begin(double now) {
    auto unseen = [&](const Entry& entry) {
        auto layer = entry.layer.lock();
        return !entry.animation->endless() && (!layer || !layer->node().onScreen());
    };
    for (const Entry& entry : entries_)
        if (!entry.animation->begin)
            entry.animation->begin = now;
    auto middle = std::stable_partition(entries_.begin(), entries_.end(), std::not_fn(unseen));
    std::vector<Entry> over(middle, entries_.end());
    entries_.erase(middle, entries_.end());
    for (const Entry& entry : over)
        complete(entry);
    scheduleNextEnd();
}

void AnimationScheduler::endDue() {
    // The loop's arithmetic may wake it a hair before the sum.
    double now = CACurrentMediaTime() + 1e-9;
    auto running = [&](const Entry& entry) {
        return !entry.animation->begin || entry.animation->endTime() > now;
    };
    auto middle = std::stable_partition(entries_.begin(), entries_.end(), running);
    std::vector<Entry> over(middle, entries_.end());
    entries_.erase(middle, entries_.end());
    std::stable_sort(over.begin(), over.end(), [](const Entry& a, const Entry& b) {
        return a.animation->endTime() < b.animation->endTime();
    });
    for (const Entry& entry : over)
        complete(entry);
    scheduleNextEnd();
    deliver();
}

void AnimationScheduler::scheduleNextEnd() {
    double next = CAAnimation::RepeatsForever;
    for (const Entry& entry : entries_)
        if (entry.animation->begin)
            next = std::min(next, entry.animation->endTime());
    deadline_.reset();
    if (next < CAAnimation::RepeatsForever)
        deadline_ = NSRunLoop::mainRunLoop()->addDeadline(next, [this] { endDue(); });
}

void AnimationScheduler::deliver() {
    // Only what waits now: what the calls bring about has its own turn.
    for (std::size_t count = callbacks_.size(); count > 0 && !callbacks_.empty(); --count) {
        auto call = std::move(callbacks_.front());
        callbacks_.pop_front();
        call();
    }
}

}  // namespace zn
