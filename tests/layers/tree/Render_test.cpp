#include "tests/layers/Screen.h"
#include "zarnic/platform/layers/CAShapeLayer.h"

namespace zn {
namespace {

/// The four bytes (red, green, blue, alpha) of one point, as a colour picker reads them.
std::string pixelThrough(CALayer& layer, double x, double y) {
    std::uint8_t bytes[4] = {};
    {
        auto context = CGContext::bitmap(bytes, 1, 1, 8, 4, CGColorSpace::DeviceRGB, 1);
        context->translate(-x, -y);
        layer.renderInContext(context);
    }
    return pixelText(static_cast<std::uint32_t>(bytes[0]) << 24 |
                     static_cast<std::uint32_t>(bytes[1]) << 16 |
                     static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3]);
}

Ref<CALayer> halves() {
    testClock();
    auto layer = boxLayer({100, 100, 20, 20}, red);
    layer->addSublayer(boxLayer({0, 10, 20, 10}, blue));
    layer->addSublayer(boxLayer({10, 0, 10, 10}, {1, 0, 0, 0.5}));
    return layer;
}

TEST(RenderTest, ReadsOnePointOfALayerThatIsOnNoScreen) {
    auto layer = halves();
    EXPECT_EQ(pixelThrough(*layer, 5, 5), "ff0000ff");
    EXPECT_EQ(pixelThrough(*layer, 5, 15), "0000ffff");
    EXPECT_EQ(pixelThrough(*layer, 5, 9), "ff0000ff");
    EXPECT_EQ(pixelThrough(*layer, 25, 5), "00000000");
    layer->setBackgroundColor({});
    EXPECT_EQ(pixelThrough(*layer, 15, 5), "80000080") << "premultiplied";
}

TEST(RenderTest, FractionsBlendNeighbours) {
    auto layer = halves();
    // Half a pixel each of red above and blue below.
    EXPECT_THAT(pixelThrough(*layer, 5, 9.5), testing::AnyOf("7f0080ff", "80007fff", "800080ff"));
}

TEST(RenderTest, BottomLeftContextsShowTheLayerUpsideDown) {
    auto layer = halves();
    std::vector<std::uint32_t> words(400);
    // Premultiplied first, 32 little: words as in an image.
    auto context =
        CGContext::bitmap(words.data(), 20, 20, 8, 80, CGColorSpace::DeviceRGB, 2 | 0x2000);
    layer->renderInContext(context);
    context->flush();
    EXPECT_EQ(pixelText(words[0]), "ff0000ff");
    EXPECT_EQ(pixelText(words[19 * 20]), "ffff0000");
}

TEST(RenderTest, ShowsTheModelNotTheAnimation) {
    Screen screen;
    auto box = screen.add({0, 0, 20, 20}, red);
    screen.show();
    box->setOpacity(0);
    box->setBackgroundColor(blue);
    box->setOpacity(1);
    auto context = CGContext::image({40, 40}, false, 1);
    screen.root->renderInContext(context);
    EXPECT_EQ(pixelAt(context, 10, 10), "ff0000ff");
    EXPECT_EQ(screen.pixel(10, 10), "ffff0000");
}

TEST(RenderTest, LeavesTheContextAsItWas) {
    auto layer = halves();
    auto context = CGContext::image({20, 20}, false, 2);
    context->clipToRect({0, 0, 10, 20});
    context->setFillColor(green);
    AffineTransform before = context->ctm();
    layer->renderInContext(context);
    EXPECT_EQ(context->ctm(), before);
    EXPECT_EQ(pixelAt(context, 30, 10), "00000000") << "the clip holds";
    context->fillRect({0, 0, 20, 20});
    EXPECT_EQ(pixelAt(context, 10, 10), "ff00ff00");
    EXPECT_EQ(pixelAt(context, 30, 10), "00000000");
    layer->renderInContext(nullptr);
}

TEST(RenderTest, MasksShadowsAndOwnDrawingAreThere) {
    class Drawer final : public CALayerDelegate {
        bool layerDraws(const CALayer&) override { return true; }
        void drawLayer(CALayer& layer, const Ref<CGContext>& context) override {
            context->setFillColor(green);
            context->fillRect(layer.bounds());
        }
    } drawer;
    testClock();
    auto root = boxLayer({0, 0, 60, 60}, white);
    auto drawn = boxLayer({10, 10, 10, 10}, {});
    drawn->setDelegate(&drawer);
    drawn->setNeedsDisplay();
    drawn->setShadowOpacity(1);
    drawn->setShadowRadius(0);
    drawn->setShadowOffset({20, 0});
    auto masked = boxLayer({10, 40, 20, 10}, red);
    auto mask = make<CAShapeLayer>();
    mask->setPath(CGPath::rect({0, 0, 10, 10}));
    masked->setMask(mask);
    root->addSublayer(drawn);
    root->addSublayer(masked);
    auto context = CGContext::image({60, 60}, false, 1);
    root->renderInContext(context);
    EXPECT_EQ(pixelAt(context, 15, 15), "ff00ff00");
    EXPECT_EQ(pixelAt(context, 35, 15), "ff000000");
    EXPECT_EQ(pixelAt(context, 15, 45), "ffff0000");
    EXPECT_EQ(pixelAt(context, 25, 45), "ffffffff");
    drawn->setDelegate(nullptr);
}

}  // namespace
}  // namespace zn
