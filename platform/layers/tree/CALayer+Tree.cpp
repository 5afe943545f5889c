#include <algorithm>

#include "platform/layers/tree/LayerNode.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

void requireBelow(const Ref<CALayer>& layer, const CALayer& parent) {
    if (!layer)
        throw NSException("CALayerInvalid", "a null layer cannot be added to a layer tree");
    if (layer->node().isAncestorOrSelfOf(parent.node()))
        throw NSException("CALayerInvalid", "layer is a part of cycle in its layer tree");
}

std::size_t indexOf(const std::vector<Ref<CALayer>>& layers, const CALayer* layer) {
    auto found = std::find_if(layers.begin(), layers.end(),
                              [&](const Ref<CALayer>& each) { return each.get() == layer; });
    return static_cast<std::size_t>(found - layers.begin());
}

}  // namespace

Ref<CALayer> CALayer::superlayer() const {
    return node_->superlayer ? ref(node_->superlayer) : nullptr;
}

const std::vector<Ref<CALayer>>& CALayer::sublayers() const {
    return node_->sublayers;
}

void CALayer::addSublayer(const Ref<CALayer>& layer) {
    insertSublayer(layer, node_->sublayers.size());
}

void CALayer::insertSublayer(const Ref<CALayer>& layer, std::size_t index) {
    requireBelow(layer, *this);
    Ref<CALayer> kept = layer;
    kept->removeFromSuperlayer();
    if (CALayer* masked = kept->node().maskOwner)
        masked->setMask(nullptr);
    auto& sublayers = node_->sublayers;
    index = std::min(index, sublayers.size());
    sublayers.insert(sublayers.begin() + static_cast<std::ptrdiff_t>(index), kept);
    Node& child = kept->node();
    child.superlayer = this;
    child.announce(child.work | child.workBelow);
    node_->mark(LayerWork::State | LayerWork::Layout);
}

void CALayer::insertSublayerBelow(const Ref<CALayer>& layer, const Ref<CALayer>& sibling) {
    requireBelow(layer, *this);
    if (layer == sibling)
        return;
    Ref<CALayer> kept = layer;
    kept->removeFromSuperlayer();
    insertSublayer(kept, indexOf(node_->sublayers, sibling.get()));
}

void CALayer::insertSublayerAbove(const Ref<CALayer>& layer, const Ref<CALayer>& sibling) {
    requireBelow(layer, *this);
    if (layer == sibling)
        return;
    Ref<CALayer> kept = layer;
    kept->removeFromSuperlayer();
    insertSublayer(kept, indexOf(node_->sublayers, sibling.get()) + 1);
}

void CALayer::removeFromSuperlayer() {
    CALayer* above = node_->superlayer;
    if (!above)
        return;
    Ref<CALayer> kept = ref(this);
    auto& siblings = above->node_->sublayers;
    siblings.erase(siblings.begin() + static_cast<std::ptrdiff_t>(indexOf(siblings, this)));
    node_->superlayer = nullptr;
    above->node_->mark(LayerWork::State | LayerWork::Layout);
}

const Ref<CALayer>& CALayer::mask() const {
    return node_->mask;
}

void CALayer::setMask(const Ref<CALayer>& mask) {
    if (mask == node_->mask)
        return;
    if (mask)
        requireBelow(mask, *this);
    Ref<CALayer> kept = mask;
    if (kept) {
        kept->removeFromSuperlayer();
        if (CALayer* masked = kept->node().maskOwner)
            masked->setMask(nullptr);
    }
    if (node_->mask)
        node_->mask->node().maskOwner = nullptr;
    node_->mask = kept;
    if (kept) {
        Node& child = kept->node();
        child.maskOwner = this;
        child.announce(child.work | child.workBelow);
    }
    node_->mark(LayerWork::State);
}

}  // namespace zn
