#pragma once

#include <string>
#include <utility>

#include "platform/layers/look/AnimatedProperty.h"
#include "platform/layers/look/PaintNode.h"
#include "platform/layers/tree/RunningAnimation.h"

namespace zn {

class CommittedLayer;

/// Bit set: what a layer waits for the commit to do.
namespace LayerWork {
inline constexpr unsigned Layout = 1;
inline constexpr unsigned Display = 2;
/// Copying the changed state into the committed tree.
inline constexpr unsigned State = 4;
}  // namespace LayerWork

/// The model of a layer.
struct CALayer::Node final : PaintNode {
    explicit Node(CALayer& owner) : layer(owner) {}

    CALayer& layer;
    LayerState state;
    CALayer* superlayer = nullptr;
    /// The layer that this one is the mask of.
    CALayer* maskOwner = nullptr;
    std::vector<Ref<CALayer>> sublayers;
    Ref<CALayer> mask;
    CALayerDelegate* delegate = nullptr;
    std::string name;
    bool needsDisplayOnBoundsChange = false;
    /// The compositors that paint this tree.
    int screens = 0;
    unsigned work = LayerWork::State | LayerWork::Layout;
    unsigned workBelow = 0;
    std::vector<std::shared_ptr<RunningAnimation>> animations;
    std::shared_ptr<CommittedLayer> committed;

    /// The superlayer or the layer that this one masks.
    Node* parent() const;
    bool onScreen() const;
    bool isAncestorOrSelfOf(const Node& other) const;

    /// Asks the commit for work; it is known all the way up to the root.
    void mark(unsigned bits);
    void announce(unsigned bits);

    /// Changes a property through `mutate`: with the animation that the delegate or the transaction
    /// gives it, else at once, ending what animates the property.
    template <class Mutate>
    void change(std::string_view key, Mutate&& mutate) {
        PropertyChange pending(*this, key);
        mutate();
        pending.finish();
    }

    template <class T>
    void assign(std::string_view key, T LayerState::*member, const T& value) {
        if (!(state.*member == value))
            change(key, [&] { state.*member = value; });
    }

    /// For properties that do not animate.
    template <class T>
    void assign(T LayerState::*member, const T& value) {
        if (state.*member == value)
            return;
        state.*member = value;
        mark(LayerWork::State);
    }

    /// For styles, which are shared with the committed tree: changes a copy.
    template <class Style, class T>
    void assign(std::string_view key, std::shared_ptr<const Style> LayerState::*style,
                T Style::*member, const T& value) {
        if ((state.*style).get()->*member == value)
            return;
        change(key, [&] {
            auto copy = std::make_shared<Style>(*(state.*style));
            (*copy).*member = value;
            state.*style = std::move(copy);
        });
    }

    /// The property under the running animations of this moment.
    CAValue shown(const AnimatedProperty& property) const;
    LayerState shownState() const;

    // PaintNode
    const LayerState& look() const override { return state; }
    std::size_t childCount() const override { return sublayers.size(); }
    const PaintNode& child(std::size_t index) const override { return sublayers[index]->node(); }
    const PaintNode* maskNode() const override { return mask ? &mask->node() : nullptr; }

private:
    class PropertyChange {
    public:
        PropertyChange(Node& node, std::string_view key);
        void finish();

    private:
        Node& node_;
        std::string_view key_;
        Ref<CAAnimation> animation_;
        CAValue from_;
    };
};

}  // namespace zn
