#include "bench/Machine.h"
#include "bench/ZarnicScene.h"

/// From the start of the process to the first frame of a screen with text.
int main() {
    const auto& compositor = bench::ZarnicScene::shared().host().screen().compositor();
    bench::printPeakMemory();
    return compositor.statistics().pixelsRepainted > 0 ? 0 : 1;
}
