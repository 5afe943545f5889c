#include "zarnic/ZNAppIconHelper.h"

#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "tests/support/TemporaryFolder.h"

namespace zn {
namespace {

struct Icon {
    int width = 0;
    int height = 0;
    /// Red, green and blue of the middle.
    std::array<int, 3> middle{};
};

Icon read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> content{std::istreambuf_iterator<char>(stream), {}};
    const auto* bytes = reinterpret_cast<const unsigned char*>(content.data());
    Icon icon;
    int subsampling = 0, colorSpace = 0;
    const tjhandle handle = tjInitDecompress();
    EXPECT_EQ(tjDecompressHeader3(handle, bytes, content.size(), &icon.width, &icon.height,
                                  &subsampling, &colorSpace),
              0)
        << file;
    std::vector<unsigned char> rgb(static_cast<std::size_t>(icon.width * icon.height * 3));
    EXPECT_EQ(tjDecompress2(handle, bytes, content.size(), rgb.data(), icon.width, 0, icon.height,
                            TJPF_RGB, 0),
              0);
    tjDestroy(handle);
    const auto middle =
        static_cast<std::size_t>((icon.height / 2 * icon.width + icon.width / 2) * 3);
    icon.middle = {rgb[middle], rgb[middle + 1], rgb[middle + 2]};
    return icon;
}

Ref<UIImage> plain(Size size, const CGColor& color) {
    const auto context = CGContext::image(size, false, 1);
    context->setFillColor(color);
    context->fillRect({{}, size});
    return UIImage::imageWithCGImage(context->makeImage());
}

class AppIcons : public testing::Test {
protected:
    AppIcons() { setenv("ZARNIC_HOME", home_.path().c_str(), 1); }

    std::map<std::string, Icon> iconsOf(const Ref<UIImage>& image) {
        ZNAppIconHelper::ZN_GeneratorAppIconViaImage(image);
        std::map<std::string, Icon> icons;
        const std::filesystem::path documents(home_.path("Documents"));
        if (std::filesystem::exists(documents))
            for (const auto& entry : std::filesystem::directory_iterator(documents))
                icons[entry.path().filename()] = read(entry.path());
        return icons;
    }

    const TemporaryFolder home_;
};

const std::map<std::string, int> edges{
    {"iPhone_20@2x.jpg", 40},  {"iPhone_20@3x.jpg", 60},  {"iPhone_29@2x.jpg", 58},
    {"iPhone_29@3x.jpg", 87},  {"iPhone_40@2x.jpg", 80},  {"iPhone_40@3x.jpg", 120},
    {"iPhone_60@2x.jpg", 120}, {"iPhone_60@3x.jpg", 180}, {"iPad_20@1x.jpg", 20},
    {"iPad_20@2x.jpg", 40},    {"iPad_29@1x.jpg", 29},    {"iPad_29@2x.jpg", 58},
    {"iPad_40@1x.jpg", 40},    {"iPad_40@2x.jpg", 80},    {"iPad_76@1x.jpg", 76},
    {"iPad_76@2x.jpg", 152},   {"iPad_83.5@2x.jpg", 167}, {"AppStore_1024@1x.jpg", 1024}};

TEST_F(AppIcons, ALargeSquareGivesEverySizeExactly) {
    const auto icons = iconsOf(plain({1200, 1200}, {0.8, 0.4, 0.2, 1}));
    EXPECT_EQ(icons.size(), edges.size());
    for (const auto& [name, edge] : edges) {
        ASSERT_TRUE(icons.contains(name)) << name;
        const Icon& icon = icons.at(name);
        EXPECT_EQ(icon.width, edge) << name;
        EXPECT_EQ(icon.height, edge) << name;
        EXPECT_NEAR(icon.middle[0], 204, 3) << name;
        EXPECT_NEAR(icon.middle[1], 102, 3) << name;
    }
}

TEST_F(AppIcons, SmallPicturesStayAndOthersKeepTheirProportions) {
    for (const auto& [name, icon] : iconsOf(plain({100, 100}, {1, 1, 1, 1})))
        EXPECT_EQ(icon.width, std::min(100, edges.at(name))) << name;
    for (const auto& [name, icon] : iconsOf(plain({400, 200}, {1, 1, 1, 1}))) {
        EXPECT_EQ(icon.height, std::min(200, edges.at(name))) << name;
        EXPECT_EQ(icon.width, 2 * icon.height) << name;
    }
}

TEST_F(AppIcons, WhatIsClearBecomesBlack) {
    for (const auto& [name, icon] : iconsOf(plain({200, 200}, {1, 1, 1, 0})))
        EXPECT_EQ(icon.middle, (std::array<int, 3>{})) << name;
}

TEST_F(AppIcons, NoPictureGivesNoFiles) {
    EXPECT_TRUE(iconsOf(nullptr).empty());
}

}  // namespace
}  // namespace zn
