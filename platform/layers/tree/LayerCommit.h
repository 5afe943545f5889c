#pragma once

#include <limits>
#include <vector>

#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/layers/Compositor.h"

namespace zn {

class CommittedLayer;

/// Carries the model's changes over to the committed trees when a pass of the main loop ends:
/// layout, drawing, copying, then the completions that wait. Main thread only.
class LayerCommit {
public:
    static LayerCommit& shared();

    /// Makes sure that the present pass, or the next one, commits.
    void schedule();
    void run();

    void addScreen(Compositor::State& screen);
    void removeScreen(Compositor::State& screen);

private:
    LayerCommit();
    void prepare(CALayer& root);
    void takeTransitionPictures(double now);
    Compositor::State* screenShowing(const CommittedLayer& layer) const;
    void finishPass();

    std::vector<Compositor::State*> screens_;
    static constexpr double Never = std::numeric_limits<double>::infinity();
    /// The moment (media time) of the next commit.
    double due_ = Never;
    bool running_ = false;
    RunLoopToken beforeWaiting_;
    RunLoopToken wake_;
};

}  // namespace zn
