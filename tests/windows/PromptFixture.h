#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "zarnic/ZNPromptWindow.h"
#include "zarnic/platform/drawing/TextLayout.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/layers/CALayer.h"
#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/testing/Stage.h"

namespace zn {

/// Seconds of both fades, and between two looks at the clock.
inline constexpr double fade = 0.3f;
inline constexpr double tick = 0.1f;

/// Taps that reach the application.
class TapCounter : public UIView {
    ZN_OBJECT(TapCounter, UIView)
public:
    void touchesEnded(const TouchSet&, const Ref<UIEvent>&) override { ++taps; }
    int taps = 0;
};

class PromptTest : public ::testing::Test {
protected:
    PromptTest() : PromptTest(Stage::Options()) {}
    explicit PromptTest(const Stage::Options& options) : stage(options) {
        const auto root = make<UIViewController>();
        application = make<TapCounter>();
        root->setView(application);
        stage.show(root);
        stage.settle();
        prompt = ZNPromptWindow::SharedInstance();
    }

    double now() { return stage.clock().now(); }
    bool visible() { return !prompt->promptWindow()->hidden(); }
    double shownAlpha() { return prompt->promptWindow()->layer()->presentationOpacity(); }
    /// The toast on the screen.
    Rect toast() {
        return prompt->screenLock() ? prompt->centerView()->frame()
                                    : prompt->promptWindow()->frame();
    }
    Rect expectedToast(const std::string& text, double keyboard) {
        const Size size = boundingRectWithSize(text, {375.0 * 3 / 5, 3.4028234663852886e38}, 1,
                                               UIFont::systemFontOfSize(15))
                              .size;
        return {std::trunc((375 - (size.width + 43)) * 0.5),
                std::trunc((667 - keyboard - (size.height + 31)) * 0.5), size.width + 43,
                size.height + 31};
    }
    /// Seconds from the request until the window is hidden, found tick by tick.
    double lifetime() {
        const double begin = now();
        while (visible() && now() - begin < 20)
            stage.advance(0.01);
        return now() - begin;
    }

    Stage stage;
    Ref<TapCounter> application;
    Ref<ZNPromptWindow> prompt;
};

}  // namespace zn
