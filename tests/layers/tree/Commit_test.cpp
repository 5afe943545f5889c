#include "tests/layers/Screen.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Draws itself in one colour and notes what it is asked for.
class Drawer final : public CALayer {
    ZN_OBJECT(Drawer, CALayer)
public:
    bool drawsContents() const override { return true; }
    void drawInContext(const Ref<CGContext>& context) override {
        ++drawn;
        current = UIGraphicsGetCurrentContext() == context;
        context->setFillColor(color);
        context->fillRect(bounds());
        if (whenDrawn)
            whenDrawn();
    }
    CGColor color = red;
    int drawn = 0;
    bool current = false;
    std::function<void()> whenDrawn;
};

class LayoutRecorder final : public CALayerDelegate {
public:
    LayoutRecorder(std::vector<std::string>& list) : list_(list) {}
    void layoutSublayersOfLayer(CALayer& layer) override {
        list_.push_back(layer.name());
        if (whenLaidOut)
            whenLaidOut(layer);
    }
    std::function<void(CALayer&)> whenLaidOut;

private:
    std::vector<std::string>& list_;
};

Ref<Drawer> addDrawer(Screen& screen, const Rect& frame) {
    auto layer = make<Drawer>();
    layer->setFrame(frame);
    screen.root->addSublayer(layer);
    return layer;
}

TEST(CommitTest, ChangesShowWhenThePassEnds) {
    Screen screen;
    screen.show();
    screen.add({0, 0, 10, 10}, red);
    screen.compositor.composite();
    EXPECT_EQ(screen.pixel(5, 5), "ffffffff");
    testClock().settle();
    screen.compositor.composite();
    EXPECT_EQ(screen.pixel(5, 5), "ffff0000");
}

TEST(CommitTest, LaysOutParentsFirstAndOnlyWhatNeedsIt) {
    Screen screen;
    std::vector<std::string> list;
    LayoutRecorder recorder(list);
    auto outer = make<CALayer>(), inner = make<CALayer>();
    outer->setName("outer");
    inner->setName("inner");
    outer->setDelegate(&recorder);
    inner->setDelegate(&recorder);
    outer->addSublayer(inner);
    CATransaction::flush();
    EXPECT_THAT(list, IsEmpty()) << "a layer on no screen waits";
    screen.root->addSublayer(outer);
    CATransaction::flush();
    EXPECT_THAT(list, ElementsAre("outer", "inner"));
    list.clear();
    inner->setBounds({0, 0, 5, 5});
    outer->setPosition({9, 9});
    CATransaction::flush();
    EXPECT_THAT(list, ElementsAre("inner"));
    list.clear();
    inner->setNeedsLayout();
    outer->setNeedsLayout();
    inner->layoutIfNeeded();
    EXPECT_THAT(list, ElementsAre("outer", "inner"));
    outer->setDelegate(nullptr);
    inner->setDelegate(nullptr);
}

TEST(CommitTest, LayoutThatNeverRestsDoesNotHang) {
    Screen screen;
    std::vector<std::string> list;
    LayoutRecorder recorder(list);
    recorder.whenLaidOut = [](CALayer& layer) { layer.setNeedsLayout(); };
    screen.root->setDelegate(&recorder);
    screen.root->setNeedsLayout();
    testClock().advance(0.1);
    EXPECT_LT(list.size(), 1000u);
    screen.root->setDelegate(nullptr);
}

TEST(CommitTest, DrawsContentsOnceAndOnlyWhenSeen) {
    Screen screen;
    auto drawer = addDrawer(screen, {0, 0, 10, 10});
    drawer->setHidden(true);
    drawer->setNeedsDisplay();
    screen.show();
    EXPECT_EQ(drawer->drawn, 0);
    drawer->setHidden(false);
    screen.show();
    EXPECT_EQ(drawer->drawn, 1);
    EXPECT_TRUE(drawer->current);
    EXPECT_EQ(screen.pixel(5, 5), "ffff0000");
    CATransaction::setDisableActions(true);
    drawer->setPosition({25, 25});
    drawer->setOpacity(0.5);
    screen.show();
    EXPECT_EQ(drawer->drawn, 1) << "moving and fading draw nothing again";
    EXPECT_EQ(screen.pixel(25, 25), "ffff7f7f");
    // Stretched until it is drawn again.
    CATransaction::setDisableActions(true);
    drawer->setBounds({0, 0, 20, 20});
    screen.show();
    EXPECT_EQ(drawer->drawn, 1);
    EXPECT_EQ(screen.pixel(34, 34), "ffff7f7f");
    drawer->setNeedsDisplayOnBoundsChange(true);
    drawer->setBounds({0, 0, 10, 10});
    screen.show();
    EXPECT_EQ(drawer->drawn, 2);
}

TEST(CommitTest, DrawingMayAskForADrawingOfTheNextFrame) {
    Screen screen;
    auto drawer = addDrawer(screen, {0, 0, 10, 10});
    drawer->whenDrawn = [&] { drawer->setNeedsDisplay(); };
    drawer->setNeedsDisplay();
    screen.show();
    testClock().advance(0.5);
    EXPECT_NEAR(drawer->drawn, 31, 2);
    drawer->whenDrawn = nullptr;
}

TEST(CommitTest, PicturesThatNoScreenShowsAreGivenUpAndDrawnAgain) {
    Screen screen;
    std::vector<Ref<Drawer>> drawers;
    for (int i = 0; i < 20; ++i) {
        // 4 MiB each.
        auto drawer = addDrawer(screen, {0, 0, 1024, 1024});
        drawer->setNeedsDisplay();
        screen.show();
        drawer->removeFromSuperlayer();
        drawers.push_back(drawer);
    }
    screen.show();
    EXPECT_LE(screen.compositor.statistics().cacheBytes, std::size_t{100} << 20);
    EXPECT_EQ(drawers.front()->contents(), nullptr);
    screen.root->addSublayer(drawers.front());
    screen.show();
    EXPECT_EQ(drawers.front()->drawn, 2);
    EXPECT_EQ(screen.pixel(5, 5), "ffff0000");
}

TEST(CommitTest, ANewScreenShowsTheSameTree) {
    Screen screen;
    auto box = screen.add({10, 10, 10, 10}, red);
    screen.show();
    Compositor second(screen.root, 2);
    CATransaction::flush();
    second.composite();
    EXPECT_EQ(second.pixelWidth(), 80u);
    EXPECT_EQ(pixelText(second.pixels()[20 * 80 + 20]), "ffff0000");
    EXPECT_EQ(pixelText(second.pixels()[19 * 80 + 20]), "ffffffff");
}

}  // namespace
}  // namespace zn
