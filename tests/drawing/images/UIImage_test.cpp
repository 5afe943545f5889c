#include "zarnic/platform/drawing/UIImage.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "tests/drawing/Pixels.h"

namespace zn {
namespace {

TEST(UIImage, reportsItsSizeAsSeen) {
    const auto pixels = imageOf(4, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(UIImage::imageWithCGImage(pixels, 2)->size(), (Size{2, 1}));
    EXPECT_EQ(UIImage::imageWithCGImage(pixels, 2, UIImageOrientation::Right)->size(),
              (Size{1, 2}));
    EXPECT_FALSE(UIImage::imageWithCGImage(nullptr));
}

TEST(UIImage, drawsEveryOrientation) {
    // Three by two pixels: 1 2 3 above 4 5 6.
    const auto pixels =
        imageOf(3, 2, {0xFF000001, 0xFF000002, 0xFF000003, 0xFF000004, 0xFF000005, 0xFF000006});
    const std::pair<UIImageOrientation, const char*> cases[] = {
        {UIImageOrientation::Up, "123456"},           {UIImageOrientation::Down, "654321"},
        {UIImageOrientation::Left, "362514"},         {UIImageOrientation::Right, "415263"},
        {UIImageOrientation::UpMirrored, "321654"},   {UIImageOrientation::DownMirrored, "456123"},
        {UIImageOrientation::LeftMirrored, "142536"}, {UIImageOrientation::RightMirrored, "635241"},
    };
    for (const auto& [orientation, expected] : cases) {
        const auto image = UIImage::imageWithCGImage(pixels, 1, orientation);
        UIGraphicsBeginImageContext(image->size());
        image->drawAtPoint({0, 0});
        const auto drawn = UIGraphicsGetImageFromCurrentImageContext()->cgImage();
        UIGraphicsEndImageContext();
        std::string digits;
        for (const std::uint32_t pixel : drawn->pixels())
            digits += std::to_string(pixel & 0xFF);
        EXPECT_EQ(digits, expected) << static_cast<int>(orientation);
    }
}

TEST(UIImage, drawsWithBlendModeAndAlpha) {
    const auto image = UIImage::imageWithCGImage(imageOf(1, 1, {0xFFFFFFFF}));
    UIGraphicsBeginImageContext({4, 4});
    UIColor::redColor()->setFill();
    UIRectFill({0, 0, 4, 4});
    image->drawInRect({0, 0, 2, 4}, CGBlendMode::DestinationIn, 0.5);
    const auto drawn = UIGraphicsGetImageFromCurrentImageContext()->cgImage();
    UIGraphicsEndImageContext();
    EXPECT_EQ(pixelAt(drawn, 1, 1), "80800000");
    EXPECT_EQ(pixelAt(drawn, 3, 1), "ffff0000");
}

class NamedImage : public testing::Test {
protected:
    NamedImage() {
        std::filesystem::create_directories(folder_);
        setenv("ZARNIC_BUNDLE", folder_.c_str(), 1);
    }
    ~NamedImage() override { std::filesystem::remove_all(folder_); }

    void write(const std::string& name, std::size_t width) {
        const auto image = CGContext::image({static_cast<double>(width), 1}, true, 1)->makeImage();
        const auto png = *UIImagePNGRepresentation(UIImage::imageWithCGImage(image));
        std::ofstream(folder_ / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(png.data()),
                   static_cast<std::streamsize>(png.size()));
    }

    std::filesystem::path folder_ = std::filesystem::path(testing::TempDir()) /
                                    ("named-images-" + std::to_string(getpid()) + ".app");
};

TEST_F(NamedImage, comesFromTheBundleInTheScreensScaleAndIsKept) {
    write("star.png", 10);
    write("star@2x.png", 20);
    write("dot.in.name.png", 7);
    setUIGraphicsMainScreenScale(2);
    const auto star = UIImage::imageNamed("star");
    ASSERT_TRUE(star);
    EXPECT_EQ(star->cgImage()->width(), 20U);
    EXPECT_EQ(star->size(), (Size{10, 0.5}));
    EXPECT_EQ(UIImage::imageNamed("star.png"), star);
    EXPECT_EQ(UIImage::imageNamed("dot.in.name")->size(), (Size{7, 1}));
    EXPECT_FALSE(UIImage::imageNamed("moon"));
    EXPECT_FALSE(UIImage::imageNamed(""));
}

TEST_F(NamedImage, filesSayTheirScaleInTheirNames) {
    write("a@3x.png", 6);
    EXPECT_EQ(UIImage::imageWithContentsOfFile((folder_ / "a@3x.png").string())->size().width, 2);
}

TEST(UIGraphics, imageContextsHaveTheirScaleAndNest) {
    setUIGraphicsMainScreenScale(3);
    UIGraphicsBeginImageContextWithOptions({10, 5}, false, 0);
    UIGraphicsBeginImageContext({2, 2});
    const auto inner = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    const auto outer = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    EXPECT_EQ(inner->scale(), 1);
    EXPECT_EQ(outer->scale(), 3);
    EXPECT_EQ(outer->cgImage()->width(), 30U);
    EXPECT_EQ(outer->size(), (Size{10, 5}));
    EXPECT_FALSE(UIGraphicsGetCurrentContext());
}

TEST(UIGraphics, aSizeWithoutAreaGivesNoImageAndSparesThePictureAround) {
    UIGraphicsBeginImageContext({2, 2});
    const auto around = UIGraphicsGetCurrentContext();
    UIGraphicsBeginImageContext({0, 10});
    EXPECT_FALSE(UIGraphicsGetCurrentContext());
    EXPECT_FALSE(UIGraphicsGetImageFromCurrentImageContext());
    UIRectFill({0, 0, 2, 2});
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), around);
    EXPECT_EQ(pixelAt(around, 0, 0), "00000000");
    UIGraphicsEndImageContext();
    EXPECT_FALSE(UIGraphicsGetImageFromCurrentImageContext());
}

TEST(UIGraphics, everyThreadHasItsOwnContexts) {
    UIGraphicsBeginImageContext({2, 2});
    std::thread([] {
        EXPECT_FALSE(UIGraphicsGetCurrentContext());
        UIGraphicsBeginImageContext({3, 3});
    }).join();
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->size(), (Size{2, 2}));
    UIGraphicsEndImageContext();
}

}  // namespace
}  // namespace zn
