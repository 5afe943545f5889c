#include "zarnic/UIFont+ZNCategory.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <random>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/platform/uikit/UILabel.h"

namespace zn {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* sans = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr const char* collection = "/usr/share/fonts/opentype/noto/NotoSansCJK-Bold.ttc";

std::string contentsOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(UIFontCategory, eachFamilyIsALineFollowedByItsFonts) {
    const auto lines = ZN_GetAllFontNames();
    std::vector<std::string> oneByOne;
    for (const std::string& family : UIFont::familyNames()) {
        oneByOne.push_back("Family name: " + family);
        for (const std::string& font : UIFont::fontNamesForFamilyName(family))
            oneByOne.push_back("  Font name: " + font);
    }
    EXPECT_EQ(lines, oneByOne);
    const auto family = std::ranges::find(lines, "Family name: DejaVu Sans Mono");
    ASSERT_NE(family, lines.end());
    EXPECT_THAT(
        std::vector(family, family + 5),
        ElementsAre("Family name: DejaVu Sans Mono", "  Font name: DejaVuSansMono",
                    "  Font name: DejaVuSansMono-Bold", "  Font name: DejaVuSansMono-BoldOblique",
                    "  Font name: DejaVuSansMono-Oblique"));
    for (const std::string& line : lines)
        EXPECT_TRUE(line.starts_with("Family name: ") || line.starts_with("  Font name: ")) << line;
}

TEST(UIFontCategory, aFileGivesTheSameNamesEachTime) {
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(ZN_GetCustomFontNameWithPath(sans), "DejaVuSans");
        EXPECT_THAT(ZN_GetCustomFontNameArrayWithPath(sans), ElementsAre("DejaVuSans"));
        EXPECT_EQ(ZN_GetCustomFontNameWithPath(collection), "NotoSansCJKjp-Bold");
        const auto names = ZN_GetCustomFontNameArrayWithPath(collection);
        EXPECT_GE(names.size(), 5u);
        EXPECT_EQ(names.front(), "NotoSansCJKjp-Bold");
        EXPECT_THAT(names, Contains("NotoSansCJKsc-Bold"));
    }
}

/// A font under a name that no installed one has.
TEST(UIFontCategory, aRegisteredFontIsUsableInLabelsAtOnce) {
    TemporaryFolder folder;
    std::string bytes = contentsOf(sans);
    const auto rename = [&](std::string from, std::string to) {
        for (auto at = bytes.find(from); at != bytes.npos; at = bytes.find(from, at + to.size()))
            bytes.replace(at, to.size(), to);
    };
    rename("DejaVuSans", "ZarnicSans");
    rename("DejaVu Sans", "Zarnic Sans");
    const std::string wide("\0D\0e\0j\0a\0V\0u", 12);
    rename(wide, std::string("\0Z\0a\0r\0n\0i\0c", 12));
    const auto path = folder.write("Zarnic.ttf", bytes);
    EXPECT_EQ(UIFont::fontWithName("ZarnicSans", 20), nullptr);
    const auto name = ZN_GetCustomFontNameWithPath(path);
    ASSERT_EQ(name, "ZarnicSans");
    const auto font = UIFont::fontWithName(*name, 20);
    ASSERT_TRUE(font);
    EXPECT_EQ(font->fontName(), "ZarnicSans");
    const auto label = make<UILabel>();
    label->setText("Wide");
    label->setFont(font);
    const Size size = label->sizeThatFits({1000, 1000});
    label->setFont(UIFont::fontWithName("DejaVuSans", 20));
    EXPECT_EQ(label->sizeThatFits({1000, 1000}), size) << "the same shapes under another name";
}

TEST(UIFontCategory, whatIsNoFontHasNoNames) {
    TemporaryFolder folder;
    for (const std::string& path :
         {std::string(), std::string("/nonexistent.ttf"), std::string("/etc/passwd"),
          std::string("/usr/share/fonts"), folder.write("empty.ttf", ""),
          folder.write("short.ttf", contentsOf(sans).substr(0, 100))}) {
        EXPECT_EQ(ZN_GetCustomFontNameWithPath(path), std::nullopt) << path;
        EXPECT_THAT(ZN_GetCustomFontNameArrayWithPath(path), IsEmpty()) << path;
    }
}

/// A file from anywhere may be damaged in any way: it gives names or none, and the text that is
/// measured with it comes to an end.
TEST(UIFontCategory, damagedFilesDoNoHarm) {
    TemporaryFolder folder;
    const std::string sound = contentsOf(sans);
    std::mt19937 random(7);
    for (int attempt = 0; attempt < 60; ++attempt) {
        std::string bytes = sound;
        // The tables' directory and the names are at the beginning: that is where it hurts.
        for (int change = 0; change < 40; ++change) {
            const std::size_t reach = change % 2 == 0 ? 600 : bytes.size();
            bytes[random() % reach] = static_cast<char>(random());
        }
        if (attempt % 4 == 0)
            bytes.resize(random() % bytes.size());
        const auto path = folder.write("font" + std::to_string(attempt) + ".ttf", bytes);
        const auto names = ZN_GetCustomFontNameArrayWithPath(path);
        const auto name = ZN_GetCustomFontNameWithPath(path);
        EXPECT_TRUE(!names.empty() || !name);
        const auto font = name ? UIFont::fontWithName(*name, 15) : nullptr;
        EXPECT_GE(sizeWithFont("Text", font).width, 0);
    }
}

}  // namespace
}  // namespace zn
