#include "zarnic/ZNQRCodeHelper.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "tests/drawing/Pixels.h"
#include "zarnic/platform/drawing/CGContext.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {
namespace {

const Size square{200, 200};

Ref<UIImage> code(std::int64_t type, const Value& content, Size size) {
    return ZNQRCodeHelper::CodeImageWithType(type, content, size, UIColor::redColor(),
                                             UIColor::whiteColor());
}

std::set<std::uint32_t> colorsOf(const Ref<UIImage>& image) {
    const auto pixels = image->cgImage()->pixels();
    return {pixels.begin(), pixels.end()};
}

TEST(ZNQRCodeHelper, QrCodesAreSquareAndBarCodesAreNot) {
    EXPECT_EQ(code(0, "text", {200, 100})->size(), (Size{200, 200}));
    EXPECT_EQ(code(0, "text", {100, 200})->size(), (Size{100, 100}));
    EXPECT_EQ(code(1, "text", {200, 100})->size(), (Size{200, 100}));
    for (const std::int64_t type : {0, 1})
        EXPECT_EQ(colorsOf(code(type, "text", square)),
                  (std::set<std::uint32_t>{0xFFFF0000, 0xFFFFFFFF}));
}

TEST(ZNQRCodeHelper, WhatCannotBeHeldIsBlank) {
    const std::pair<std::int64_t, std::string> cases[] = {
        {2, "text"}, {-1, "text"}, {1, "中文"}, {1, "\xF1"}, {0, std::string(5000, 'x')}};
    for (const auto& [type, content] : cases) {
        const auto image = code(type, content, {30, 20});
        ASSERT_TRUE(image) << type;
        EXPECT_EQ(colorsOf(image), std::set<std::uint32_t>{0});
        EXPECT_EQ(image->size(), type == 0 ? (Size{30, 30}) : (Size{30, 20}));
    }
}

TEST(ZNQRCodeHelper, ContentThatIsNoTextGivesNothingButALine) {
    std::vector<std::string> lines;
    setLogSink([&](std::string_view line) { lines.emplace_back(line); });
    for (const Value& content : {Value(), Value::null(), Value(""), Value(5), Value(Array())})
        EXPECT_FALSE(code(0, content, square));
    setLogSink({});
    EXPECT_EQ(lines, std::vector<std::string>(
                         5, "ZNQRCodeHelper_无法创建 二维码 & 条形码，content参数有误 "));
}

TEST(ZNQRCodeHelper, SizesWithoutAreaGiveNoImage) {
    for (const Size size : {Size{0, 0}, Size{0, 50}, Size{-5, 50}, Size{1e9, 10}}) {
        EXPECT_FALSE(code(0, "text", size)) << size.width;
        EXPECT_FALSE(code(1, "text", size)) << size.width;
        EXPECT_FALSE(ZNQRCodeHelper::CodeFillColorWithImage(nullptr, size, nullptr, nullptr));
    }
    EXPECT_FALSE(code(1, "text", {50, 0}));
    EXPECT_EQ(code(0, "text", {1, 1})->size(), (Size{1, 1}));
    EXPECT_EQ(code(0, "text", {30.5, 1})->size(), (Size{31, 31})) << "rounded up";
}

/// 17 + 4 versions modules; the byte capacities at level H of ISO/IEC 18004, table 7.
TEST(ZNQRCodeHelper, QrCodesHaveTheLeastVersionAndOnePixelAModule) {
    const std::pair<std::size_t, int> capacities[] = {{7, 1},  {14, 2},   {24, 3},   {34, 4},
                                                      {44, 5}, {58, 6},   {64, 7},   {84, 8},
                                                      {98, 9}, {119, 10}, {1273, 40}};
    for (const auto& [bytes, version] : capacities) {
        // Digits would need less room in their own mode.
        const auto exact = ZNQRCodeHelper::QrCodeImageWithContent(std::string(bytes, '1'));
        EXPECT_EQ(exact->extent(), Rect(0, 0, 17 + 4 * version, 17 + 4 * version));
        const auto more = ZNQRCodeHelper::QrCodeImageWithContent(std::string(bytes + 1, '1'));
        EXPECT_EQ(more ? more->extent().width() : 0, version == 40 ? 0 : 21 + 4 * version);
    }
    EXPECT_FALSE(ZNQRCodeHelper::QrCodeImageWithContent(""));
}

/// Start, one for each letter, the check and the stop character, which has two modules more.
TEST(ZNQRCodeHelper, BarCodesHaveElevenPixelsALetterAndNoMargin) {
    const auto bars = ZNQRCodeHelper::BarCodeImageWithContent("abc")->cgImage();
    EXPECT_EQ(bars->width(), 11U * (1 + 3 + 1) + 13);
    EXPECT_EQ(bars->height(), 32U);
    EXPECT_EQ(pixelAt(bars, 0, 0), "ff000000");
    EXPECT_EQ(pixelAt(bars, bars->width() - 1, 31), "ff000000");
    EXPECT_FALSE(ZNQRCodeHelper::BarCodeImageWithContent(""));
}

/// The finder pattern's corner: upright, not mirrored.
TEST(ZNQRCodeHelper, CodesAreUpright) {
    const auto image = code(0, "text", {21 * 4, 21 * 4});
    const auto at = [&](int column, int row) {
        return pixelAt(image->cgImage(), static_cast<std::size_t>(column * 4 + 2),
                       static_cast<std::size_t>(row * 4 + 2));
    };
    EXPECT_EQ(at(3, 3), "ffff0000") << "top left";
    EXPECT_EQ(at(17, 3), "ffff0000") << "top right";
    EXPECT_EQ(at(3, 17), "ffff0000") << "bottom left";
    EXPECT_EQ(at(8, 13), "ffff0000") << "the dark module";
    EXPECT_EQ(at(7, 7), "ffffffff") << "a separator";
}

/// What it would be to draw it, step by step.
TEST(ZNQRCodeHelper, FillingIsDrawingWithoutSmoothingOverTheWholeContext) {
    const auto code = ZNQRCodeHelper::QrCodeImageWithContent("drawn or stretched");
    const auto colored = ZNQRCodeHelper::CodeFillColorWithImage(
        code, code->extent().size, UIColor::blueColor(), UIColor::colorWithRed(1, 1, 0, 0.5));
    const Size sizes[] = {{1, 1},    {24, 26},   {25, 25},    {80, 80},
                          {101, 37}, {600, 600}, {33.4, 90.5}};
    for (const Size size : sizes) {
        const auto context = CGContext::image(size, false, 1);
        context->setInterpolationQuality(CGInterpolationQuality::None);
        context->scale(1, -1);
        context->drawImage(context->clipBoundingBox(), colored->cgImage());
        const auto filled = ZNQRCodeHelper::CodeFillColorWithImage(
            code, size, UIColor::blueColor(), UIColor::colorWithRed(1, 1, 0, 0.5));
        EXPECT_TRUE(std::ranges::equal(filled->cgImage()->pixels(), context->makeImage()->pixels()))
            << size.width << 'x' << size.height;
    }
}

TEST(ZNQRCodeHelper, FilledWithTranslucentAndAbsentColours) {
    const auto code = ZNQRCodeHelper::QrCodeImageWithContent("x");
    const auto half = UIColor::colorWithRed(1, 0, 0, 0.5);
    EXPECT_EQ(colorsOf(ZNQRCodeHelper::CodeFillColorWithImage(code, square, half, nullptr)),
              (std::set<std::uint32_t>{0x80800000, 0}));
}

TEST(ZNQRCodeHelper, ScalingKeepsTheProportionsInGreys) {
    const auto code = ZNQRCodeHelper::QrCodeImageWithContent("25 modules");
    ASSERT_EQ(code->extent().width(), 25);
    const auto image = ZNQRCodeHelper::CodeChangeScaleWithImage(code, {100, 80});
    EXPECT_EQ(image->size(), (Size{80, 80}));
    EXPECT_EQ(colorsOf(image), (std::set<std::uint32_t>{0xFF000000, 0xFFFFFFFF}));
    // 3.2 pixels a module, each pixel that of the module under its centre.
    for (std::size_t x = 0; x < 80; ++x)
        EXPECT_EQ(pixelAt(image->cgImage(), x, 10),
                  pixelAt(code->cgImage(),
                          static_cast<std::size_t>((static_cast<double>(x) + 0.5) / 3.2), 3));
    const auto bars = ZNQRCodeHelper::BarCodeImageWithContent("abc");  // 68 by 32
    EXPECT_EQ(ZNQRCodeHelper::CodeChangeScaleWithImage(bars, {100, 100})->size(), (Size{100, 47}));
    const auto red = CIImage::imageWithCGImage(imageOf(1, 1, {0xFFFF0000}));
    EXPECT_EQ(pixelAt(ZNQRCodeHelper::CodeChangeScaleWithImage(red, {2, 2})->cgImage(), 0, 0),
              "ff4c4c4c");
    EXPECT_FALSE(ZNQRCodeHelper::CodeChangeScaleWithImage(nullptr, {100, 80}));
    for (const Size none : {Size{0, 80}, Size{-100, 80}, Size{1e12, 1e12}, Size{0.1, 0.1}})
        EXPECT_FALSE(ZNQRCodeHelper::CodeChangeScaleWithImage(code, none)) << none.width;
}

TEST(ZNQRCodeHelper, RecolouringComparesRedThenGreenThenBlue) {
    const auto recolored = [](std::uint32_t pixel) {
        const auto image = UIImage::imageWithCGImage(imageOf(1, 1, {pixel}));
        return pixelAt(ZNQRCodeHelper::CodeChangeColorWithImage(
                           image, UIColor::colorWithRed(1, 0.5, 0, 0.1), UIColor::whiteColor())
                           ->cgImage(),
                       0, 0);
    };
    const std::string on = "ffff7f00", off = "ffffffff";
    EXPECT_EQ(recolored(0xFF000000), on);
    EXPECT_EQ(recolored(0xFFFFFFFF), off);
    EXPECT_EQ(recolored(0xFF989898), on);
    EXPECT_EQ(recolored(0xFF999999), off);
    EXPECT_EQ(recolored(0xFF98FFFF), on) << "red decides";
    EXPECT_EQ(recolored(0xFF9998FF), on) << "then green";
    EXPECT_EQ(recolored(0xFF999998), on) << "then blue";
    EXPECT_EQ(recolored(0xFF9A0000), off);
    EXPECT_EQ(recolored(0x00000000), on) << "clear is black";
    EXPECT_EQ(recolored(0x80808080), on) << "half white over black";
}

TEST(ZNQRCodeHelper, RecolouringWorksInPoints) {
    const auto image =
        UIImage::imageWithCGImage(imageOf(4, 2,
                                          {0xFF000000, 0xFF000000, 0xFFFFFFFF, 0xFFFFFFFF,  //
                                           0xFF000000, 0xFF000000, 0xFFFFFFFF, 0xFFFFFFFF}),
                                  2);
    const auto recolored =
        ZNQRCodeHelper::CodeChangeColorWithImage(image, UIColor::redColor(), UIColor::greenColor());
    EXPECT_EQ(recolored->size(), (Size{2, 1}));
    EXPECT_EQ(recolored->scale(), 1);
    EXPECT_EQ(pixelAt(recolored->cgImage(), 0, 0), "ffff0000");
    EXPECT_EQ(pixelAt(recolored->cgImage(), 1, 0), "ff00ff00");
    const auto turned = UIImage::imageWithCGImage(imageOf(2, 1, {0xFF000000, 0xFFFFFFFF}), 1,
                                                  UIImageOrientation::Right);
    EXPECT_EQ(pixelAt(ZNQRCodeHelper::CodeChangeColorWithImage(turned, UIColor::redColor(), nullptr)
                          ->cgImage(),
                      0, 1),
              "ff000000")
        << "an absent colour is black without its alpha";
    EXPECT_FALSE(ZNQRCodeHelper::CodeChangeColorWithImage(nullptr, nullptr, nullptr));
    const auto tiny = UIImage::imageWithCGImage(imageOf(1, 1, {0}), 3);
    EXPECT_FALSE(ZNQRCodeHelper::CodeChangeColorWithImage(tiny, nullptr, nullptr))
        << "less than a point";
}

TEST(ZNQRCodeHelper, TheReleaseCallbackFreesWhatMallocGave) {
    ProviderReleaseData(nullptr, std::calloc(1, 64), 64);
    ProviderReleaseData(nullptr, nullptr, 0);
}

TEST(ZNQRCodeHelper, TheHelperIsOne) {
    EXPECT_TRUE(ZNQRCodeHelper::SharedHelper());
    EXPECT_EQ(ZNQRCodeHelper::SharedHelper(), ZNQRCodeHelper::SharedHelper());
}

}  // namespace
}  // namespace zn
