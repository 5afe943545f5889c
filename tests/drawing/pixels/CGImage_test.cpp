#include "zarnic/platform/drawing/CGImage.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "tests/drawing/Pixels.h"

namespace zn {
namespace {

struct Format {
    std::uint32_t bitmapInfo;
    /// A half-transparent orange (1, 0.5, 0) in memory; an unused byte is full.
    std::array<std::uint8_t, 4> bytes;
    bool hasAlpha;
};

// The formats by name: premultiplied, straight and without alpha, last and first, both orders.
constexpr Format formats[] = {
    {0x0001, {0x80, 0x40, 0x00, 0x80}, true},  {0x4001, {0x80, 0x40, 0x00, 0x80}, true},
    {0x2001, {0x80, 0x00, 0x40, 0x80}, true},  {0x2002, {0x00, 0x40, 0x80, 0x80}, true},
    {0x4002, {0x80, 0x80, 0x40, 0x00}, true},  {0x0003, {0xFF, 0x80, 0x00, 0x80}, true},
    {0x2003, {0x80, 0x00, 0x80, 0xFF}, true},  {0x0004, {0x80, 0xFF, 0x80, 0x00}, true},
    {0x2005, {0xFF, 0x00, 0x40, 0x80}, false}, {0x0006, {0xFF, 0x80, 0x40, 0x00}, false},
};

TEST(CGContextBitmap, writesEveryFormatIntoTheCallersMemory) {
    for (const Format& format : formats) {
        std::array<std::uint8_t, 4> buffer{};
        const auto context = CGContext::bitmap(buffer.data(), 1, 1, 8, 4, CGColorSpace::DeviceRGB,
                                               format.bitmapInfo);
        ASSERT_TRUE(context) << std::hex << format.bitmapInfo;
        context->setFillColor({1, 0.5, 0, 0.5});
        context->fillRect({0, 0, 1, 1});
        context->flush();
        EXPECT_EQ(buffer, format.bytes) << std::hex << format.bitmapInfo;
    }
}

TEST(CGContextBitmap, drawsOverWhatTheMemoryHolds) {
    for (const Format& format : formats) {
        auto buffer = format.bytes;
        CGContext::bitmap(buffer.data(), 1, 1, 8, 4, CGColorSpace::DeviceRGB, format.bitmapInfo);
        EXPECT_EQ(buffer, format.bytes) << std::hex << format.bitmapInfo;
    }
}

TEST(CGContextBitmap, greyHoldsOneBytePerPixel) {
    std::array<std::uint8_t, 6> buffer{9, 9, 9, 9, 9, 9};
    {
        const auto context =
            CGContext::bitmap(buffer.data(), 2, 2, 8, 3, CGColorSpace::DeviceGray, 0);
        context->setFillColor({0.5, 0.5, 0.5, 1});
        context->fillRect({0, 0, 1, 1});
        context->setFillColor(red);
        context->fillRect({1, 1, 1, 1});
    }
    EXPECT_EQ(buffer, (std::array<std::uint8_t, 6>{9, 76, 9, 128, 9, 9}));
}

TEST(CGContextBitmap, unknownFormatsAndSizesGiveNone) {
    const auto bitmap = [](std::size_t width, std::size_t bits, std::size_t perRow,
                           CGColorSpace space, std::uint32_t info) {
        return CGContext::bitmap(nullptr, width, 4, bits, perRow, space, info) != nullptr;
    };
    EXPECT_TRUE(bitmap(4, 8, 16, CGColorSpace::DeviceRGB, 1));
    EXPECT_FALSE(bitmap(4, 8, 15, CGColorSpace::DeviceRGB, 1));
    EXPECT_FALSE(bitmap(0, 8, 0, CGColorSpace::DeviceRGB, 1));
    EXPECT_FALSE(bitmap(SIZE_MAX, 8, 0, CGColorSpace::DeviceRGB, 1));
    EXPECT_FALSE(bitmap(4, 16, 0, CGColorSpace::DeviceRGB, 1));
    EXPECT_FALSE(bitmap(4, 8, 0, CGColorSpace::DeviceRGB, 0));
    EXPECT_FALSE(bitmap(4, 8, 0, CGColorSpace::DeviceRGB, 0x1001));
    EXPECT_FALSE(bitmap(4, 8, 0, CGColorSpace::DeviceGray, 1));
}

TEST(CGImage, readsAnyFormatAndRefusesTooFewBytes) {
    for (const Format& format : formats) {
        const auto image = CGImage::imageWithBytes(std::as_bytes(std::span(format.bytes)), 1, 1, 4,
                                                   CGColorSpace::DeviceRGB, format.bitmapInfo);
        EXPECT_EQ(pixelAt(image, 0, 0), format.hasAlpha ? "80804000" : "ff804000")
            << std::hex << format.bitmapInfo;
        EXPECT_EQ(image->opaque(), !format.hasAlpha);
    }
    const std::byte bytes[11]{};
    const auto image = [&](std::size_t width, std::size_t height, std::size_t perRow) {
        return CGImage::imageWithBytes(bytes, width, height, perRow, CGColorSpace::DeviceRGB, 1);
    };
    EXPECT_TRUE(image(1, 2, 7));
    EXPECT_FALSE(image(1, 2, 8));
    EXPECT_FALSE(image(2, 1, 4));
    EXPECT_FALSE(image(0, 0, 0));
    EXPECT_FALSE(image(SIZE_MAX, SIZE_MAX, SIZE_MAX));
}

TEST(CGImage, cutsWholePixelsInsideItself) {
    const auto image = imageOf(3, 2, {1, 2, 3, 4, 5, 6});
    const auto part = image->imageInRect({1.4, 0.5, 10, 1});
    EXPECT_EQ(part->width(), 2U);
    EXPECT_EQ(part->height(), 2U);
    EXPECT_EQ(pixelAt(part, 0, 1), "00000005");
    EXPECT_FALSE(image->imageInRect({3, 0, 1, 1}));
    EXPECT_FALSE(image->imageInRect({1, 1, 0, 0}));
    EXPECT_FALSE(image->imageInRect(Rect::null()));
}

TEST(CGImage, nearestSamplingTakesThePixelUnderEachCentre) {
    for (const std::size_t modules : {2U, 3U, 21U, 25U, 177U}) {
        auto pixels = std::make_unique<std::uint32_t[]>(modules);
        for (std::size_t i = 0; i < modules; ++i)
            pixels[i] = 0xFF000000 | static_cast<std::uint32_t>(i);
        const auto image = make<CGImage>(modules, 1, std::move(pixels));
        for (const std::size_t size : {3U, 80U, 100U, 177U, 999U, 3000U}) {
            const auto context = CGContext::image({static_cast<double>(size), 1}, false, 1);
            context->setInterpolationQuality(CGInterpolationQuality::None);
            context->drawImageUpright({0, 0, static_cast<double>(size), 1}, image);
            const auto drawn = context->makeImage();
            for (std::size_t i = 0; i < size; ++i)
                ASSERT_EQ(drawn->pixels()[i] & 0xFFFFFF, (2 * i + 1) * modules / (2 * size))
                    << modules << " over " << size << " at " << i;
        }
    }
}

TEST(CGImage, interpolationBlendsUnlessItIsNone) {
    const auto image = imageOf(2, 1, {0xFF000000, 0xFFFFFFFF});
    for (const auto quality : {CGInterpolationQuality::Default, CGInterpolationQuality::Low,
                               CGInterpolationQuality::Medium, CGInterpolationQuality::High}) {
        const auto context = CGContext::image({40, 4}, false, 1);
        context->setInterpolationQuality(quality);
        context->drawImage({0, 0, 40, 4}, image);
        const std::uint32_t middle = context->makeImage()->pixels()[20] & 0xFF;
        EXPECT_GT(middle, 100U);
        EXPECT_LT(middle, 160U);
        // The border does not fade.
        EXPECT_EQ(pixelAt(context, 0, 0), "ff000000");
        EXPECT_EQ(pixelAt(context, 39, 3), "ffffffff");
    }
}

TEST(CGImage, shrinkingAveragesWhatFallsIntoAPixel) {
    auto pixels = std::make_unique<std::uint32_t[]>(64 * 64);
    for (std::size_t i = 0; i < 64 * 64; ++i)
        pixels[i] = (i % 64 + i / 64) % 8 == 0 ? 0xFFFFFFFF : 0xFF000000;
    const auto context = CGContext::image({8, 8}, false, 1);
    context->drawImage({0, 0, 8, 8}, make<CGImage>(64, 64, std::move(pixels)));
    const auto drawn = context->makeImage();
    for (const std::uint32_t pixel : drawn->pixels())
        EXPECT_NEAR(static_cast<double>(pixel & 0xFF), 32, 8);
}

TEST(CGImage, drawsPicturesLongerThanASurfaceCanBe) {
    auto pixels = std::make_unique<std::uint32_t[]>(40'000);
    std::fill_n(pixels.get(), 20'000, 0xFFFF0000);
    std::fill_n(pixels.get() + 20'000, 20'000, 0xFF0000FF);
    const auto context = CGContext::image({4, 4}, false, 1);
    context->drawImage({0, 0, 4, 4}, make<CGImage>(1, 40'000, std::move(pixels)));
    EXPECT_EQ(pixelAt(context, 2, 0), "ff0000ff");
    EXPECT_EQ(pixelAt(context, 2, 3), "ffff0000");
}

TEST(CGImage, drawsUpsideDownInADownwardContextAndUprightInAnUpwardOne) {
    const auto image = imageOf(1, 2, {0xFFFF0000, 0xFF0000FF});
    const auto downward = CGContext::image({1, 2}, false, 1);
    downward->drawImage({0, 0, 1, 2}, image);
    EXPECT_EQ(pixelAt(downward, 0, 0), "ff0000ff");
    const auto upward = CGContext::bitmap(nullptr, 1, 2, 8, 0, CGColorSpace::DeviceRGB, 1);
    upward->drawImage({0, 0, 1, 2}, image);
    EXPECT_EQ(pixelAt(upward, 0, 0), "ffff0000");
}

}  // namespace
}  // namespace zn
