#include "zarnic/platform/uikit/UIScreenEdgePanGestureRecognizer.h"

#include <cmath>

#include "platform/uikit/view/ScreenSpace.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {
namespace {

/// Points from an edge within which the finger comes down, and which it moves inward.
constexpr double edgeWidth = 20;
constexpr double threshold = 10;

unsigned edgesNear(Point place, const Rect& screen) {
    unsigned edges = UIRectEdge::None;
    if (place.y - screen.minY() <= edgeWidth)
        edges |= UIRectEdge::Top;
    if (place.x - screen.minX() <= edgeWidth)
        edges |= UIRectEdge::Left;
    if (screen.maxY() - place.y <= edgeWidth)
        edges |= UIRectEdge::Bottom;
    if (screen.maxX() - place.x <= edgeWidth)
        edges |= UIRectEdge::Right;
    return edges;
}

/// Where a movement goes: the edge that it leaves behind.
unsigned edgeBehind(Point movement) {
    if (std::abs(movement.x) >= std::abs(movement.y))
        return movement.x > 0 ? UIRectEdge::Left : UIRectEdge::Right;
    return movement.y > 0 ? UIRectEdge::Top : UIRectEdge::Bottom;
}

}  // namespace

UIScreenEdgePanGestureRecognizer::UIScreenEdgePanGestureRecognizer() = default;

UIScreenEdgePanGestureRecognizer::UIScreenEdgePanGestureRecognizer(const Action& action)
    : UIPanGestureRecognizer(action) {}

UIScreenEdgePanGestureRecognizer::~UIScreenEdgePanGestureRecognizer() = default;

void UIScreenEdgePanGestureRecognizer::touchesBegan(const TouchSet& touches,
                                                    const Ref<UIEvent>& event) {
    UIPanGestureRecognizer::touchesBegan(touches, event);
    if (startEdges_ == UIRectEdge::None && !touches.empty()) {
        const Ref<UITouch>& touch = touches.front();
        const Point place = pointToScreen(touch->locationInView(nullptr), nullptr, touch->window());
        startEdges_ = edgesNear(place, UIScreen::mainScreen()->bounds()) & edges_;
    }
    if (startEdges_ == UIRectEdge::None)
        setState(UIGestureRecognizerState::Failed);
}

UIPanGestureRecognizer::Verdict UIScreenEdgePanGestureRecognizer::judge(Point movement) const {
    if (distance({}, movement) < threshold)
        return Verdict::Undecided;
    return (edgeBehind(movement) & startEdges_) != 0 ? Verdict::Begins : Verdict::Fails;
}

void UIScreenEdgePanGestureRecognizer::reset() {
    UIPanGestureRecognizer::reset();
    startEdges_ = UIRectEdge::None;
}

}  // namespace zn
