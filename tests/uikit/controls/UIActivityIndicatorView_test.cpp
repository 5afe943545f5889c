#include "zarnic/platform/uikit/UIActivityIndicatorView.h"

#include <gmock/gmock.h>

#include "tests/support/LayerScreen.h"

namespace zn {
namespace {

struct Scene {
    LayerScreen screen{{40, 40}};
    Ref<UIActivityIndicatorView> view =
        make<UIActivityIndicatorView>(UIActivityIndicatorViewStyle::WhiteLarge);
    Scene() {
        view->setFrame({0, 0, 40, 40});
        screen.show(view);
    }
    /// The brightness of the picture, one byte a pixel.
    std::vector<std::uint8_t> picture() {
        screen.pixel(0, 0);
        const std::uint32_t* pixels = screen.compositor().pixels();
        std::vector<std::uint8_t> result;
        for (std::size_t i = 0; i < 40 * 40; ++i)
            result.push_back(static_cast<std::uint8_t>(pixels[i]));
        return result;
    }
};

TEST(UIActivityIndicatorViewTest, SizeComesFromTheStyle) {
    using Style = UIActivityIndicatorViewStyle;
    EXPECT_EQ(make<UIActivityIndicatorView>(Style::WhiteLarge)->frame(), Rect(0, 0, 37, 37));
    EXPECT_EQ(make<UIActivityIndicatorView>(Style::Gray)->frame(), Rect(0, 0, 20, 20));
    const auto framed = make<UIActivityIndicatorView>(Rect(1, 2, 100, 50));
    EXPECT_EQ(framed->frame(), Rect(1, 2, 100, 50));
    framed->sizeToFit();
    EXPECT_EQ(framed->frame(), Rect(1, 2, 20, 20));
}

TEST(UIActivityIndicatorViewTest, IsSeenOnlyWhileItRunsUnlessAskedTo) {
    const auto view = make<UIActivityIndicatorView>();
    EXPECT_TRUE(view->hidden());
    view->startAnimating();
    EXPECT_FALSE(view->hidden());
    EXPECT_TRUE(view->isAnimating());
    view->stopAnimating();
    EXPECT_TRUE(view->hidden());
    view->setHidesWhenStopped(false);
    EXPECT_FALSE(view->hidden());
}

TEST(UIActivityIndicatorViewTest, TurnsByOneSpokeTwelveTimesASecond) {
    Scene scene;
    scene.view->startAnimating();
    const auto start = scene.picture();
    testClock().advance(0.05);
    EXPECT_EQ(scene.picture(), start) << "a spoke is held";
    testClock().advance(0.05);
    const auto next = scene.picture();
    EXPECT_NE(next, start);
    testClock().advance(0.9);
    EXPECT_EQ(scene.picture(), start) << "one turn a second";
    scene.view->stopAnimating();
    EXPECT_FALSE(scene.screen.compositor().animating());
}

}  // namespace
}  // namespace zn
