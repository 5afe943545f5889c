#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "tests/drawing/Pixels.h"
#include "tests/drawing/codecs/ImageFiles.h"

namespace zn {
namespace {

const GifPalette fourColors{0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};

Ref<CGImage> decoded(std::span<const std::byte> bytes) {
    const auto image = UIImage::imageWithData(bytes);
    return image ? image->cgImage() : nullptr;
}

/// A letter a pixel: red, green, blue, white, or `.` for clear.
std::string letters(const Ref<CGImage>& image) {
    std::string result;
    for (std::size_t i = 0; image && i < image->pixels().size(); ++i) {
        const std::uint32_t pixel = image->pixels()[i];
        const auto known = std::ranges::find(fourColors, pixel & 0xFFFFFF) - fourColors.begin();
        result += pixel == 0 ? '.' : pixel >> 24 == 0xFF ? "RGBW?"[known] : '?';
        if ((i + 1) % image->width() == 0)
            result += '/';
    }
    return result;
}

/// Two by two pixels in all four colours.
GifFrame square(int left = 0, int top = 0) {
    return {.left = left, .top = top, .width = 2, .height = 2, .indices = {0, 1, 2, 3}};
}

TEST(GifReader, PlacesTheFirstFrameOnTheScreen) {
    GifFrame own = square();
    own.palette = {0xFFFFFF, 0x0000FF, 0x00FF00, 0xFF0000};
    GifFrame glass = square();
    glass.clearIndex = 1;
    const struct {
        const char* name;
        int width, height;
        std::vector<GifFrame> frames;
        const char* expected;
    } cases[] = {
        {"as large as the screen", 2, 2, {square()}, "RG/BW/"},
        {"its own palette", 2, 2, {own}, "WB/GR/"},
        {"a clear colour", 2, 2, {glass}, "R./BW/"},
        {"smaller", 4, 3, {square(1, 1)}, "..../.RG./.BW./"},
        {"partly outside", 3, 3, {square(2, 2)}, ".../.../..R/"},
        {"outside", 2, 1, {square(2, 1)}, "../"},
        {"a screen without size", 0, 0, {square(1, 0)}, ".RG/.BW/"},
        {"several frames", 2, 2, {square(), own}, "RG/BW/"},
    };
    for (const auto& [name, width, height, frames, expected] : cases)
        EXPECT_EQ(letters(decoded(gifFile(width, height, fourColors, frames))), expected) << name;
}

TEST(GifReader, AColourThatThePaletteLacksIsClear) {
    GifFrame frame = square();
    frame.palette = {0xFF0000, 0x00FF00};
    EXPECT_EQ(letters(decoded(gifFile(2, 2, fourColors, {frame}))), "RG/../");
    // The screen's flags say that a palette follows.
    Bytes none = gifFile(2, 2, fourColors, {square()});
    none[10] &= std::byte{0x7F};
    none.erase(none.begin() + 13, none.begin() + 13 + 3 * 4);
    EXPECT_EQ(letters(decoded(none)), "../../");
}

/// Every row has another colour.
GifFrame rows(int width, int height, bool interlaced) {
    GifFrame frame{.width = width, .height = height, .interlaced = interlaced};
    for (int i = 0; i < width * height; ++i)
        frame.indices.push_back(static_cast<std::uint8_t>(i / width * 3 + i % width % 3));
    return frame;
}

GifPalette greys() {
    GifPalette palette(256);
    std::iota(palette.begin(), palette.end(), 0U);
    return palette;
}

TEST(GifReader, PutsInterlacedRowsInOrder) {
    for (const int height : {1, 2, 3, 4, 5, 8, 9, 37}) {
        const auto plain = decoded(gifFile(5, height, greys(), {rows(5, height, false)}));
        const auto interlaced = decoded(gifFile(5, height, greys(), {rows(5, height, true)}));
        ASSERT_TRUE(plain && interlaced);
        EXPECT_EQ(plain->pixels()[plain->pixels().size() - 5],
                  0xFF000000 | static_cast<std::uint32_t>((height - 1) * 3));
        EXPECT_TRUE(std::ranges::equal(plain->pixels(), interlaced->pixels())) << height;
    }
}

TEST(GifReader, ShowsTheRowsOfATruncatedFileThatDecode) {
    const Bytes file = gifFile(200, 60, greys(), {rows(200, 60, false)});
    const auto whole = decoded(file);
    const auto half = decoded(std::span(file).first(13 + 768 + (file.size() - 13 - 768) / 2));
    ASSERT_TRUE(half);
    EXPECT_EQ(half->height(), 60U);
    EXPECT_TRUE(
        std::ranges::equal(half->pixels().first(200 * 10), whole->pixels().first(200 * 10)));
    EXPECT_EQ(pixelAt(half, 199, 59), "00000000");
    // The end of the pixels and the end of the file, a byte each.
    const auto endless = decoded(std::span(file).first(file.size() - 2));
    ASSERT_TRUE(endless);
    EXPECT_TRUE(std::ranges::equal(endless->pixels(), whole->pixels()));
}

TEST(GifReader, AFileWithoutAPictureIsNone) {
    const Bytes file = gifFile(2, 2, fourColors, {square()});
    const std::size_t picture = 13 + 3 * fourColors.size();
    EXPECT_FALSE(decoded(std::span(file).first(picture)));
    EXPECT_FALSE(decoded(std::span(file).first(picture + 9)));
    EXPECT_FALSE(decoded(gifFile(2, 2, fourColors, {})));
}

}  // namespace
}  // namespace zn
