#include <cmath>

#include "platform/drawing/context/TakeImage.h"
#include "platform/layers/tree/DrawnContents.h"
#include "platform/layers/tree/LayerNode.h"
#include "platform/layers/tree/LayerWalk.h"

namespace zn {
namespace {

/// The context that a drawing call finds as the current one.
class CurrentContext {
public:
    explicit CurrentContext(const Ref<CGContext>& context) { UIGraphicsPushContext(context); }
    ~CurrentContext() { UIGraphicsPopContext(); }
    CurrentContext(const CurrentContext&) = delete;
    CurrentContext& operator=(const CurrentContext&) = delete;
};

/// Contents of absurd size are drawn coarser rather than not at all.
double affordableScale(Size size, double scale) {
    constexpr double LongestSide = 16384, MostPixels = 64e6;
    scale = std::min(scale, LongestSide / std::max(size.width, size.height));
    return std::min(scale, std::sqrt(MostPixels / (size.width * size.height)));
}

Ref<CGImage> drawnContents(CALayer& layer, double scale) {
    const Rect& bounds = layer.bounds();
    Ref<CGContext> context = CGContext::image(bounds.size, false, scale);
    if (!context)
        return nullptr;
    context->translate(-bounds.origin.x, -bounds.origin.y);
    CurrentContext current(context);
    layer.drawInContext(context);
    return takeImage(*context);
}

}  // namespace

const Ref<CGImage>& CALayer::contents() const {
    return node_->state.contents;
}

void CALayer::setContents(const Ref<CGImage>& contents) {
    DrawnContents::shared().forget(*node_);
    node_->state.drawnSize.reset();
    node_->work &= ~LayerWork::Display;
    node_->assign(&LayerState::contents, contents);
}

double CALayer::contentsScale() const {
    return node_->state.contentsScale;
}

void CALayer::setContentsScale(double scale) {
    if (!(scale > 0) || std::isinf(scale) || scale == node_->state.contentsScale)
        return;
    // Drawn contents keep their own scale until they are drawn again.
    if (node_->state.drawnSize || drawsContents())
        setNeedsDisplay();
    node_->assign(&LayerState::contentsScale, scale);
}

CAContentsGravity CALayer::contentsGravity() const {
    return node_->state.contentsGravity;
}

void CALayer::setContentsGravity(CAContentsGravity gravity) {
    node_->assign(&LayerState::contentsGravity, gravity);
}

const Rect& CALayer::contentsCenter() const {
    return node_->state.contentsCenter;
}

void CALayer::setContentsCenter(const Rect& center) {
    node_->assign(&LayerState::contentsCenter, center);
}

bool CALayer::needsDisplay() const {
    return node_->work & LayerWork::Display;
}

void CALayer::setNeedsDisplay() {
    node_->mark(LayerWork::Display);
}

void CALayer::displayIfNeeded() {
    if (!needsDisplay())
        return;
    node_->work &= ~LayerWork::Display;
    if (!drawsContents()) {
        if (node_->state.drawnSize)
            setContents(nullptr);
        return;
    }
    Size size = bounds().size;
    if (!(size.width > 0) || !(size.height > 0))
        return;
    Ref<CGImage> drawn = drawnContents(*this, affordableScale(size, contentsScale()));
    node_->state.contents = drawn;
    node_->state.drawnSize = size;
    node_->mark(LayerWork::State);
    DrawnContents::shared().add(*node_);
}

bool CALayer::needsDisplayOnBoundsChange() const {
    return node_->needsDisplayOnBoundsChange;
}

void CALayer::setNeedsDisplayOnBoundsChange(bool needs) {
    node_->needsDisplayOnBoundsChange = needs;
}

void CALayer::drawInContext(const Ref<CGContext>& context) {
    if (node_->delegate)
        node_->delegate->drawLayer(*this, context);
}

bool CALayer::drawsContents() const {
    return node_->delegate && node_->delegate->layerDraws(*this);
}

bool CALayer::needsLayout() const {
    return node_->work & LayerWork::Layout;
}

void CALayer::setNeedsLayout() {
    node_->mark(LayerWork::Layout);
}

void CALayer::layoutIfNeeded() {
    // The topmost layer that waits for layout decides about those below it.
    CALayer* top = this;
    while (top->node_->superlayer && top->node_->superlayer->needsLayout())
        top = top->node_->superlayer;
    Ref<CALayer> kept = ref(top);
    layoutTree(*top);
}

void CALayer::layoutSublayers() {
    if (node_->delegate)
        node_->delegate->layoutSublayersOfLayer(*this);
}

}  // namespace zn
