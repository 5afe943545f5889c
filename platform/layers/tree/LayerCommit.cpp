#include "platform/layers/tree/LayerCommit.h"

#include "platform/layers/screen/CompositorState.h"
#include "platform/layers/tree/AnimationScheduler.h"
#include "platform/layers/tree/CommittedLayer.h"
#include "platform/layers/tree/LayerWalk.h"
#include "platform/layers/tree/TransactionState.h"

namespace zn {
namespace {

// What a commit leaves to do waits a frame, so that a layer that always asks again neither hangs
// the loop nor starves it.
constexpr double FrameTime = 1.0 / 60;

class Flag {
public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

private:
    bool& flag_;
};

}  // namespace

LayerCommit& LayerCommit::shared() {
    static auto* commit = new LayerCommit;
    return *commit;
}

LayerCommit::LayerCommit()
    : beforeWaiting_(NSRunLoop::mainRunLoop()->addBeforeWaiting(CACommitOrder, [this] {
          if (CACurrentMediaTime() >= due_)
              run();
      })) {}

void LayerCommit::schedule() {
    double when = CACurrentMediaTime() + (running_ ? FrameTime : 0);
    if (due_ <= when)
        return;
    due_ = when;
    wake_ = NSRunLoop::mainRunLoop()->addDeadline(when, [] {});
}

void LayerCommit::run() {
    if (running_)
        return;
    {
        Flag running(running_);
        due_ = Never;
        auto screens = screens_;
        for (Compositor::State* screen : screens)
            prepare(*screen->root);
        double now = CACurrentMediaTime();
        takeTransitionPictures(now);
        for (Compositor::State* screen : screens_)
            CommittedLayer::commitTree(screen->root->node());
        endPassTransaction();
        AnimationScheduler::shared().begin(now);
        finishPass();
    }
    AnimationScheduler::shared().deliver();
}

void LayerCommit::prepare(CALayer& root) {
    Ref<CALayer> kept = ref(&root);
    layoutTree(root);
    displayTree(root);
    // Drawing may have asked for layout.
    layoutTree(root);
}

void LayerCommit::finishPass() {
    for (Compositor::State* screen : screens_)
        if (screen->root->node().work || screen->root->node().workBelow)
            return schedule();
    due_ = Never;
    wake_.reset();
}

Compositor::State* LayerCommit::screenShowing(const CommittedLayer& layer) const {
    for (Compositor::State* screen : screens_) {
        const auto& root = screen->root->node().committed;
        if (root && layer.shownIn(*root))
            return screen;
    }
    return nullptr;
}

void LayerCommit::takeTransitionPictures(double now) {
    for (const auto& entry : AnimationScheduler::shared().entries()) {
        if (!entry.animation->isTransition || entry.animation->begin)
            continue;
        auto layer = entry.layer.lock();
        auto committed = layer ? layer->node().committed : nullptr;
        if (Compositor::State* screen = committed ? screenShowing(*committed) : nullptr) {
            screen->refresh(now);
            entry.animation->before = screen->capture(*committed);
        }
    }
}

void LayerCommit::addScreen(Compositor::State& screen) {
    screens_.push_back(&screen);
    schedule();
}

void LayerCommit::removeScreen(Compositor::State& screen) {
    std::erase(screens_, &screen);
}

}  // namespace zn
