#include "zarnic/platform/uikit/UIView.h"

#include <gmock/gmock.h>

#include "tests/support/LayerScreen.h"
#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/layers/CAGradientLayer.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t red = 0xffff0000, green = 0xff00ff00;

/// Fills its left half with red.
class HalfRed final : public UIView {
    ZN_OBJECT(HalfRed, UIView)
public:
    using UIView::UIView;
    void drawRect(const Rect& rect) override {
        ++draws;
        drawn = rect;
        UIColor::redColor()->setFill();
        UIRectFill({rect.minX(), rect.minY(), rect.width() / 2, rect.height()});
    }
    bool drawsRect() const override { return true; }
    int draws = 0;
    Rect drawn;
};

TEST(UIViewTest, BeginsAsThePlatformSays) {
    const auto view = make<UIView>();
    EXPECT_EQ(view->frame(), Rect());
    EXPECT_EQ(view->backgroundColor(), nullptr);
    EXPECT_EQ(view->alpha(), 1);
    EXPECT_TRUE(view->opaque());
    EXPECT_FALSE(view->hidden());
    EXPECT_FALSE(view->clipsToBounds());
    EXPECT_TRUE(view->userInteractionEnabled());
    EXPECT_EQ(view->contentMode(), UIViewContentMode::ScaleToFill);
}

TEST(UIViewTest, AlphaIsCut) {
    const auto view = make<UIView>();
    view->setAlpha(1.5);
    EXPECT_EQ(view->alpha(), 1);
    view->setAlpha(-0.5);
    EXPECT_EQ(view->alpha(), 0);
}

TEST(UIViewTest, AbsentColourIsClear) {
    LayerScreen screen;
    const auto view = make<UIView>(Rect(0, 0, 10, 10));
    screen.show(view);
    view->setBackgroundColor(UIColor::greenColor());
    EXPECT_EQ(screen.pixel(5, 5), green);
    view->setBackgroundColor(nullptr);
    EXPECT_NE(screen.pixel(5, 5), green);
}

TEST(UIViewTest, DrawsItsContentsOnceAndAgainWhenAsked) {
    LayerScreen screen({100, 100}, 2);
    const auto view = make<HalfRed>(Rect(10, 10, 20, 20));
    screen.show(view);
    EXPECT_EQ(screen.pixel(22, 22), red);
    EXPECT_NE(screen.pixel(50, 22), red);
    EXPECT_EQ(view->drawn, Rect(0, 0, 20, 20));
    view->setCenter({50, 50});
    view->setAlpha(0.5);
    screen.pixel(0, 0);
    EXPECT_EQ(view->draws, 1) << "moving and fading draw nothing anew";
    view->setNeedsDisplay();
    view->setNeedsDisplay();
    screen.pixel(0, 0);
    EXPECT_EQ(view->draws, 2);
}

TEST(UIViewTest, DrawsInTheCoordinatesOfItsBounds) {
    LayerScreen screen;
    const auto view = make<HalfRed>(Rect(10, 10, 20, 20));
    view->setBounds({100, 200, 20, 20});
    screen.show(view);
    EXPECT_EQ(screen.pixel(12, 12), red);
    EXPECT_NE(screen.pixel(28, 12), red);
    EXPECT_EQ(view->drawn.origin, (Point{100, 200}));
}

TEST(UIViewTest, ResizingStretchesTheContentsUnlessTheyAreRedrawn) {
    LayerScreen screen;
    const auto view = make<HalfRed>(Rect(0, 0, 20, 20));
    screen.show(view);
    screen.pixel(0, 0);
    view->setFrame({0, 0, 60, 20});
    EXPECT_EQ(screen.pixel(25, 5), red);
    EXPECT_EQ(view->draws, 1);
    view->setContentMode(UIViewContentMode::Redraw);
    view->setFrame({0, 0, 80, 20});
    EXPECT_EQ(screen.pixel(35, 5), red);
    EXPECT_EQ(view->draws, 2);
    view->setContentMode(UIViewContentMode::Right);
    view->setFrame({0, 0, 100, 20});
    EXPECT_EQ(screen.pixel(25, 5), red);
    EXPECT_NE(screen.pixel(15, 5), red);
    EXPECT_EQ(view->draws, 2);
}

TEST(UIViewTest, LaysOutAfterItsSizeOrItsSubviewsChange) {
    class Counting final : public UIView {
        ZN_OBJECT(Counting, UIView)
    public:
        void layoutSubviews() override { ++layouts; }
        int layouts = 0;
    };
    const auto view = make<Counting>();
    const auto layoutsAfter = [&](const auto& change) {
        view->layoutIfNeeded();
        const int before = view->layouts;
        change();
        view->layoutIfNeeded();
        view->layoutIfNeeded();
        return view->layouts - before;
    };
    const auto child = make<UIView>();
    EXPECT_EQ(layoutsAfter([&] { view->setFrame({0, 0, 10, 10}); }), 1);
    EXPECT_EQ(layoutsAfter([&] { view->setFrame({5, 5, 10, 10}); }), 0);
    EXPECT_EQ(layoutsAfter([&] { view->addSubview(child); }), 1);
    EXPECT_EQ(layoutsAfter([&] { child->removeFromSuperview(); }), 1);
    EXPECT_EQ(layoutsAfter([&] { view->setNeedsLayout(); }), 1);
    EXPECT_EQ(layoutsAfter([] {}), 0);
}

TEST(UIViewTest, ControllerHearsOfTheLayoutOfItsView) {
    struct Controller final : UIViewController {
        void viewWillLayoutSubviews() override { calls.push_back("will"); }
        void viewDidLayoutSubviews() override { calls.push_back("did"); }
        std::vector<std::string> calls;
    };
    const auto controller = make<Controller>();
    const auto view = make<UIView>(Rect(0, 0, 10, 10));
    controller->setView(view);
    view->layoutIfNeeded();
    EXPECT_THAT(controller->calls, ElementsAre("will", "did"));
    EXPECT_EQ(view->nextResponder(), controller);
}

TEST(UIViewTest, SubclassChoosesItsLayer) {
    class Gradient final : public UIView {
        ZN_OBJECT(Gradient, UIView)
    protected:
        Ref<CALayer> makeLayer() const override { return make<CAGradientLayer>(); }
    };
    EXPECT_NE(as<CAGradientLayer>(make<Gradient>()->layer()), nullptr);
}

}  // namespace
}  // namespace zn
