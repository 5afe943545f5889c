#pragma once

#include <memory>
#include <optional>

#include "platform/layers/look/AnimatedProperty.h"
#include "platform/layers/look/PaintNode.h"

namespace zn {

/// Counts the animations that were added inside a transaction.
struct TransactionGroup {
    std::function<void()> completion;
    std::size_t running = 0;
    bool committed = false;
};

/// A layer's own copy of an animation, with its place in time.
struct RunningAnimation {
    RunningAnimation(const Ref<CAAnimation>& animation, std::string_view animationKey);

    std::string key;
    Ref<CAAnimation> source;

    /// Null for transitions and for names that stand for nothing; those only take their time.
    const AnimatedProperty* property = nullptr;
    std::string keyPath;
    /// An absent one stands for the model value.
    std::vector<CAValue> values;
    std::vector<double> keyTimes;

    bool isTransition = false;
    CATransitionType transitionType = CATransitionType::Fade;
    CATransitionSubtype transitionSubtype = CATransitionSubtype::FromRight;
    std::shared_ptr<const Picture> before;

    double duration;
    double delay;
    double repeatCount;
    bool autoreverses;
    CAFillMode fillMode;
    CAMediaTimingFunction timingFunction;
    bool removedOnCompletion;
    std::function<void(bool)> completion;
    std::vector<std::shared_ptr<TransactionGroup>> groups;

    /// When it was first committed; absent before that.
    std::optional<double> begin;
    /// Its completion was called or waits to be.
    bool ended = false;

    bool endless() const;
    /// Only when it has begun.
    double endTime() const;
    /// Between 0 and 1, the pace applied; absent when it has no effect at this moment.
    std::optional<double> progressAt(double now) const;
    void apply(LayerState& state, double now) const;
    std::optional<TransitionFrame> transitionAt(double now) const;

private:
    double activeDuration() const;
    double progressOfRun(double elapsed) const;
    CAValue valueAt(double progress, const CAValue& model) const;
};

}  // namespace zn
