#pragma once

#include <memory>
#include <vector>

#include "zarnic/platform/layers/CAAnimation.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// Everything that one animation block set in motion, and the completion for when it has ended.
class AnimationGroup {
public:
    explicit AnimationGroup(UIView::Completion completion);

    void began() { ++running_; }
    void ended(bool finished);
    /// The block is over: no more animations are to come.
    void close();

private:
    void complete();

    UIView::Completion completion_;
    int running_ = 0;
    bool open_ = true;
    bool allFinished_ = true;
};

/// An animation block that is being run.
struct AnimationContext {
    double duration = 0;
    double delay = 0;
    unsigned options = UIViewAnimationOptions::None;
    std::shared_ptr<AnimationGroup> group;
    /// Views to lay out before the block is over, so that what that moves is animated too.
    std::vector<WeakRef<CALayer>> resized;
};

/// The innermost open block; null outside blocks and while animations are off.
AnimationContext* currentAnimationContext();

/// No animations for a scope.
class AnimationsOff {
public:
    AnimationsOff() : before_(UIView::areAnimationsEnabled()) {
        UIView::setAnimationsEnabled(false);
    }
    ~AnimationsOff() { UIView::setAnimationsEnabled(before_); }
    AnimationsOff(const AnimationsOff&) = delete;
    AnimationsOff& operator=(const AnimationsOff&) = delete;

private:
    bool before_;
};

}  // namespace zn
