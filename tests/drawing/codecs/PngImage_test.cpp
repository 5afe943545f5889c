#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "tests/drawing/Pixels.h"
#include "tests/support/Places.h"
#include "zarnic/platform/drawing/UIImage.h"

namespace zn {
namespace {

using Bytes = std::vector<std::byte>;

Bytes fromHex(std::string_view hex) {
    Bytes bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes.push_back(static_cast<std::byte>(
            std::strtoul(std::string(hex.substr(i, 2)).c_str(), nullptr, 16)));
    return bytes;
}

/// Noise, so that the compressed bytes are many; alpha from nothing to full.
Ref<UIImage> noise(std::size_t width, std::size_t height) {
    std::mt19937 random(7);
    auto pixels = std::make_unique<std::uint32_t[]>(width * height);
    for (std::size_t i = 0; i < width * height; ++i) {
        const std::uint32_t alpha = random() & 0xFF;
        pixels[i] = alpha << 24;
        for (const int shift : {16, 8, 0})
            pixels[i] |= static_cast<std::uint32_t>(random() % (alpha + 1)) << shift;
    }
    return UIImage::imageWithCGImage(make<CGImage>(width, height, std::move(pixels)));
}

void setHeaderSize(Bytes& png, std::uint32_t width, std::uint32_t height) {
    for (std::size_t i = 0; i < 4; ++i) {
        png[16 + i] = static_cast<std::byte>(width >> (24 - 8 * i));
        png[20 + i] = static_cast<std::byte>(height >> (24 - 8 * i));
    }
}

bool samePixels(const Ref<UIImage>& left, const Ref<UIImage>& right) {
    return std::ranges::equal(left->cgImage()->pixels(), right->cgImage()->pixels());
}

TEST(PngImage, roundTripsEveryPremultipliedPixel) {
    const auto image = noise(61, 47);
    const auto png = UIImagePNGRepresentation(image);
    const auto decoded = UIImage::imageWithData(*png, 2);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->cgImage()->width(), 61U);
    EXPECT_EQ(decoded->scale(), 2);
    EXPECT_TRUE(samePixels(decoded, image));

    const auto opaque = UIImage::imageWithCGImage(imageOf(2, 1, {0xFF123456, 0xFFABCDEF}));
    EXPECT_TRUE(samePixels(UIImage::imageWithData(*UIImagePNGRepresentation(opaque)), opaque));
    EXPECT_FALSE(UIImagePNGRepresentation(nullptr));
}

/// The corpus of the fuzzer: four by three pixels in every colour type, depth and interlacing. All
/// have a white first pixel and a black last one; the second pixel is white, at a half or clear,
/// as the file's name says.
TEST(PngImage, readsEveryColourTypeDepthAndInterlacing) {
    int count = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(sourceFolder() + "/fuzz/corpus/png")) {
        const std::string name = entry.path().filename();
        if (name.starts_with("hostile"))
            continue;
        ++count;
        const auto image = UIImage::imageWithContentsOfFile(entry.path().string());
        ASSERT_TRUE(image) << name;
        ASSERT_EQ(image->size(), (Size{4, 3})) << name;
        const char* second = name.find("half") != std::string::npos    ? "80808080"
                             : name.find("clear") != std::string::npos ? "00000000"
                                                                       : "ffffffff";
        EXPECT_EQ(pixelAt(image->cgImage(), 0, 0), "ffffffff") << name;
        EXPECT_EQ(pixelAt(image->cgImage(), 1, 0), second) << name;
        EXPECT_EQ(pixelAt(image->cgImage(), 3, 2), "ff000000") << name;
    }
    EXPECT_EQ(count, 36);
}

TEST(PngImage, showsTheRowsOfATruncatedFileThatDecode) {
    const auto image = noise(40, 40);
    Bytes png = *UIImagePNGRepresentation(image);
    png.resize(png.size() / 2);
    const auto decoded = UIImage::imageWithData(png);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->size(), (Size{40, 40}));
    EXPECT_TRUE(std::ranges::equal(decoded->cgImage()->pixels().first(40 * 15),
                                   image->cgImage()->pixels().first(40 * 15)));
    EXPECT_EQ(pixelAt(decoded->cgImage(), 39, 39), "00000000");
}

TEST(PngImage, everyTruncationGivesTheWholeSizeOrNothing) {
    const Bytes png = *UIImagePNGRepresentation(noise(9, 9));
    for (std::size_t length = 0; length < png.size(); ++length) {
        const auto decoded = UIImage::imageWithData(std::span(png).first(length));
        EXPECT_TRUE(!decoded || decoded->size() == (Size{9, 9})) << length;
    }
}

TEST(PngImage, aBrokenCheckSumOfThePixelsDoesNotHideThem) {
    const auto image = noise(9, 9);
    Bytes png = *UIImagePNGRepresentation(image);
    // The four bytes before the twelve of the end chunk.
    png[png.size() - 14] ^= std::byte{0x55};
    ASSERT_TRUE(UIImage::imageWithData(png));
    EXPECT_TRUE(samePixels(UIImage::imageWithData(png), image));
}

TEST(PngImage, refusesMoreThanAHundredMegapixelsBeforeTakingMemory) {
    Bytes png = *UIImagePNGRepresentation(noise(2, 2));
    // The last product is 4 beyond 32 bits.
    for (const auto& [width, height] :
         {std::pair(50'000U, 50'000U), std::pair(10'001U, 10'000U),
          std::pair(0x7FFFFFFFU, 0x7FFFFFFFU), std::pair(65'537U, 65'532U), std::pair(0U, 1U)}) {
        setHeaderSize(png, width, height);
        EXPECT_FALSE(UIImage::imageWithData(png)) << width << " x " << height;
    }
}

TEST(PngImage, whatIsNoPictureGivesNone) {
    EXPECT_FALSE(UIImage::imageWithData({}));
    EXPECT_FALSE(UIImage::imageWithData(fromHex("89504e470d0a1a0a")));
    EXPECT_FALSE(UIImage::imageWithData(fromHex("47494638396101000100")));
    EXPECT_FALSE(UIImage::imageWithContentsOfFile("/nonexistent/picture.png"));
    EXPECT_FALSE(UIImage::imageWithContentsOfFile("/"));
}

TEST(PngImage, damagedBytesNeverCrash) {
    const Bytes png = *UIImagePNGRepresentation(noise(16, 16));
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
        Bytes damaged = png;
        for (int i = 0; i < 3; ++i)
            damaged[8 + random() % (damaged.size() - 8)] = static_cast<std::byte>(random());
        UIImage::imageWithData(damaged);
    }
}

}  // namespace
}  // namespace zn
