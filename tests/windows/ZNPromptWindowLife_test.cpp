#include <malloc.h>

#include "tests/windows/PromptFixture.h"

namespace zn {
namespace {

/// A toast every five seconds for that many seconds.
void showToasts(Stage& stage, double seconds) {
    const double end = stage.clock().now() + seconds;
    for (int count = 0; stage.clock().now() < end; ++count) {
        ZNPromptWindow::ShowMsg("Message " + std::to_string(count % 100), 2);
        stage.advance(5);
        ASSERT_FALSE(ZNPromptWindow::SharedInstance()->showing());
    }
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
constexpr double hour = 3600;

/// What the program holds of the heap, in bytes.
std::size_t heapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}
#else
/// Under the sanitizers everything takes its time, and what they look for shows sooner.
constexpr double hour = 300;

/// Their heaps do not tell; they look for leaks themselves.
std::size_t heapInUse() {
    return 0;
}
#endif

/// Bytes that may come and go with the state of caches: less than a hundred a toast in an hour.
constexpr std::size_t slack = 48 << 10;

void expectNoGrowth(Stage& stage, double seconds) {
    // Every time of the day has stood in the status bar, and every message in a toast.
    stage.advance(24 * 3600);
    showToasts(stage, 1000);
    const std::size_t before = heapInUse();
    showToasts(stage, seconds);
    EXPECT_LE(heapInUse(), before + slack);
}

/// Pictures are not what these are about: a frame now and then will do.
Stage::Options rareFrames(double framesPerSecond) {
    Stage::Options options;
    options.framesPerSecond = framesPerSecond;
    return options;
}

class PromptLongTest : public PromptTest {
protected:
    PromptLongTest() : PromptTest(rareFrames(10)) {}
};

TEST_F(PromptLongTest, AnHourOfToastsLeavesNothingBehind) {
    expectNoGrowth(stage, hour);
}

class PromptSoakTest : public PromptLongTest {};

TEST_F(PromptSoakTest, ADayOfToastsLeavesNothingBehind) {
    expectNoGrowth(stage, 24 * hour);
}

/// Every order of up to six events; after each, what must hold at any time holds.
class PromptInterleavingTest : public PromptTest, public ::testing::WithParamInterface<int> {
protected:
    PromptInterleavingTest() : PromptTest(rareFrames(2)) {}

    enum Event { Show, Hide, Tick, KeyboardUp, KeyboardDown, eventCount };

    void apply(Event event) {
        switch (event) {
            case Show:
                ZNPromptWindow::ShowMsg("message", duration);
                break;
            case Hide:
                ZNPromptWindow::Hide();
                break;
            case Tick:
                stage.advance(step);
                break;
            case KeyboardUp:
                stage.keyboard(216);
                break;
            case KeyboardDown:
                stage.keyboard(0);
                break;
            case eventCount:
                break;
        }
    }

    void check(const std::string& events) {
        std::size_t toasts = 0;
        for (const auto& window : UIApplication::sharedApplication()->windows())
            toasts += window->windowLevel() == level ? 1 : 0;
        ASSERT_LE(toasts, 1u) << events;
        const bool counting = prompt->timer()->fireDate()->timeIntervalSinceNow() < 1e8;
        const bool idle = !prompt->promptWindow()->layer()->animates("opacity");
        ASSERT_TRUE(prompt->showing() || !visible()) << events;
        ASSERT_TRUE(!prompt->showing() || !idle || shownAlpha() == 1) << events;
        if (counting) {
            ASSERT_TRUE(visible()) << events;
            ASSERT_GT(prompt->time() + tick + 1e-6, now()) << events << ": expired too late";
        }
    }

    /// Runs the rest of a toast's life; it must end, and not before its time.
    void finish(const std::string& events) {
        const bool counting = prompt->timer()->fireDate()->timeIntervalSinceNow() < 1e8;
        const double expiry = prompt->time();
        if (counting && prompt->showing()) {
            stage.advance(std::max(0.0, expiry - now() - 1e-3));
            ASSERT_EQ(shownAlpha(), 1) << events << ": expired too early";
        }
        ZNPromptWindow::Hide();
        stage.keyboard(0);
        stage.advance(1);
        ASSERT_FALSE(visible()) << events;
        ASSERT_FALSE(prompt->showing()) << events;
    }

    static constexpr double level = 42;
    static constexpr double duration = 0.35;
    static constexpr double step = 0.2;
};

TEST_P(PromptInterleavingTest, InvariantsHoldInEveryOrderOfEvents) {
    ZNPromptWindow::InitPromptWindow(level);
    // All orders of six that begin with this event: those of fewer are their beginnings.
    constexpr int length = 6;
    int orders = 1;
    for (int index = 1; index < length; ++index)
        orders *= eventCount;
    for (int order = 0; order < orders; ++order) {
        std::string events;
        int rest = order * eventCount + GetParam();
        for (int index = 0; index < length; ++index, rest /= eventCount) {
            events += "SHTUD"[rest % eventCount];
            apply(static_cast<Event>(rest % eventCount));
            check(events);
            ASSERT_FALSE(HasFatalFailure());
        }
        finish(events);
        ASSERT_FALSE(HasFatalFailure());
    }
}

INSTANTIATE_TEST_SUITE_P(BeginningWith, PromptInterleavingTest, ::testing::Range(0, 5));

}  // namespace
}  // namespace zn
