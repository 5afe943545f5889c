#include "zarnic/UIImage+ZNCategory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/drawing/Pixels.h"
#include "tests/support/TemporaryFolder.h"
#include "zarnic/UIColor+ZNCategory.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {
namespace {

/// Every pixel another colour: its column in red, its row in green.
Ref<UIImage> numbered(std::size_t width, std::size_t height, double scale = 1) {
    auto pixels = std::make_unique<std::uint32_t[]>(width * height);
    for (std::uint32_t y = 0; y < height; ++y)
        for (std::uint32_t x = 0; x < width; ++x)
            pixels[y * width + x] = 0xFF000000 | (x & 0xFF) << 16 | (y & 0xFF) << 8;
    return UIImage::imageWithCGImage(make<CGImage>(width, height, std::move(pixels)), scale);
}

Ref<UIImage> plain(std::size_t width, std::size_t height, std::uint32_t pixel) {
    auto pixels = std::make_unique<std::uint32_t[]>(width * height);
    std::fill_n(pixels.get(), width * height, pixel);
    return UIImage::imageWithCGImage(make<CGImage>(width, height, std::move(pixels)));
}

std::size_t pixelWidth(const Ref<UIImage>& image) {
    return image ? image->cgImage()->width() : 0;
}

std::size_t pixelHeight(const Ref<UIImage>& image) {
    return image ? image->cgImage()->height() : 0;
}

std::string pixel(const Ref<UIImage>& image, std::size_t x, std::size_t y) {
    return image ? pixelAt(image->cgImage(), x, y) : "no image";
}

/// Whether exactly this rectangle is painted and all around it is clear.
void expectPainted(const Ref<UIImage>& image, std::size_t left, std::size_t top, std::size_t right,
                   std::size_t bottom) {
    ASSERT_TRUE(image);
    for (std::size_t y = 0; y < pixelHeight(image); ++y)
        for (std::size_t x = 0; x < pixelWidth(image); ++x) {
            const bool inside = x >= left && x < right && y >= top && y < bottom;
            ASSERT_EQ(pixel(image, x, y), inside ? "ffffffff" : "00000000") << x << ' ' << y;
        }
}

TEST(UIImageZNCategory, ImagesOfAColour) {
    const auto image = ZN_ImageWithColor(UIColor::colorWithRed(1, 0, 0, 0.5), {3, 2});
    EXPECT_EQ(image->size(), (Size{3, 2}));
    EXPECT_EQ(pixel(image, 2, 1), "80800000");
    EXPECT_EQ(pixel(ZN_ImageWithColor(nullptr, {1, 1}), 0, 0), "00000000");
    EXPECT_EQ(pixelWidth(ZN_ImageWithColor(UIColor::redColor(), {0.5, 2.25})), 1U);
    EXPECT_EQ(pixelHeight(ZN_ImageWithColor(UIColor::redColor(), {0.5, 2.25})), 3U);
    for (const Size none : {Size{0, 5}, Size{5, 0}, Size{-1, 5}, Size{5, std::nan("")}})
        EXPECT_FALSE(ZN_ImageWithColor(UIColor::redColor(), none));
    EXPECT_FALSE(UIGraphicsGetCurrentContext()) << "every context is closed again";
}

TEST(UIImageZNCategory, TintsAreSilhouettesWhateverTheModeButOne) {
    setUIGraphicsMainScreenScale(1);
    const auto image =
        UIImage::imageWithCGImage(imageOf(4, 1, {0xFFFFFFFF, 0xFF102030, 0x80402010, 0x00000000}));
    const auto tint = UIColor::colorWithRed(1, 0, 0, 0.5);
    for (const CGBlendMode mode : {CGBlendMode::Normal, CGBlendMode::Multiply,
                                   CGBlendMode::DestinationOut, CGBlendMode::Clear}) {
        const auto tinted = zn_ImageWithTintColor(image, tint, mode);
        EXPECT_EQ(pixel(tinted, 0, 0), "80800000");
        EXPECT_EQ(pixel(tinted, 1, 0), "80800000");
        EXPECT_EQ(pixel(tinted, 2, 0), "40400000");
        EXPECT_EQ(pixel(tinted, 3, 0), "00000000");
    }
    const auto rectangle = zn_ImageWithTintColor(image, tint, CGBlendMode::DestinationIn);
    EXPECT_EQ(pixel(rectangle, 0, 0), "80800000");
    EXPECT_EQ(pixel(rectangle, 3, 0), "80800000") << "on purpose";
    EXPECT_EQ(pixel(zn_ImageWithTintColor(image, nullptr, CGBlendMode::Normal), 0, 0), "ff000000");
    EXPECT_FALSE(zn_ImageWithTintColor(nullptr, tint, CGBlendMode::Normal));
}

TEST(UIImageZNCategory, TintsHaveTheScreensScaleWhateverTheImages) {
    setUIGraphicsMainScreenScale(2);
    for (const double scale : {1.0, 2.0, 3.0}) {
        const auto side = static_cast<std::size_t>(6 * scale);
        const auto tinted = zn_ImageWithTintColor(numbered(side, side, scale),
                                                  UIColor::greenColor(), CGBlendMode::Normal);
        EXPECT_EQ(tinted->scale(), 2);
        EXPECT_EQ(tinted->size(), (Size{6, 6}));
        EXPECT_EQ(pixel(tinted, 0, 0), "ff00ff00");
        EXPECT_EQ(pixel(tinted, 11, 11), "ff00ff00");
    }
}

TEST(UIImageZNCategory, TintedImagesTurnWithTheirPixels) {
    setUIGraphicsMainScreenScale(1);
    const auto sideways =
        UIImage::imageWithCGImage(imageOf(2, 1, {0xFFFFFFFF, 0}), 1, UIImageOrientation::Right);
    const auto tinted = zn_ImageWithTintColor(sideways, UIColor::redColor(), CGBlendMode::Normal);
    EXPECT_EQ(tinted->size(), (Size{1, 2}));
    EXPECT_EQ(pixel(tinted, 0, 0), "ffff0000");
    EXPECT_EQ(pixel(tinted, 0, 1), "00000000");
}

TEST(UIImageZNCategory, NamedImagesAreTinted) {
    const TemporaryFolder bundle;
    const auto png = *UIImagePNGRepresentation(numbered(2, 2));
    bundle.write("mark.png", {reinterpret_cast<const char*>(png.data()), png.size()});
    setenv("ZARNIC_BUNDLE", bundle.path().c_str(), 1);
    EXPECT_EQ(pixel(ZN_ImageNamed("mark", UIColor::blueColor()), 1, 1), "ff0000ff");
    EXPECT_FALSE(ZN_ImageNamed("nothing", UIColor::blueColor()));
}

TEST(UIImageZNCategory, PixelColoursComeOnPurposeFromTheRowAboveWithTheAlphaAskedFor) {
    const auto image = numbered(5, 4);
    const auto at = [&](double x, double y) {
        const auto color = zn_ColorAtPixelPoint(image, {x, y}, 0.25);
        EXPECT_EQ(zn_GetAlpha(color), 0.25);
        return color->cgColor();
    };
    EXPECT_EQ(at(3, 0), (CGColor{0, 0, 0, 0.25})) << "no row is above the first";
    EXPECT_EQ(at(3.9, 1.9), (CGColor{3 / 255.0, 0, 0, 0.25}));
    EXPECT_EQ(at(2, 3), (CGColor{2 / 255.0, 2 / 255.0, 0, 0.25}));
    const auto half = plain(1, 2, 0x80800000);
    EXPECT_EQ(zn_ColorAtPixelPoint(half, {0, 1}, 1)->cgColor(), (CGColor{128 / 255.0, 0, 0, 1}));
    for (const Point outside : {Point{5, 4}, Point{5, 0}, Point{0, 4}, Point{-0.1, 0}})
        EXPECT_FALSE(zn_ColorAtPixelPoint(image, outside, 1));
    EXPECT_FALSE(zn_ColorAtPixelPoint(nullptr, {0, 0}, 1));
}

TEST(UIImageZNCategory, PixelColoursArePickedInPoints) {
    const auto image =
        UIImage::imageWithCGImage(imageOf(4, 4,
                                          {0xFFFF0000, 0xFFFF0000, 0xFF00FF00, 0xFF00FF00,  //
                                           0xFFFF0000, 0xFFFF0000, 0xFF00FF00, 0xFF00FF00,  //
                                           0xFF0000FF, 0xFF0000FF, 0xFFFFFFFF, 0xFFFFFFFF,  //
                                           0xFF0000FF, 0xFF0000FF, 0xFFFFFFFF, 0xFFFFFFFF}),
                                  2);
    EXPECT_EQ(zn_ColorAtPixelPoint(image, {0, 1}, 1)->cgColor(), (CGColor{1, 0, 0, 1}));
    EXPECT_EQ(zn_ColorAtPixelPoint(image, {1, 1}, 1)->cgColor(), (CGColor{0, 1, 0, 1}));
    EXPECT_FALSE(zn_ColorAtPixelPoint(image, {2, 1}, 1));
}

TEST(UIImageZNCategory, ScalingFitsIntoTheTargetInWholePoints) {
    const auto white = [](std::size_t width, std::size_t height) {
        return plain(width, height, 0xFFFFFFFF);
    };
    expectPainted(zn_imageByScalingToSize(white(100, 50), {50, 50}), 0, 12, 50, 37);
    expectPainted(zn_imageByScalingToSize(white(50, 100), {50, 50}), 12, 0, 37, 50);
    expectPainted(zn_imageByScalingToSize(white(10, 10), {20, 20}), 0, 0, 20, 20);
    expectPainted(zn_imageByScalingToSize(white(7, 9), {7, 9}), 0, 0, 7, 9);
    // 25 * (58 / 25) is a hair below 58 and cut to 57.
    expectPainted(zn_imageByScalingToSize(white(25, 25), {58, 58}), 0, 0, 57, 57);
    expectPainted(zn_imageByScalingToSize(white(519, 519), {9, 16}), 0, 3, 8, 11);
    expectPainted(zn_imageByScalingToSize(white(1000, 1), {9, 9}), 0, 0, 0, 0);
}

TEST(UIImageZNCategory, ScalingThatGivesNothingSaysSo) {
    std::vector<std::string> lines;
    setLogSink([&](std::string_view line) { lines.emplace_back(line); });
    EXPECT_FALSE(zn_imageByScalingToSize(numbered(4, 4), {0, 9}));
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back(), "could not scale image");
    lines.clear();
    EXPECT_FALSE(zn_imageByScalingToSize(nullptr, {0, 9}));
    EXPECT_TRUE(lines.empty());
    setLogSink({});
}

TEST(UIImageZNCategory, FactorsAreOfThePointSize) {
    EXPECT_EQ(zn_imageToScale(numbered(10, 4), 0.5F)->size(), (Size{5, 2}));
    EXPECT_EQ(zn_imageToScale(numbered(10, 4, 2), 2)->size(), (Size{10, 4}));
    EXPECT_EQ(zn_imageToScale(numbered(10, 4), 0.33F)->size(), (Size{4, 2})) << "3.3 by 1.32";
    EXPECT_FALSE(zn_imageToScale(numbered(10, 4), 0));
    EXPECT_FALSE(zn_imageToScale(nullptr, 1));
}

TEST(UIImageZNCategory, LimitsBindTheShorterSideOnPurpose) {
    struct Case {
        Size image, limit, result;
    };
    const Case cases[] = {
        {{200, 100}, {100, 100}, {200, 100}},
        {{100, 300}, {100, 100}, {100, 300}},
        {{300, 400}, {100, 100}, {100, 134}},
        {{400, 300}, {100, 100}, {134, 100}},
        {{1024, 1024}, {167, 167}, {167, 167}},
        {{100, 100}, {1024, 1024}, {100, 100}},
        {{1, 1}, {1, 1}, {1, 1}},
        {{51, 33}, {7, 11}, {17, 11}},
        {{300, 2}, {1, 1}, {150, 1}},
    };
    for (const auto& [image, limit, result] : cases) {
        const auto source =
            numbered(static_cast<std::size_t>(image.width), static_cast<std::size_t>(image.height));
        EXPECT_EQ(zn_imageAutoSize(source, limit)->size(), result)
            << image.width << 'x' << image.height;
    }
    EXPECT_EQ(zn_imageAutoSize(numbered(60, 60, 3), {10, 10})->size(), (Size{10, 10}));
    EXPECT_FALSE(zn_imageAutoSize(numbered(5, 5), {0, 0}));
    EXPECT_FALSE(zn_imageAutoSize(nullptr, {5, 5}));
}

TEST(UIImageZNCategory, AnUnchangedSizeKeepsThePixels) {
    const auto image = numbered(255, 129);
    for (const auto& same : {zn_imageAutoSize(image, {300, 300}), zn_imageToScale(image, 1),
                             zn_imageByScalingToSize(image, {255, 129})})
        EXPECT_TRUE(std::ranges::equal(same->cgImage()->pixels(), image->cgImage()->pixels()));
}

TEST(UIImageZNCategory, DarknessCountsTheBandsAndClearPixelsAsBlackOnPurpose) {
    const std::uint32_t white = 0xFFFFFFFF, lightGray = 0xFFC8C8C8, black = 0xFF000000;
    EXPECT_TRUE(zn_isBlackColor(plain(90, 90, black)));
    EXPECT_FALSE(zn_isBlackColor(plain(90, 90, white)));
    EXPECT_FALSE(zn_isBlackColor(plain(90, 160, lightGray)));
    EXPECT_TRUE(zn_isBlackColor(plain(200, 100, white))) << "the mean is 63.75";
    EXPECT_TRUE(zn_isBlackColor(plain(160, 90, lightGray))) << "the mean is 62.5";
    EXPECT_TRUE(zn_isBlackColor(plain(100, 10, white))) << "nothing is left of ten to one";
    EXPECT_TRUE(zn_isBlackColor(plain(90, 160, 0)));
    // Green looks brighter than blue: 0.766 and 0.338 of white.
    EXPECT_FALSE(zn_isBlackColor(plain(90, 160, 0xFF00FF00)));
    EXPECT_FALSE(zn_isBlackColor(plain(90, 160, 0xFF0000C8))) << "200 * 0.3376 is 67.5";
    EXPECT_TRUE(zn_isBlackColor(plain(90, 160, 0xFF0000C0))) << "192 * 0.3376 is 64.8";
    EXPECT_TRUE(zn_isBlackColor(plain(90, 160, 0xFF404040)));
    EXPECT_FALSE(zn_isBlackColor(plain(90, 160, 0xFF414141))) << "65 is not below 65";
    EXPECT_FALSE(zn_isBlackColor(nullptr));
}

TEST(UIImageZNCategory, HugeAndOddImages) {
    const auto strip = numbered(40000, 3);
    EXPECT_EQ(pixelWidth(zn_imageToScale(strip, 0.125F)), 5000U) << "longer than a surface may be";
    EXPECT_FALSE(zn_imageToScale(numbered(4, 4), 1e9F));
    EXPECT_EQ(zn_imageAutoSize(numbered(3001, 2999), {29, 29})->size(), (Size{30, 29}));
    const auto empty = make<UIImage>(nullptr, 1, UIImageOrientation::Up);
    EXPECT_FALSE(zn_imageToScale(empty, 1));
    EXPECT_FALSE(zn_imageAutoSize(empty, {5, 5}));
    EXPECT_FALSE(zn_ColorAtPixelPoint(empty, {0, 0}, 1));
    EXPECT_FALSE(zn_ImageWithTintColor(empty, UIColor::redColor(), CGBlendMode::Normal));
    EXPECT_EQ(pixel(zn_imageByScalingToSize(empty, {2, 2}), 1, 1), "00000000");
    EXPECT_TRUE(zn_isBlackColor(empty));
}

}  // namespace
}  // namespace zn
