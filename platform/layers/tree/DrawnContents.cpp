#include "platform/layers/tree/DrawnContents.h"

#include "platform/layers/tree/CommittedLayer.h"

namespace zn {
namespace {

constexpr std::size_t Budget = 64 << 20;

void drop(CALayer::Node& node) {
    node.state.contents = nullptr;
    node.state.drawnSize.reset();
    if (node.committed) {
        node.committed->committed.contents = nullptr;
        node.committed->presented.contents = nullptr;
    }
    node.mark(LayerWork::State | LayerWork::Display);
}

}  // namespace

DrawnContents& DrawnContents::shared() {
    static auto* contents = new DrawnContents;
    return *contents;
}

void DrawnContents::add(CALayer::Node& node) {
    forget(node);
    std::size_t bytes = node.state.contents ? node.state.contents->byteCount() : 0;
    items_.push_front({&node, bytes});
    places_[&node] = items_.begin();
    bytes_ += bytes;
    trim();
}

void DrawnContents::forget(CALayer::Node& node) {
    auto place = places_.find(&node);
    if (place == places_.end())
        return;
    bytes_ -= place->second->bytes;
    items_.erase(place->second);
    places_.erase(place);
}

void DrawnContents::trim() {
    auto item = items_.end();
    // The newest one is about to be used, on a screen or off it.
    while (bytes_ > Budget && item != items_.begin()) {
        --item;
        if (item == items_.begin() || item->node->onScreen())
            continue;
        CALayer::Node& node = *item->node;
        ++item;
        forget(node);
        drop(node);
    }
}

}  // namespace zn
