#include "platform/layers/tree/LayerNode.h"

#include "platform/layers/tree/LayerCommit.h"

namespace zn {

CALayer::Node* CALayer::Node::parent() const {
    if (superlayer)
        return &superlayer->node();
    return maskOwner ? &maskOwner->node() : nullptr;
}

bool CALayer::Node::onScreen() const {
    const Node* node = this;
    while (!node->state.hidden) {
        const Node* above = node->parent();
        if (!above)
            return node->screens > 0;
        node = above;
    }
    return false;
}

bool CALayer::Node::isAncestorOrSelfOf(const Node& other) const {
    const Node* node = &other;
    while (node && node != this)
        node = node->parent();
    return node == this;
}

void CALayer::Node::mark(unsigned bits) {
    work |= bits;
    announce(bits);
}

void CALayer::Node::announce(unsigned bits) {
    Node* node = this;
    while (Node* above = node->parent()) {
        // Whoever set the bits there has told the root.
        if ((above->workBelow & bits) == bits)
            return;
        above->workBelow |= bits;
        node = above;
    }
    if (node->screens > 0)
        LayerCommit::shared().schedule();
}

CAValue CALayer::Node::shown(const AnimatedProperty& property) const {
    return property.get(shownState());
}

LayerState CALayer::Node::shownState() const {
    LayerState result = state;
    double now = animations.empty() ? 0 : CACurrentMediaTime();
    for (const auto& animation : animations)
        animation->apply(result, now);
    return result;
}

}  // namespace zn
