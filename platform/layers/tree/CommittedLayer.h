#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/layers/look/DamageRegion.h"
#include "platform/layers/tree/LayerNode.h"

namespace zn {

/// A layer as of the last commit, with what was last shown of it. Lives apart from the model, which
/// may be gone or changed while the screen still shows it.
class CommittedLayer final : public PaintNode {
public:
    CommittedLayer();
    ~CommittedLayer() override;
    CommittedLayer(const CommittedLayer&) = delete;
    CommittedLayer& operator=(const CommittedLayer&) = delete;

    /// Copies the changed state of a tree of the model.
    static void commitTree(CALayer::Node& node);

    /// The screen has to look at this layer again.
    void touch();
    /// The committed state under the animations of the moment.
    LayerState stateAt(double now) const;
    bool shownIn(const CommittedLayer& root) const;

    LayerState committed;
    std::vector<std::shared_ptr<CommittedLayer>> children;
    std::shared_ptr<CommittedLayer> mask;
    CommittedLayer* parent = nullptr;
    std::vector<std::shared_ptr<RunningAnimation>> animations;

    // What the screen shows of it; the compositor keeps these.
    LayerState presented;
    LayerReach lastReach;
    std::optional<TransitionFrame> frame;
    bool touched = true;
    bool touchedBelow = false;
    /// Never shown at this place of the tree.
    bool entering = true;
    bool maskReplaced = false;
    /// Where sublayers were that left or changed their order.
    DamageRegion vacated;
    std::uint64_t contentVersion = 1;

    // PaintNode
    const LayerState& look() const override { return presented; }
    std::size_t childCount() const override { return children.size(); }
    const PaintNode& child(std::size_t index) const override { return *children[index]; }
    const PaintNode* maskNode() const override { return mask.get(); }
    const TransitionFrame* transition() const override { return frame ? &*frame : nullptr; }
    const LayerReach* reach() const override { return &lastReach; }
    std::uint64_t identity() const override { return identity_; }
    std::uint64_t version() const override { return contentVersion; }

private:
    void adoptSublayers(const CALayer::Node& node);
    void adoptChildren(std::vector<std::shared_ptr<CommittedLayer>> next);
    void adopt(const std::shared_ptr<CommittedLayer>& child);
    void release(CommittedLayer& child);

    std::uint64_t identity_;
};

}  // namespace zn
