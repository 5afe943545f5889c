#include "platform/layers/tree/CommittedLayer.h"

#include <algorithm>
#include <unordered_set>

namespace zn {
namespace {

std::uint64_t nextIdentity() {
    static std::uint64_t last = 0;
    return ++last;
}

CommittedLayer& committedOf(CALayer::Node& node) {
    if (!node.committed)
        node.committed = std::make_shared<CommittedLayer>();
    return *node.committed;
}

using LayerSet = std::unordered_set<std::shared_ptr<CommittedLayer>>;

}  // namespace

CommittedLayer::CommittedLayer() : identity_(nextIdentity()) {}

CommittedLayer::~CommittedLayer() {
    for (const auto& child : children)
        if (child->parent == this)
            child->parent = nullptr;
    if (mask && mask->parent == this)
        mask->parent = nullptr;
}

void CommittedLayer::commitTree(CALayer::Node& node) {
    CommittedLayer& own = committedOf(node);
    if (node.work & LayerWork::State) {
        node.work &= ~LayerWork::State;
        own.committed = node.state;
        own.animations = node.animations;
        own.adoptSublayers(node);
        if (node.mask)
            committedOf(node.mask->node());
        if (auto mask = node.mask ? node.mask->node().committed : nullptr; mask != own.mask) {
            if (own.mask && own.mask->parent == &own)
                own.mask->parent = nullptr;
            own.mask = mask;
            own.maskReplaced = true;
            if (mask)
                own.adopt(mask);
        }
        own.touch();
    }
    if (!(node.workBelow & LayerWork::State))
        return;
    node.workBelow &= ~LayerWork::State;
    auto commitChild = [](CALayer::Node& child) {
        if ((child.work | child.workBelow) & LayerWork::State)
            commitTree(child);
    };
    for (const auto& sublayer : node.sublayers)
        commitChild(sublayer->node());
    if (node.mask)
        commitChild(node.mask->node());
}

void CommittedLayer::adoptSublayers(const CALayer::Node& node) {
    const bool same = std::ranges::equal(
        node.sublayers, children, {}, [](const auto& each) { return each->node().committed.get(); },
        [](const auto& each) { return each.get(); });
    if (same)
        return;
    std::vector<std::shared_ptr<CommittedLayer>> next;
    for (const auto& sublayer : node.sublayers) {
        committedOf(sublayer->node());
        next.push_back(sublayer->node().committed);
    }
    adoptChildren(std::move(next));
}

void CommittedLayer::adoptChildren(std::vector<std::shared_ptr<CommittedLayer>> next) {
    LayerSet before(children.begin(), children.end());
    LayerSet after(next.begin(), next.end());
    std::vector<std::shared_ptr<CommittedLayer>> stayedBefore, stayedAfter;
    for (const auto& child : children) {
        if (after.contains(child))
            stayedBefore.push_back(child);
        else
            release(*child);
    }
    for (const auto& child : next) {
        if (before.contains(child))
            stayedAfter.push_back(child);
        else
            adopt(child);
    }
    if (stayedBefore != stayedAfter)
        for (const auto& child : stayedAfter)
            vacated.add(child->lastReach.all);
    children = std::move(next);
}

void CommittedLayer::adopt(const std::shared_ptr<CommittedLayer>& child) {
    child->parent = this;
    child->entering = true;
    child->touch();
}

void CommittedLayer::release(CommittedLayer& child) {
    vacated.add(child.lastReach.all);
    // It may already have found another place in this commit.
    if (child.parent == this)
        child.parent = nullptr;
}

void CommittedLayer::touch() {
    touched = true;
    for (CommittedLayer* above = parent; above && !above->touchedBelow; above = above->parent)
        above->touchedBelow = true;
}

LayerState CommittedLayer::stateAt(double now) const {
    LayerState state = committed;
    for (const auto& animation : animations)
        animation->apply(state, now);
    return state;
}

bool CommittedLayer::shownIn(const CommittedLayer& root) const {
    if (committed.hidden)
        return false;
    return this == &root || (parent && parent->shownIn(root));
}

}  // namespace zn
