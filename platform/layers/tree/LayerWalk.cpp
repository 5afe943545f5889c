#include "platform/layers/tree/LayerWalk.h"

#include "platform/layers/tree/LayerNode.h"

namespace zn {
namespace {

// Layout that has not come to rest after so many rounds never will in this pass.
constexpr int MostLayoutRounds = 32;

/// The layers below, kept alive while user code may change the tree.
std::vector<Ref<CALayer>> layersBelow(const CALayer::Node& node) {
    std::vector<Ref<CALayer>> layers = node.sublayers;
    if (node.mask)
        layers.push_back(node.mask);
    return layers;
}

void layoutOnce(CALayer& layer) {
    CALayer::Node& node = layer.node();
    if (node.work & LayerWork::Layout) {
        node.work &= ~LayerWork::Layout;
        layer.layoutSublayers();
    }
    if (!(node.workBelow & LayerWork::Layout))
        return;
    node.workBelow &= ~LayerWork::Layout;
    for (const auto& below : layersBelow(node))
        if ((below->node().work | below->node().workBelow) & LayerWork::Layout)
            layoutOnce(*below);
}

}  // namespace

void layoutTree(CALayer& top) {
    const CALayer::Node& node = top.node();
    for (int round = 0; round < MostLayoutRounds; ++round)
        if ((node.work | node.workBelow) & LayerWork::Layout)
            layoutOnce(top);
}

void displayTree(CALayer& layer) {
    CALayer::Node& node = layer.node();
    if (node.state.hidden)
        return;
    if (node.work & LayerWork::Display)
        layer.displayIfNeeded();
    if (!(node.workBelow & LayerWork::Display))
        return;
    node.workBelow &= ~LayerWork::Display;
    for (const auto& below : layersBelow(node))
        if ((below->node().work | below->node().workBelow) & LayerWork::Display)
            displayTree(*below);
}

}  // namespace zn
