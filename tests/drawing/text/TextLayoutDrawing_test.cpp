#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "tests/drawing/text/LaidOut.h"

using namespace zn;

namespace {

struct Ink {
    std::size_t left, top, right, bottom;
};
/// The box of everything darker than half on white; pixels, ends exclusive.
Ink inkOf(const CGImage& image) {
    Ink ink{image.width(), image.height(), 0, 0};
    for (std::size_t i = 0; i < image.pixels().size(); ++i)
        if ((image.pixels()[i] & 0xFF) < 0x80) {
            const std::size_t x = i % image.width();
            const std::size_t y = i / image.width();
            ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                   std::max(ink.bottom, y + 1)};
        }
    return ink;
}

/// The rows of a Han character that is written differently from region to region, without what
/// surrounds it.
std::vector<std::uint32_t> hanShape(const Ref<UIFont>& hanFont) {
    const auto context = CGContext::image({60, 80}, true, 1);
    context->setFillColor({1, 1, 1, 1});
    context->fillRect({0, 0, 60, 80});
    TextLayout::layout("直", {hanFont}, {})->draw(context, {5, 5}, {0, 0, 0, 1});
    const auto image = context->makeImage();
    const Ink ink = inkOf(*image);
    std::vector<std::uint32_t> shape;
    for (std::size_t y = ink.top; y < ink.bottom; ++y)
        for (std::size_t x = ink.left; x < ink.right; ++x)
            shape.push_back(image->pixels()[y * image->width() + x]);
    return shape;
}

[[noreturn]] void compareHan(const char* locale, const char* family) {
    setenv("LC_ALL", locale, 1);
    const bool same = hanShape(font(40)) == hanShape(UIFont::fontWithName(family, 40));
    std::_Exit(same ? 0 : 1);
}

}  // namespace

TEST(TextLayoutDeathTest, HanCharactersTakeTheFormsOfTheLocale) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const std::pair<const char*, const char*> regions[] = {
        {"C.UTF-8", "Noto Sans CJK SC"},     {"de_DE.UTF-8", "Noto Sans CJK SC"},
        {"zh_TW.UTF-8", "Noto Sans CJK TC"}, {"zh_HK.UTF-8", "Noto Sans CJK HK"},
        {"ja_JP.UTF-8", "Noto Sans CJK JP"}, {"ko_KR.UTF-8", "Noto Sans CJK KR"}};
    for (const auto& [locale, family] : regions)
        EXPECT_EXIT(compareHan(locale, family), testing::ExitedWithCode(0), "") << locale;
    // After the others, which begin this test anew and must find no font in use.
    EXPECT_NE(hanShape(font(40)), hanShape(UIFont::fontWithName("Noto Sans CJK JP", 40)));
}

TEST(TextLayout, InkStandsOnTheSameBaselineAtEveryScale) {
    const double baseline = 5 + laidOut("H")->lines()[0].baseline;
    for (const double scale : {1.0, 2.0, 3.0}) {
        const Ink ink = inkOf(*drawn("HHHH", scale));
        EXPECT_EQ(double(ink.bottom), std::round(baseline * scale)) << scale;
        EXPECT_NEAR(double(ink.bottom - ink.top), font()->capHeight() * scale, 1) << scale;
        EXPECT_NEAR(double(ink.right - ink.left), sizeWithFont("HHHH", font()).width * scale,
                    3 * scale);
    }
}

TEST(TextLayout, GlyphsStandOnPartsOfPixels) {
    // Moved by a quarter of a pixel the picture differs, by a whole one it is the same.
    const auto at = [](double x) {
        const auto image = drawn("Ill", 1, {x, 5});
        return std::vector(image->pixels().begin(), image->pixels().end());
    };
    const auto placed = at(5);
    const auto moved = at(6);
    EXPECT_NE(placed, at(5.25));
    EXPECT_TRUE(std::equal(placed.begin(), std::prev(placed.end()), std::next(moved.begin())));
    // Along the line only: baselines stay on whole pixels.
    EXPECT_EQ(inkOf(*drawn("Ill", 1, {5, 5.2})).bottom, inkOf(*drawn("Ill", 1)).bottom);
}

TEST(TextLayout, EmojiComeInColorAndTextInItsOwn) {
    const auto hasColor = [](const CGImage& image) {
        return std::ranges::any_of(image.pixels(), [](std::uint32_t pixel) {
            return int(pixel >> 16 & 0xFF) - int(pixel & 0xFF) > 100;
        });
    };
    EXPECT_TRUE(hasColor(*drawn("😀", 2)));
    EXPECT_FALSE(hasColor(*drawn("text 中文", 2)));
    EXPECT_TRUE(hasColor(*drawn("text", 2, {5, 5}, {200, 40}, {1, 0, 0, 1})));
}

TEST(TextLayout, TranslucentColorsMakeEmojiTranslucentToo) {
    const auto context = CGContext::image({40, 40}, false, 1);
    laidOut("😀")->draw(context, {5, 5}, {0, 0, 0, 0.25});
    std::uint32_t alpha = 0;
    const auto image = context->makeImage();
    for (const std::uint32_t pixel : image->pixels())
        alpha = std::max(alpha, pixel >> 24);
    EXPECT_EQ(alpha, 64U);
}

TEST(TextLayout, ClippedLinesEndAtTheBox) {
    const auto context = CGContext::image({200, 30}, true, 1);
    context->setFillColor({1, 1, 1, 1});
    context->fillRect({0, 0, 200, 30});
    laidOut("MMMMMMMMMMMMMMMMMMMM", 100, NSLineBreakMode::Clipping, 1)
        ->draw(context, {0, 0}, {0, 0, 0, 1});
    const Ink ink = inkOf(*context->makeImage());
    EXPECT_GT(ink.right, 95U);
    EXPECT_LE(ink.right, 100U);
}

TEST(TextLayout, TextIsLiteral) {
    // Inter would draw an arrow for the first and a multiplication sign in the second.
    const double arrow = sizeWithFont("-", font()).width + sizeWithFont(">", font()).width;
    EXPECT_NEAR(sizeWithFont("->", font()).width, arrow, 1);
    EXPECT_NEAR(sizeWithFont("3x4", font()).width,
                sizeWithFont("3", font()).width + sizeWithFont("x", font()).width +
                    sizeWithFont("4", font()).width,
                0.5);
}

TEST(TextLayout, CharactersThatNoFontHasShowAsBoxes) {
    const Ink ink = inkOf(*drawn("\xF3\xB0\x80\x80", 2));
    EXPECT_GT(ink.right, ink.left);
    EXPECT_LE(double(ink.right) / 2, 5 + sizeWithFont("\xF3\xB0\x80\x80", font()).width);
    EXPECT_EQ(sizeWithFont("a\xF3\xB0\x80\x80"
                           "b",
                           font())
                  .height,
              font()->lineHeight());
}

TEST(TextLayout, ShadowsFallFromText) {
    const auto context = CGContext::image({100, 40}, false, 1);
    context->setShadow({40, 0}, 0, CGColor{1, 0, 0, 1});
    laidOut("HHH")->draw(context, {0, 0}, {0, 0, 1, 1});
    const auto image = context->makeImage();
    std::uint32_t inked = 0;
    for (std::size_t y = 0; y < 20; ++y)
        for (std::size_t x = 0; x < 35; ++x) {
            const std::uint32_t blue = image->pixels()[y * 100 + x] & 0xFF;
            EXPECT_EQ(blue, image->pixels()[y * 100 + x + 40] >> 16 & 0xFF);
            inked += blue;
        }
    EXPECT_GT(inked, 0U);
}

TEST(TextLayout, BlendModesActInsideTheLettersOnly) {
    for (const auto mode : {CGBlendMode::Clear, CGBlendMode::SourceOut, CGBlendMode::Copy,
                            CGBlendMode::DestinationIn, CGBlendMode::Multiply}) {
        const auto context = CGContext::image({60, 30}, false, 1);
        context->setFillColor({0, 1, 0, 1});
        context->fillRect({0, 0, 60, 30});
        context->setBlendMode(mode);
        laidOut("H")->draw(context, {0, 0}, {0, 0, 1, 0.5});
        const auto image = context->makeImage();
        const auto untouched = std::ranges::count(image->pixels(), 0xFF00FF00U);
        EXPECT_LT(untouched, 1800) << int(mode);
        EXPECT_GT(untouched, 1600) << int(mode);
    }
}
