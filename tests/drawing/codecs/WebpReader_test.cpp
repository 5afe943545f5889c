#include <gtest/gtest.h>
#include <webp/decode.h>

#include <algorithm>

#include "tests/drawing/Pixels.h"
#include "tests/drawing/codecs/ImageFiles.h"

namespace zn {
namespace {

/// By the codec's simplest function, premultiplied by the definition.
std::vector<std::uint32_t> referencePixels(const Bytes& file) {
    int width = 0, height = 0;
    std::uint8_t* straight = WebPDecodeBGRA(reinterpret_cast<const std::uint8_t*>(file.data()),
                                            file.size(), &width, &height);
    EXPECT_TRUE(straight);
    std::vector<std::uint32_t> pixels;
    for (int i = 0; straight && i < width * height; ++i) {
        const std::uint8_t* bytes = straight + 4 * i;
        std::uint32_t pixel = std::uint32_t{bytes[3]} << 24;
        for (int channel = 0; channel < 3; ++channel)
            pixel |= (bytes[channel] * bytes[3] * 2U + 255) / 510 << 8 * channel;
        pixels.push_back(pixel);
    }
    WebPFree(straight);
    return pixels;
}

Ref<CGImage> decoded(std::span<const std::byte> bytes) {
    const auto image = UIImage::imageWithData(bytes);
    return image ? image->cgImage() : nullptr;
}

/// The head of an extended file; `flags` as the format has them.
Bytes extendedHead(std::uint32_t flags, std::uint32_t width, std::uint32_t height) {
    Bytes content;
    appendNumber(content, flags, 4);
    appendNumber(content, width - 1, 3);
    appendNumber(content, height - 1, 3);
    return riffChunk("VP8X", content);
}

constexpr std::uint32_t animationFlag = 2, exifFlag = 8, alphaFlag = 16;

Bytes animatedFrame(const CGImage& image, std::uint32_t left, std::uint32_t top) {
    Bytes content;
    appendNumber(content, left / 2, 3);
    appendNumber(content, top / 2, 3);
    appendNumber(content, static_cast<std::uint32_t>(image.width() - 1), 3);
    appendNumber(content, static_cast<std::uint32_t>(image.height() - 1), 3);
    appendNumber(content, 100, 3);
    appendNumber(content, 0, 1);
    append(content, riffContent(webpFile(image, true)));
    return riffChunk("ANMF", content);
}

/// Two frames on a canvas of 8 by 6: one of 4 by 4 at (2, 2), and one of everything.
Bytes animation(const Ref<CGImage>& first) {
    return riffFile({extendedHead(animationFlag | alphaFlag, 8, 6),
                     riffChunk("ANIM", std::vector(6, std::byte{0x7F})),
                     animatedFrame(*first, 2, 2), animatedFrame(*grainyPicture(8, 6), 0, 0)});
}

TEST(WebpReader, ReadsEveryKindAsTheCodecDoes) {
    const std::pair<std::size_t, std::size_t> sizes[] = {{1, 1}, {1, 33}, {33, 1}, {61, 47}};
    for (const auto& [width, height] : sizes)
        for (const bool opaque : {true, false})
            for (const bool lossless : {true, false}) {
                const Bytes file = webpFile(*grainyPicture(width, height, opaque), lossless);
                const auto image = decoded(file);
                ASSERT_TRUE(image) << width << ' ' << opaque << lossless;
                ASSERT_EQ(image->width(), width);
                EXPECT_TRUE(std::ranges::equal(image->pixels(), referencePixels(file)))
                    << width << ' ' << opaque << lossless;
                EXPECT_EQ(image->opaque(), opaque);
            }
    const auto opaque = grainyPicture(61, 47);
    EXPECT_TRUE(std::ranges::equal(decoded(webpFile(*opaque, true))->pixels(), opaque->pixels()));
}

TEST(WebpReader, ShowsTheFirstFrameOfAnAnimationInItsPlace) {
    const auto first = grainyPicture(4, 4);
    const auto image = decoded(animation(first));
    ASSERT_TRUE(image);
    ASSERT_EQ(image->width(), 8U);
    ASSERT_EQ(image->height(), 6U);
    for (std::size_t y = 0; y < 6; ++y)
        for (std::size_t x = 0; x < 8; ++x)
            EXPECT_EQ(pixelAt(image, x, y),
                      x >= 2 && x < 6 && y >= 2 ? pixelAt(first, x - 2, y - 2) : "00000000");
    EXPECT_FALSE(image->opaque());
}

TEST(WebpReader, AnAnimationNeedsItsFirstFrameOnly) {
    const Bytes file = animation(grainyPicture(4, 4));
    const auto image = decoded(std::span(file).first(file.size() - 40));
    ASSERT_TRUE(image);
    EXPECT_TRUE(std::ranges::equal(image->pixels(), decoded(file)->pixels()));
}

TEST(WebpReader, HonoursItsOrientation) {
    const Bytes still = webpFile(*grainyPicture(8, 6), true);
    for (const bool worded : {false, true}) {
        Bytes exif;
        if (worded)
            appendText(exif, std::string_view("Exif\0\0", 6));
        append(exif, exifData(6, true));
        const auto content = riffContent(still);
        const auto image = UIImage::imageWithData(
            riffFile({extendedHead(exifFlag, 8, 6), Bytes(content.begin(), content.end()),
                      riffChunk("EXIF", exif)}));
        ASSERT_TRUE(image);
        EXPECT_EQ(image->imageOrientation(), UIImageOrientation::Right);
        EXPECT_EQ(image->size(), (Size{6, 8}));
    }
}

TEST(WebpReader, ShowsTheRowsOfATruncatedFileThatDecode) {
    for (const bool lossless : {true, false}) {
        const Bytes file = webpFile(*grainyPicture(100, 200), lossless);
        const auto whole = decoded(file);
        const auto half = decoded(std::span(file).first(file.size() / 2));
        ASSERT_TRUE(half) << lossless;
        EXPECT_EQ(half->height(), 200U);
        EXPECT_TRUE(
            std::ranges::equal(half->pixels().first(100 * 40), whole->pixels().first(100 * 40)))
            << lossless;
        EXPECT_EQ(pixelAt(half, 99, 199), "00000000");
        EXPECT_FALSE(half->opaque());
    }
}

TEST(WebpReader, ACanvasLargerThanItsPictureIsNoPicture) {
    const Bytes still = webpFile(*grainyPicture(8, 6), true);
    const auto content = riffContent(still);
    EXPECT_FALSE(decoded(riffFile({extendedHead(0, 9, 6), Bytes(content.begin(), content.end())})));
}

}  // namespace
}  // namespace zn
