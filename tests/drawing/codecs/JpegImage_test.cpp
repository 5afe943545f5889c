#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <thread>

#include "tests/drawing/Pixels.h"
#include "zarnic/platform/drawing/UIImage.h"

namespace zn {
namespace {

using Bytes = std::vector<std::byte>;

struct Decoded {
    int width = 0;
    int height = 0;
    int subsampling = -1;
    std::vector<unsigned char> rgb;
};

/// By the reference decoder.
Decoded decode(const Bytes& jpeg) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(jpeg.data());
    Decoded result;
    int colorSpace = 0;
    const tjhandle handle = tjInitDecompress();
    EXPECT_EQ(tjDecompressHeader3(handle, bytes, jpeg.size(), &result.width, &result.height,
                                  &result.subsampling, &colorSpace),
              0);
    result.rgb.resize(static_cast<std::size_t>(result.width * result.height * 3));
    EXPECT_EQ(tjDecompress2(handle, bytes, jpeg.size(), result.rgb.data(), result.width, 0,
                            result.height, TJPF_RGB, TJFLAG_ACCURATEDCT),
              0);
    tjDestroy(handle);
    return result;
}

Ref<UIImage> smooth(std::size_t width, std::size_t height) {
    auto pixels = std::make_unique<std::uint32_t[]>(width * height);
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x)
            pixels[y * width + x] = static_cast<std::uint32_t>(
                0xFF000000 | (x * 255 / width) << 16 | (y * 255 / height) << 8 | 0x40);
    return UIImage::imageWithCGImage(make<CGImage>(width, height, std::move(pixels)));
}

double meanError(const Ref<UIImage>& image, const Decoded& decoded) {
    double sum = 0;
    const auto pixels = image->cgImage()->pixels();
    for (std::size_t i = 0; i < pixels.size(); ++i)
        for (std::size_t channel = 0; channel < 3; ++channel)
            sum += std::abs(static_cast<int>(pixels[i] >> (16 - 8 * channel) & 0xFF) -
                            decoded.rgb[i * 3 + channel]);
    return sum / static_cast<double>(decoded.rgb.size());
}

TEST(JpegImage, OddSizesSurviveWithLittleLoss) {
    const std::pair<std::size_t, std::size_t> sizes[] = {{1, 1}, {7, 3}, {64, 64}, {203, 97}};
    for (const auto& [width, height] : sizes) {
        const auto image = smooth(width, height);
        const auto jpeg = UIImageJPEGRepresentation(image, 0.95);
        ASSERT_TRUE(jpeg);
        const auto decoded = decode(*jpeg);
        ASSERT_EQ(decoded.width, static_cast<int>(width));
        ASSERT_EQ(decoded.height, static_cast<int>(height));
        EXPECT_LT(meanError(image, decoded), 2.5) << width << 'x' << height;
    }
}

TEST(JpegImage, QualityTradesBytesForLoss) {
    const auto image = smooth(200, 200);
    std::size_t last = 0;
    for (const double quality : {0.0, 0.3, 0.6, 0.9, 1.0}) {
        const auto jpeg = *UIImageJPEGRepresentation(image, quality);
        EXPECT_GT(jpeg.size(), last) << quality;
        last = jpeg.size();
    }
    EXPECT_EQ(decode(*UIImageJPEGRepresentation(image, 0.9F)).subsampling, TJSAMP_444);
    EXPECT_EQ(decode(*UIImageJPEGRepresentation(image, 0.8)).subsampling, TJSAMP_420);
    EXPECT_EQ(UIImageJPEGRepresentation(image, -3), UIImageJPEGRepresentation(image, 0));
    EXPECT_EQ(UIImageJPEGRepresentation(image, std::nan("")), UIImageJPEGRepresentation(image, 0));
    EXPECT_EQ(UIImageJPEGRepresentation(image, std::numeric_limits<double>::infinity()),
              UIImageJPEGRepresentation(image, 1));
}

TEST(JpegImage, AlphaIsDroppedSoThatClearIsBlack) {
    const auto image = UIImage::imageWithCGImage(imageOf(2, 1, {0x00000000, 0x80800000}));
    const auto decoded = decode(*UIImageJPEGRepresentation(image, 1));
    EXPECT_LT(decoded.rgb[0], 4);
    EXPECT_NEAR(decoded.rgb[3], 128, 4);
}

TEST(JpegImage, OrientationGoesIntoExif) {
    const auto image = [](UIImageOrientation orientation) {
        return UIImage::imageWithCGImage(smooth(9, 5)->cgImage(), 1, orientation);
    };
    const auto upright = *UIImageJPEGRepresentation(image(UIImageOrientation::Up), 0.9);
    const std::pair<UIImageOrientation, int> cases[] = {
        {UIImageOrientation::Down, 3},          {UIImageOrientation::Left, 8},
        {UIImageOrientation::Right, 6},         {UIImageOrientation::UpMirrored, 2},
        {UIImageOrientation::DownMirrored, 4},  {UIImageOrientation::LeftMirrored, 5},
        {UIImageOrientation::RightMirrored, 7},
    };
    for (const auto& [orientation, number] : cases) {
        const auto jpeg = *UIImageJPEGRepresentation(image(orientation), 0.9);
        ASSERT_EQ(jpeg.size(), upright.size() + 36);
        EXPECT_EQ(jpeg[3], std::byte{0xE1});
        EXPECT_EQ(jpeg[31], static_cast<std::byte>(number));
        EXPECT_EQ(decode(jpeg).width, 9);
    }
}

TEST(JpegImage, WhatCannotBeWrittenIsAbsent) {
    EXPECT_FALSE(UIImageJPEGRepresentation(nullptr, 0.9));
    EXPECT_FALSE(UIImageJPEGRepresentation(make<UIImage>(nullptr, 1, UIImageOrientation::Up), 0.9));
    EXPECT_FALSE(UIImageJPEGRepresentation(smooth(65501, 1), 0.9));
    EXPECT_TRUE(UIImageJPEGRepresentation(smooth(65500, 1), 0.9));
}

TEST(JpegImage, KnowsItsLengthWithoutKeepingTheBytes) {
    const std::pair<std::size_t, std::size_t> sizes[] = {{1, 1}, {61, 47}, {300, 200}};
    for (const auto& [width, height] : sizes)
        for (const auto orientation : {UIImageOrientation::Up, UIImageOrientation::Left}) {
            const auto image =
                UIImage::imageWithCGImage(smooth(width, height)->cgImage(), 2, orientation);
            const std::size_t length = UIImageJPEGRepresentation(image, 1)->size();
            EXPECT_EQ(image->jpegByteCount(), static_cast<std::int64_t>(length)) << width;
            EXPECT_EQ(image->jpegByteCount(), static_cast<std::int64_t>(length)) << width;
        }
    EXPECT_EQ(smooth(65501, 1)->jpegByteCount(), 0);
    EXPECT_EQ(make<UIImage>(nullptr, 1, UIImageOrientation::Up)->jpegByteCount(), 0);
}

TEST(JpegImage, TellsThreadsThatAskAtOnceTheSameLength) {
    const auto image = smooth(400, 300);
    std::array<std::int64_t, 8> lengths{};
    {
        std::vector<std::jthread> threads;
        for (std::int64_t& length : lengths)
            threads.emplace_back([&] { length = image->jpegByteCount(); });
    }
    const auto expected = static_cast<std::int64_t>(UIImageJPEGRepresentation(image, 1)->size());
    EXPECT_EQ(std::ranges::count(lengths, expected), 8);
}

}  // namespace
}  // namespace zn
