#include <algorithm>

#include "platform/layers/tree/AnimationScheduler.h"
#include "platform/layers/tree/CommittedLayer.h"
#include "platform/layers/tree/TransactionState.h"

namespace zn {
namespace {

Ref<CAAnimation> implicitAnimation(std::string_view key) {
    if (CATransaction::animationDuration() <= 0)
        return nullptr;
    auto animation = make<CABasicAnimation>(std::string(key));
    animation->timingFunction = CATransaction::animationTimingFunction();
    return animation;
}

Ref<CAAnimation> actionFor(CALayer::Node& node, std::string_view key) {
    if (CATransaction::disableActions())
        return nullptr;
    if (node.delegate)
        return node.delegate->actionForLayer(node.layer, key);
    // What was never on the screen has nothing to come from.
    bool shown = node.committed && node.onScreen();
    return shown && AnimatedProperty::named(key) ? implicitAnimation(key) : nullptr;
}

bool isAbsent(const CAValue& value) {
    return std::holds_alternative<std::monostate>(value);
}

/// Where an animation without a beginning comes from: what the property shows now, or, when its
/// model value is already the end, what the screen shows.
CAValue missingStart(const CALayer::Node& node, const RunningAnimation& running) {
    bool endsAtModel = running.values.size() == 2 && isAbsent(running.values[1]);
    if (endsAtModel && node.committed && !node.layer.animates(running.keyPath))
        return running.property->get(node.committed->committed);
    return node.shown(*running.property);
}

}  // namespace

CALayer::Node::PropertyChange::PropertyChange(Node& node, std::string_view key)
    : node_(node), key_(key), animation_(actionFor(node, key)) {
    const AnimatedProperty* property = animation_ ? AnimatedProperty::named(key) : nullptr;
    if (property)
        from_ = node.shown(*property);
}

void CALayer::Node::PropertyChange::finish() {
    node_.mark(LayerWork::State);
    if (!animation_) {
        node_.layer.removeAnimationForKey(key_);
        return;
    }
    node_.layer.addAnimation(animation_, key_);
    auto basic = as<CABasicAnimation>(animation_);
    if (basic && isAbsent(basic->fromValue) && basic->keyPath == key_)
        node_.animations.back()->values[0] = from_;
}

void CALayer::addAnimation(const Ref<CAAnimation>& animation, std::string_view key) {
    if (!animation)
        return;
    auto running = std::make_shared<RunningAnimation>(animation, key);
    if (running->property && !running->values.empty() && isAbsent(running->values[0]))
        running->values[0] = missingStart(*node_, *running);
    removeAnimationForKey(key);
    running->groups = openTransactionGroups();
    node_->animations.push_back(running);
    node_->mark(LayerWork::State);
    AnimationScheduler::shared().add(ref(this), running);
}

Ref<CAAnimation> CALayer::animationForKey(std::string_view key) const {
    for (const auto& animation : node_->animations)
        if (!key.empty() && animation->key == key)
            return animation->source;
    return nullptr;
}

std::vector<std::string> CALayer::animationKeys() const {
    std::vector<std::string> keys;
    for (const auto& animation : node_->animations)
        if (!animation->key.empty())
            keys.push_back(animation->key);
    return keys;
}

void CALayer::removeAnimationForKey(std::string_view key) {
    auto& animations = node_->animations;
    auto found = std::find_if(animations.begin(), animations.end(),
                              [&](const auto& each) { return !key.empty() && each->key == key; });
    if (found == animations.end())
        return;
    auto removed = *found;
    animations.erase(found);
    node_->mark(LayerWork::State);
    AnimationScheduler::shared().cancel(removed);
}

void CALayer::removeAllAnimations() {
    auto removed = std::exchange(node_->animations, {});
    if (removed.empty())
        return;
    node_->mark(LayerWork::State);
    for (const auto& animation : removed)
        AnimationScheduler::shared().cancel(animation);
}

bool CALayer::animates(std::string_view property) const {
    return std::any_of(node_->animations.begin(), node_->animations.end(),
                       [&](const auto& each) { return each->keyPath == property && !each->ended; });
}

CAValue CALayer::presentationValue(std::string_view property) const {
    const AnimatedProperty* found = AnimatedProperty::named(property);
    return found ? node_->shown(*found) : CAValue();
}

double CALayer::presentationOpacity() const {
    return node_->shownState().opacity;
}

Rect CALayer::presentationFrame() const {
    LayerState state = node_->shownState();
    return state.toSuperlayer().apply(state.bounds);
}

}  // namespace zn
