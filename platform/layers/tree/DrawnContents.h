#pragma once

#include <list>
#include <unordered_map>

#include "zarnic/platform/layers/CALayer.h"

namespace zn {

/// Keeps account of the pictures that layers drew for themselves. Beyond a budget those that no
/// screen shows are given up, least lately drawn first, and drawn again when they are seen.
class DrawnContents {
public:
    static DrawnContents& shared();

    void add(CALayer::Node& node);
    void forget(CALayer::Node& node);
    std::size_t byteCount() const { return bytes_; }

private:
    void trim();

    struct Item {
        CALayer::Node* node;
        std::size_t bytes;
    };
    std::list<Item> items_;
    std::unordered_map<CALayer::Node*, std::list<Item>::iterator> places_;
    std::size_t bytes_ = 0;
};

}  // namespace zn
