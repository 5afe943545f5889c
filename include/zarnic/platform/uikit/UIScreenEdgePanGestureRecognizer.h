#pragma once

#include "zarnic/platform/uikit/UIPanGestureRecognizer.h"

namespace zn {

/// The platform's numbers, a bit set.
namespace UIRectEdge {
inline constexpr unsigned None = 0, Top = 1, Left = 2, Bottom = 4, Right = 8, All = 15;
}  // namespace UIRectEdge

/// A drag that begins within 20 points of an edge of the screen and goes inward.
class ZN_EXPORT UIScreenEdgePanGestureRecognizer : public UIPanGestureRecognizer {
    ZN_OBJECT(UIScreenEdgePanGestureRecognizer, UIPanGestureRecognizer)
public:
    UIScreenEdgePanGestureRecognizer();
    explicit UIScreenEdgePanGestureRecognizer(const Action& action);
    ~UIScreenEdgePanGestureRecognizer() override;

    /// Of `UIRectEdge`; default none.
    unsigned edges() const { return edges_; }
    void setEdges(unsigned edges) { edges_ = edges; }

    void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void reset() override;

protected:
    Verdict judge(Point movement) const override;

private:
    unsigned edges_ = UIRectEdge::None;
    /// The edges near which the first finger came down.
    unsigned startEdges_ = UIRectEdge::None;
};

}  // namespace zn
