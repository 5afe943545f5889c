#include "zarnic/platform/uikit/UIImageView.h"

#include <gmock/gmock.h>

#include <thread>

#include "tests/drawing/Pixels.h"
#include "tests/support/LayerScreen.h"

namespace zn {
namespace {

constexpr std::uint32_t R = 0xffff0000, G = 0xff00ff00, B = 0xff0000ff, W = 0xffffffff;

/// Two by one points, red and green.
Ref<UIImage> redGreen(double scale = 1) {
    const auto side = static_cast<std::size_t>(scale);
    auto pixels = std::make_unique<std::uint32_t[]>(2 * side * side);
    for (std::size_t i = 0; i < 2 * side * side; ++i)
        pixels[i] = i % (2 * side) < side ? R : G;
    return UIImage::imageWithCGImage(make<CGImage>(2 * side, side, std::move(pixels)), scale);
}

struct Scene {
    LayerScreen screen;
    Ref<UIImageView> view = make<UIImageView>(Rect(10, 10, 40, 40));
    Scene() {
        view->setBackgroundColor(UIColor::whiteColor());
        screen.show(view);
    }
};

TEST(UIImageViewTest, BeginsLikeTheImageAndNeverResizes) {
    const auto view = make<UIImageView>(redGreen(2));
    EXPECT_EQ(view->frame(), Rect(0, 0, 2, 1));
    EXPECT_FALSE(view->userInteractionEnabled());
    view->setImage(nullptr);
    EXPECT_EQ(view->frame(), Rect(0, 0, 2, 1));
    view->setFrame({0, 0, 9, 9});
    view->setImage(redGreen());
    EXPECT_EQ(view->frame(), Rect(0, 0, 9, 9));
    view->sizeToFit();
    EXPECT_EQ(view->frame(), Rect(0, 0, 2, 1));
}

/// Enlarged images are smoothed.
std::string nearestColor(std::uint32_t pixel) {
    const bool hasRed = (pixel & 0xff0000) > 0xc00000, hasGreen = (pixel & 0xff00) > 0xc000;
    return hasRed && hasGreen ? "white" : hasRed ? "red" : hasGreen ? "green" : "none";
}

struct ModeCase {
    UIViewContentMode mode;
    /// In the view, which is 40 by 40; the natural size is 2 by 1.
    Point redPlace;
    Point greenPlace;
    Point emptyPlace;
};

TEST(UIImageViewTest, ContentModesPlaceTheImage) {
    const ModeCase cases[] = {
        {UIViewContentMode::ScaleToFill, {0, 0}, {39, 39}, {-1, -1}},
        {UIViewContentMode::ScaleAspectFit, {2, 11}, {38, 28}, {20, 8}},
        {UIViewContentMode::ScaleAspectFill, {0, 0}, {39, 39}, {-1, -1}},
        {UIViewContentMode::Top, {19, 0}, {20, 0}, {20, 1}},
        {UIViewContentMode::Bottom, {19, 39}, {20, 39}, {20, 38}},
        {UIViewContentMode::TopLeft, {0, 0}, {1, 0}, {2, 0}},
        {UIViewContentMode::TopRight, {38, 0}, {39, 0}, {37, 0}},
        {UIViewContentMode::BottomLeft, {0, 39}, {1, 39}, {0, 38}},
        {UIViewContentMode::BottomRight, {38, 39}, {39, 39}, {37, 39}},
    };
    for (const double scale : {1.0, 4.0}) {
        for (const ModeCase& each : cases) {
            SCOPED_TRACE(testing::Message()
                         << "mode " << static_cast<int>(each.mode) << " scale " << scale);
            Scene scene;
            scene.view->setImage(redGreen(scale));
            scene.view->setContentMode(each.mode);
            const auto at = [&](Point point) {
                return nearestColor(scene.screen.pixel(static_cast<std::size_t>(10 + point.x),
                                                       static_cast<std::size_t>(10 + point.y)));
            };
            EXPECT_EQ(at(each.redPlace), "red");
            EXPECT_EQ(at(each.greenPlace), "green");
            if (each.emptyPlace.x >= 0) {
                EXPECT_EQ(at(each.emptyPlace), "white");
            }
        }
    }
}

TEST(UIImageViewTest, AspectFillRunsOverUnlessClipped) {
    Scene scene;
    scene.view->setImage(redGreen());
    scene.view->setContentMode(UIViewContentMode::ScaleAspectFill);
    EXPECT_EQ(pixelText(scene.screen.pixel(4, 20)), "ffff0000");
    scene.view->setClipsToBounds(true);
    EXPECT_NE(pixelText(scene.screen.pixel(4, 20)), "ffff0000");
}

TEST(UIImageViewTest, TurnedImagesAreSeenTurned) {
    Scene scene;
    const auto image =
        UIImage::imageWithCGImage(imageOf(2, 1, {R, B}), 1, UIImageOrientation::Right);
    scene.view->setContentMode(UIViewContentMode::TopLeft);
    scene.view->setImage(image);
    EXPECT_EQ(scene.view->image(), image);
    EXPECT_EQ(pixelText(scene.screen.pixel(10, 10)), "ffff0000");
    EXPECT_EQ(pixelText(scene.screen.pixel(10, 11)), "ff0000ff");
    EXPECT_EQ(pixelText(scene.screen.pixel(11, 10)), "ffffffff");
}

TEST(UIImageViewTest, HighlightedImageTakesThePlaceOfTheImage) {
    Scene scene;
    scene.view->setImage(UIImage::imageWithCGImage(imageOf(1, 1, {R})));
    scene.view->setHighlighted(true);
    EXPECT_EQ(scene.screen.pixel(20, 20), R);
    scene.view->setHighlightedImage(UIImage::imageWithCGImage(imageOf(1, 1, {B})));
    EXPECT_EQ(scene.screen.pixel(20, 20), B);
    scene.view->setHighlighted(false);
    EXPECT_EQ(scene.screen.pixel(20, 20), R);
    scene.view->setImage(nullptr);
    EXPECT_EQ(scene.screen.pixel(20, 20), W);
}

TEST(UIImageViewTest, ImageMayBeSetFromAnyThread) {
    Scene scene;
    const auto first = UIImage::imageWithCGImage(imageOf(1, 1, {R}));
    const auto last = UIImage::imageWithCGImage(imageOf(1, 1, {B}));
    std::thread thread([&] {
        for (int i = 0; i < 1000; ++i)
            scene.view->setImage(i % 2 == 0 ? first : last);
    });
    for (int i = 0; i < 1000; ++i)
        EXPECT_TRUE(!scene.view->image() || scene.view->image()->size() == (Size{1, 1}));
    thread.join();
    EXPECT_EQ(scene.view->image(), last) << "at once, before the main loop has run";
    EXPECT_EQ(scene.screen.pixel(20, 20), B);
}

TEST(UIImageViewTest, ViewMayGoBeforeItsImageArrives) {
    Scene scene;
    std::thread([view = scene.view] {
        view->setImage(UIImage::imageWithCGImage(imageOf(1, 1, {R})));
    }).join();
    scene.view.reset();
    testClock().settle();
}

}  // namespace
}  // namespace zn
