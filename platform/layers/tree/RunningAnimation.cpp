#include "platform/layers/tree/RunningAnimation.h"

#include <algorithm>
#include <cmath>

namespace zn {

RunningAnimation::RunningAnimation(const Ref<CAAnimation>& animation, std::string_view animationKey)
    : key(animationKey),
      source(animation),
      duration(animation->duration >= 0 ? animation->duration : CATransaction::animationDuration()),
      delay(std::max(animation->delay, 0.0)),
      repeatCount(animation->repeatCount > 0 ? animation->repeatCount : 1),
      autoreverses(animation->autoreverses),
      fillMode(animation->fillMode),
      timingFunction(animation->timingFunction),
      removedOnCompletion(animation->removedOnCompletion),
      completion(animation->completion) {
    if (auto basic = as<CABasicAnimation>(animation)) {
        keyPath = basic->keyPath;
        values = {basic->fromValue, basic->toValue};
    } else if (auto frames = as<CAKeyframeAnimation>(animation)) {
        keyPath = frames->keyPath;
        values = frames->values;
        if (frames->keyTimes.size() == values.size())
            keyTimes = frames->keyTimes;
    } else if (auto transition = as<CATransition>(animation)) {
        isTransition = true;
        transitionType = transition->type;
        transitionSubtype = transition->subtype;
    }
    property = AnimatedProperty::named(keyPath);
}

bool RunningAnimation::endless() const {
    return std::isinf(activeDuration());
}

double RunningAnimation::activeDuration() const {
    // An endless run of nothing is over at once.
    if (duration == 0)
        return 0;
    return duration * repeatCount * (autoreverses ? 2 : 1);
}

double RunningAnimation::endTime() const {
    return begin.value_or(0) + delay + activeDuration();
}

double RunningAnimation::progressOfRun(double elapsed) const {
    double runs = duration > 0 ? elapsed / duration : 1;
    double finished = std::floor(runs);
    double fraction = runs - finished;
    // The very end belongs to the run that ends there.
    if (fraction == 0 && elapsed > 0 && elapsed >= activeDuration()) {
        fraction = 1;
        finished -= 1;
    }
    bool backward = autoreverses && std::fmod(finished, 2) == 1;
    return timingFunction.at(backward ? 1 - fraction : fraction);
}

std::optional<double> RunningAnimation::progressAt(double now) const {
    double elapsed = begin ? now - *begin - delay : -delay;
    double active = activeDuration();
    bool holdsBefore = fillMode == CAFillMode::Backwards || fillMode == CAFillMode::Both;
    bool holdsAfter = fillMode == CAFillMode::Forwards || fillMode == CAFillMode::Both;
    if (elapsed < 0)
        return holdsBefore ? std::optional(timingFunction.at(0)) : std::nullopt;
    if (elapsed < active)
        return progressOfRun(elapsed);
    if (!begin)
        return timingFunction.at(0);
    return holdsAfter && !removedOnCompletion ? std::optional(progressOfRun(active)) : std::nullopt;
}

CAValue RunningAnimation::valueAt(double progress, const CAValue& model) const {
    auto at = [&](std::size_t index) -> const CAValue& {
        return std::holds_alternative<std::monostate>(values[index]) ? model : values[index];
    };
    std::size_t last = values.size() - 1;
    auto time = [&](std::size_t index) {
        return keyTimes.empty() ? static_cast<double>(index) / static_cast<double>(last)
                                : keyTimes[index];
    };
    if (last == 0 || (progress >= time(last) && time(last) < 1))
        return at(last);
    std::size_t next = 1;
    while (next < last && progress >= time(next))
        ++next;
    double span = time(next) - time(next - 1);
    double fraction = span > 0 ? std::max((progress - time(next - 1)) / span, 0.0) : 1;
    return interpolate(at(next - 1), at(next), fraction);
}

void RunningAnimation::apply(LayerState& state, double now) const {
    if (!property || values.empty())
        return;
    if (auto progress = progressAt(now))
        property->set(state, valueAt(*progress, property->get(state)));
}

std::optional<TransitionFrame> RunningAnimation::transitionAt(double now) const {
    auto progress = progressAt(now);
    if (!isTransition || !progress || !before)
        return std::nullopt;
    return TransitionFrame{transitionType, transitionSubtype, *progress, before};
}

}  // namespace zn
