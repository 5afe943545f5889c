#include "zarnic/platform/layers/Compositor.h"

#include <algorithm>
#include <cmath>

#include "platform/layers/painting/LayerPainter.h"
#include "platform/layers/painting/PaintCache.h"
#include "platform/layers/screen/CompositorState.h"
#include "platform/layers/screen/CoverFinder.h"
#include "platform/layers/screen/DamagePass.h"
#include "platform/layers/tree/AnimationScheduler.h"
#include "platform/layers/tree/DrawnContents.h"
#include "platform/layers/tree/LayerCommit.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

int pixelCount(double points, double scale) {
    double pixels = std::ceil(points * scale - 1e-6);
    if (!(pixels > 0) || pixels > 32767)
        throw NSException(NSInvalidArgumentException, "a screen needs 1 to 32,767 pixels a side");
    return static_cast<int>(pixels);
}

/// Both, without what lies in one of the second.
std::vector<PixelRect> joined(std::vector<PixelRect> rects, const std::vector<PixelRect>& whole) {
    for (const PixelRect& each : whole) {
        std::erase_if(rects, [&](const PixelRect& rect) { return contains(each, rect); });
        rects.push_back(each);
    }
    return rects;
}

const CGColor Black{0, 0, 0, 1, CGColor::Space::Gray};

}  // namespace

Compositor::State::State(Ref<CALayer> rootLayer, double pixelScale)
    : root(std::move(rootLayer)),
      scale(pixelScale),
      screen(pixelCount(root->bounds().size.width, scale),
             pixelCount(root->bounds().size.height, scale), Picture::Format::Color) {
    ++root->node().screens;
    root->node().mark(LayerWork::State);
    // What another screen knew of the tree holds for that one only.
    if (const auto& committed = root->node().committed) {
        committed->entering = true;
        committed->touch();
    }
    damage.add(wholeScreen());
    LayerCommit::shared().addScreen(*this);
}

Compositor::State::~State() {
    --root->node().screens;
    LayerCommit::shared().removeScreen(*this);
}

void Compositor::State::refresh(double now) {
    const auto& committed = root->node().committed;
    if (!committed)
        return;
    moving = false;
    for (const auto& entry : AnimationScheduler::shared().entries())
        if (auto layer = entry.layer.lock(); layer && shows(*layer)) {
            layer->node().committed->touch();
            moving = true;
        }
    DamagePass(damage, shifts, scale, now).visit(*committed, toPixels(), wholeScreen());
}

bool Compositor::State::shows(const CALayer& layer) const {
    const auto& committed = layer.node().committed;
    const auto& tree = root->node().committed;
    return committed && tree && committed->shownIn(*tree);
}

std::shared_ptr<const Picture> Compositor::State::capture(const CommittedLayer& layer) const {
    LayerState state = layer.presented;
    auto toOrigin = AffineTransform::translation(-state.bounds.origin.x, -state.bounds.origin.y);
    auto undo = state.toSuperlayer().inverted();
    PixelRect box = enclosing(toPixels().apply(Rect({}, state.bounds.size)));
    if (!undo || isEmpty(box))
        return nullptr;
    // More than the screen has room for is not worth keeping.
    box.width = std::min(box.width, 2 * screen.width());
    box.height = std::min(box.height, 2 * screen.height());
    auto picture = std::make_shared<Picture>(box.width, box.height, Picture::Format::Color);
    Canvas canvas(*picture, 0, 0);
    LayerPlacement placement(state, undo->concat(toOrigin).concat(toPixels()), scale);
    LayerPainter(canvas, {scale, false, moving}, box).paintInside(layer, placement);
    return picture;
}

std::vector<PixelRect> Compositor::State::shiftContent() {
    std::vector<PixelRect> boxes;
    for (const ContentShift& shift : std::exchange(shifts, {})) {
        shift.apply(screen);
        boxes.push_back(shift.box);
    }
    return boxes;
}

void Compositor::State::paint(const PixelRect& rect) {
    const CommittedLayer& tree = *root->node().committed;
    PaintSpace space{scale, true, moving};
    Canvas canvas(screen, 0, 0);
    canvas.clipRect(toRect(rect));
    auto cover = findCover(tree, toPixels(), space, rect);
    LayerPainter painter(canvas, space, wholeScreen());
    if (cover.empty()) {
        canvas.clear(Black);
        painter.paint(tree, toPixels());
    } else {
        painter.paintAbove(cover, toPixels());
    }
    statistics.layersPainted += painter.painted();
    statistics.layersCovered += painter.covered();
    statistics.pixelsRepainted += static_cast<std::size_t>(area(rect));
}

Compositor::Compositor(Ref<CALayer> root, double scale)
    : state_(std::make_unique<State>(std::move(root), scale)) {}

Compositor::~Compositor() = default;

std::vector<PixelRect> Compositor::composite() {
    state_->refresh(CACurrentMediaTime());
    state_->statistics = {};
    std::vector<PixelRect> rects;
    if (state_->root->node().committed)
        rects = state_->damage.take();
    const std::vector<PixelRect> shifted = state_->shiftContent();
    for (const PixelRect& rect : rects)
        state_->paint(rect);
    state_->statistics.cacheBytes =
        PaintCache::shared().byteCount() + DrawnContents::shared().byteCount();
    return joined(std::move(rects), shifted);
}

void Compositor::invalidate() {
    state_->damage.add(state_->wholeScreen());
}

bool Compositor::animating() const {
    const auto& entries = AnimationScheduler::shared().entries();
    return std::any_of(entries.begin(), entries.end(), [&](const auto& entry) {
        auto layer = entry.layer.lock();
        return layer && state_->shows(*layer);
    });
}

std::size_t Compositor::pixelWidth() const {
    return static_cast<std::size_t>(state_->screen.width());
}

std::size_t Compositor::pixelHeight() const {
    return static_cast<std::size_t>(state_->screen.height());
}

double Compositor::scale() const {
    return state_->scale;
}

const std::uint32_t* Compositor::pixels() const {
    return reinterpret_cast<const std::uint32_t*>(state_->screen.bytes());
}

Ref<CGImage> Compositor::snapshot() const {
    return state_->screen.makeImage();
}

const Compositor::Statistics& Compositor::statistics() const {
    return state_->statistics;
}

}  // namespace zn
