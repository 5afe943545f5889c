#include "tests/drawing/codecs/ImageFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/drawing/Pixels.h"

namespace zn {
namespace {

struct Sample {
    const char* name;
    Bytes file;
};

/// 48 by 40 pixels in every format.
std::vector<Sample> samples() {
    const auto opaque = grainyPicture(48, 40), glass = grainyPicture(48, 40, false);
    const auto progressive = [](jpeg_compress_struct& codec) { jpeg_simple_progression(&codec); };
    const auto restarts = [](jpeg_compress_struct& codec) { codec.restart_interval = 2; };
    GifFrame frame{.width = 48, .height = 40};
    GifPalette palette;
    for (std::uint32_t i = 0; i < 48 * 40; ++i)
        frame.indices.push_back(static_cast<std::uint8_t>(i * 7 + i / 48));
    for (std::uint32_t i = 0; i < 256; ++i)
        palette.push_back(i * 0x010203);
    GifFrame interlaced = frame;
    interlaced.interlaced = true;
    return {{"jpeg", jpegFile(*opaque)},
            {"jpeg, progressive", jpegFile(*opaque, progressive)},
            {"jpeg, restarts", jpegFile(*opaque, restarts)},
            {"webp, lossy", webpFile(*opaque, false)},
            {"webp, lossy, alpha", webpFile(*glass, false)},
            {"webp, lossless", webpFile(*glass, true)},
            {"gif", gifFile(48, 40, palette, {frame})},
            {"gif, interlaced", gifFile(48, 40, palette, {interlaced})},
            {"png", *UIImagePNGRepresentation(UIImage::imageWithCGImage(glass))}};
}

/// From a heap block that ends with the bytes, so that a look beyond them is found out.
Ref<UIImage> decoded(std::span<const std::byte> bytes) {
    const Bytes copy(bytes.begin(), bytes.end());
    return UIImage::imageWithData(copy);
}

TEST(ImageFiles, EveryTruncationGivesTheWholeSizeOrNothing) {
    for (const auto& [name, file] : samples()) {
        std::size_t shown = 0, tried = 0;
        for (std::size_t length = 0; length < file.size(); length += 64) {
            const auto image = decoded(std::span(file).first(length));
            ++tried;
            if (image)
                ++shown;
            EXPECT_TRUE(!image || image->size() == (Size{48, 40})) << name << ' ' << length;
        }
        // Where alpha comes first, in a chunk of its own, the colours come late.
        EXPECT_GT(shown, tried / 5) << name;
        EXPECT_TRUE(decoded(file)) << name;
    }
}

/// Puts the limit back.
class PixelLimit {
public:
    ~PixelLimit() { UIImage::setLargestPixelCount(before_); }

private:
    std::uint64_t before_ = UIImage::largestPixelCount();
};

bool tellsItsOpacity(const CGImage& image) {
    return image.opaque() == std::ranges::all_of(image.pixels(), [](std::uint32_t pixel) {
               return pixel >> 24 == 0xFF;
           });
}

TEST(ImageFiles, DamagedBytesGiveATruePictureOrNothing) {
    const PixelLimit limit;
    UIImage::setLargestPixelCount(1 << 20);
    std::mt19937 random(11);
    for (const auto& [name, file] : samples())
        for (int round = 0; round < 400; ++round) {
            Bytes damaged = file;
            for (int i = 0; i < 3; ++i)
                damaged[random() % damaged.size()] = static_cast<std::byte>(random());
            const auto image = decoded(damaged);
            EXPECT_TRUE(!image || tellsItsOpacity(*image->cgImage())) << name;
        }
}

TEST(ImageFiles, NoneIsReadThatClaimsMorePixelsThanAllowed) {
    EXPECT_EQ(UIImage::largestPixelCount(), 100'000'000U);
    const PixelLimit limit;
    UIImage::setLargestPixelCount(48 * 40 - 1);
    for (const auto& [name, file] : samples())
        EXPECT_FALSE(decoded(file)) << name;
    UIImage::setLargestPixelCount(48 * 40);
    for (const auto& [name, file] : samples())
        EXPECT_TRUE(decoded(file)) << name;
}

/// Two bytes, the higher first.
void setNumber(Bytes& file, std::size_t place, std::uint32_t value) {
    file[place] = static_cast<std::byte>(value >> 8);
    file[place + 1] = static_cast<std::byte>(value);
}

TEST(ImageFiles, HugeClaimsAreRefused) {
    Bytes jpeg = jpegFile(*grainyPicture(8, 8));
    std::size_t frame = 0;
    while (jpeg[frame] != std::byte{0xFF} || jpeg[frame + 1] != std::byte{0xC0})
        ++frame;
    for (const auto& [width, height] :
         {std::pair(65535U, 65535U), {65500U, 65500U}, {10001U, 10000U}, {0U, 8U}, {8U, 0U}}) {
        setNumber(jpeg, frame + 5, height);
        setNumber(jpeg, frame + 7, width);
        EXPECT_FALSE(decoded(jpeg)) << width;
    }
    GifFrame frameOfGif{.width = 8, .height = 8};
    frameOfGif.indices.resize(64);
    Bytes gif = gifFile(8, 8, {0, 1}, {frameOfGif});
    setNumber(gif, 6, 0xFFFF);
    setNumber(gif, 8, 0xFFFF);
    EXPECT_FALSE(decoded(gif));
    Bytes head;
    appendNumber(head, 2, 4);
    appendNumber(head, 0xFFFFFF, 3);
    appendNumber(head, 0xFF, 3);
    EXPECT_FALSE(decoded(riffFile({riffChunk("VP8X", head)})));
}

/// By the definition (PNG specification, annex D).
std::uint32_t checkSum(std::span<const std::byte> bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const std::byte byte : bytes) {
        sum ^= std::to_integer<std::uint32_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

TEST(ImageFiles, ATurnedPngIsSeenTurned) {
    // The chunk before the pixels, with its check sum.
    Bytes png = *UIImagePNGRepresentation(UIImage::imageWithCGImage(grainyPicture(3, 2)));
    Bytes chunk{std::byte{0}, std::byte{0}, std::byte{0}, std::byte{38}};
    appendText(chunk, "eXIf");
    append(chunk, exifData(8, false));
    const auto sum = checkSum(std::span(chunk).subspan(4));
    for (const int shift : {24, 16, 8, 0})
        chunk.push_back(static_cast<std::byte>(sum >> shift));
    png.insert(png.begin() + 33, chunk.begin(), chunk.end());
    const auto image = UIImage::imageWithData(png);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->imageOrientation(), UIImageOrientation::Left);
    EXPECT_EQ(image->size(), (Size{2, 3}));
}

}  // namespace
}  // namespace zn
