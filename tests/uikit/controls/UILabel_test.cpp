#include "zarnic/platform/uikit/UILabel.h"

#include <gmock/gmock.h>

#include <cmath>

#include "tests/support/LayerScreen.h"
#include "zarnic/platform/drawing/UIImage.h"

namespace zn {
namespace {

/// The box of the pixels that differ from the white around them, in pixels.
Rect inkOf(LayerScreen& screen) {
    screen.pixel(0, 0);
    const auto& compositor = screen.compositor();
    Rect ink = Rect::null();
    for (std::size_t y = 0; y < compositor.pixelHeight(); ++y)
        for (std::size_t x = 0; x < compositor.pixelWidth(); ++x)
            if (compositor.pixels()[y * compositor.pixelWidth() + x] != 0xffffffff)
                ink = ink.unionWith({double(x), double(y), 1, 1});
    return ink;
}

/// A label on a white screen of 200 by 100 points.
struct Scene {
    explicit Scene(double scale = 1) : screen({200, 100}, scale) {
        setUIGraphicsMainScreenScale(scale);
        paper->setBackgroundColor(UIColor::whiteColor());
        label = make<UILabel>(Rect(0, 0, 200, 100));
        paper->addSubview(label);
        screen.show(paper);
    }
    Rect ink() { return inkOf(screen); }

    LayerScreen screen;
    Ref<UIView> paper = make<UIView>(Rect(0, 0, 200, 100));
    Ref<UILabel> label;
};

Size needed(std::string_view text, double width, std::size_t lines, double size = 17) {
    const TextStyle style{UIFont::systemFontOfSize(size), NSTextAlignment::Left,
                          NSLineBreakMode::TruncatingTail, lines};
    return TextLayout::layout(text, style, {width, 0})->size();
}

TEST(UILabelTest, BeginsAsThePlatformSays) {
    const auto label = make<UILabel>();
    EXPECT_EQ(label->font(), UIFont::systemFontOfSize(17));
    EXPECT_EQ(label->textColor(), UIColor::blackColor());
    EXPECT_EQ(label->numberOfLines(), 1u);
    EXPECT_EQ(label->lineBreakMode(), NSLineBreakMode::TruncatingTail);
    EXPECT_FALSE(label->userInteractionEnabled());
    EXPECT_FALSE(label->opaque());
    label->setFont(nullptr);
    label->setTextColor(nullptr);
    EXPECT_EQ(label->font(), UIFont::systemFontOfSize(17));
    EXPECT_EQ(label->textColor(), UIColor::blackColor());
}

TEST(UILabelTest, SizesAreRoundedUpToDevicePixels) {
    for (const double scale : {1.0, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        setUIGraphicsMainScreenScale(scale);
        const auto label = make<UILabel>(Rect(5, 6, 10, 10));
        label->setText("Wording");
        label->sizeToFit();
        const Size text = needed("Wording", 0, 1), size = label->frame().size;
        EXPECT_DOUBLE_EQ(label->frame().origin.x, 5);
        EXPECT_DOUBLE_EQ(label->frame().origin.y, 6);
        EXPECT_GE(size.width, text.width - 1e-6);
        EXPECT_LT(size.width, text.width + 1 / scale);
        EXPECT_GE(size.height, text.height - 1e-6);
        EXPECT_LT(size.height, text.height + 1 / scale);
        EXPECT_NEAR(size.width * scale, std::round(size.width * scale), 1e-9);
        EXPECT_NEAR(size.height * scale, std::round(size.height * scale), 1e-9);
    }
}

TEST(UILabelTest, SizeFollowsTheNumberOfLines) {
    const auto label = make<UILabel>();
    label->setText("one two three four five six seven eight nine ten");
    const double line = label->sizeThatFits({}).height;
    const double whole = label->sizeThatFits({}).width;
    EXPECT_EQ(label->sizeThatFits({50, 1}).width, whole) << "a single line is never limited";
    label->setNumberOfLines(0);
    EXPECT_EQ(label->sizeThatFits({0, 0}).width, whole);
    const Size wrapped = label->sizeThatFits({100, 1});
    EXPECT_LE(wrapped.width, 100);
    EXPECT_GT(wrapped.height, 3 * line);
    label->setNumberOfLines(2);
    EXPECT_NEAR(label->sizeThatFits({100, 1000}).height, 2 * line, 1);
    label->setText("");
    EXPECT_EQ(label->sizeThatFits({100, 100}), Size());
}

TEST(UILabelTest, SizeThatFitsHoldsTheWholeTextWhenDrawn) {
    const auto label = make<UILabel>();
    for (const char* text : {"a", "Wrapping", "one two three four five", "数字 and Latin 混合"}) {
        SCOPED_TRACE(text);
        label->setNumberOfLines(0);
        label->setText(text);
        const Size size = label->sizeThatFits({90, 0});
        const TextStyle style{label->font(), NSTextAlignment::Left, NSLineBreakMode::TruncatingTail,
                              0};
        const auto layout = TextLayout::layout(text, style, size);
        EXPECT_EQ(layout->lines().size(), TextLayout::layout(text, style, {90, 0})->lines().size());
        const auto& last = layout->lines().back();
        EXPECT_EQ(last.start + last.length, std::string_view(text).size());
    }
}

TEST(UILabelTest, TextIsCentredVertically) {
    Scene scene;
    scene.label->setText("H");
    const auto& font = *scene.label->font();
    const double baseline = (100 - font.lineHeight()) / 2 + font.ascender();
    EXPECT_NEAR(scene.ink().maxY(), baseline, 1.5);
    EXPECT_NEAR(scene.ink().minY(), baseline - font.capHeight(), 1.5);
}

TEST(UILabelTest, AlignmentMovesTheText) {
    Scene scene;
    scene.label->setText("Hello");
    const double width = scene.ink().width();
    scene.label->setTextAlignment(NSTextAlignment::Right);
    EXPECT_NEAR(scene.ink().maxX(), 200, 3);
    scene.label->setTextAlignment(NSTextAlignment::Center);
    EXPECT_NEAR(scene.ink().midX(), 100, 2);
    EXPECT_NEAR(scene.ink().width(), width, 1);
}

TEST(UILabelTest, LongTextIsCutAndStaysInside) {
    Scene scene;
    scene.label->setFrame({20, 0, 80, 100});
    scene.label->setText("A text that is much too long for its label");
    const Rect ink = scene.ink();
    EXPECT_GE(ink.minX(), 20);
    EXPECT_LE(ink.maxX(), 100);
    EXPECT_LT(ink.height(), 25) << "one line";
    scene.label->setNumberOfLines(3);
    EXPECT_GT(scene.ink().height(), 45);
}

TEST(UILabelTest, ShrinksTheFontToFitWhenAsked) {
    Scene scene;
    scene.label->setFrame({0, 0, 60, 100});
    scene.label->setText("Not quite short");
    const double height = scene.ink().height();
    scene.label->setAdjustsFontSizeToFitWidth(true);
    const double shrunk = scene.ink().height();
    EXPECT_LT(shrunk, height * 0.8);
    EXPECT_LE(scene.ink().maxX(), 60);
    scene.label->setMinimumScaleFactor(0.9);
    EXPECT_GT(scene.ink().height(), shrunk);
}

TEST(UILabelTest, ColourFollowsStateAndTextGoesAway) {
    Scene scene;
    scene.label->setText("███");
    scene.label->setTextColor(UIColor::redColor());
    scene.label->setHighlightedTextColor(UIColor::blueColor());
    const auto middle = [&] { return scene.screen.pixel(12, 50); };
    EXPECT_EQ(middle(), 0xffff0000u);
    scene.label->setHighlighted(true);
    EXPECT_EQ(middle(), 0xff0000ffu);
    scene.label->setEnabled(false);
    EXPECT_EQ(middle(), 0xff9999ffu);
    scene.label->setText("");
    EXPECT_TRUE(scene.ink().isNull());
}

TEST(UILabelTest, SettingTheSameAgainDrawsNothing) {
    Scene scene;
    scene.label->setText("Same");
    scene.ink();
    scene.label->setText("Same");
    scene.label->setFont(UIFont::systemFontOfSize(17));
    scene.label->setTextColor(UIColor::blackColor());
    EXPECT_FALSE(scene.label->layer()->needsDisplay());
    scene.label->setText("Other");
    EXPECT_TRUE(scene.label->layer()->needsDisplay());
}

TEST(UILabelTest, TextIsSharpAtTheScreensScale) {
    Scene scene(3);
    scene.label->setText("H");
    scene.ink();
    EXPECT_EQ(scene.label->layer()->contentsScale(), 3);
}

}  // namespace
}  // namespace zn
