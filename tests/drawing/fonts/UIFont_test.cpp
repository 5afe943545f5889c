#include "zarnic/platform/drawing/UIFont.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <limits>
#include <string>

#include "zarnic/platform/drawing/TextLayout.h"
#include "zarnic/platform/foundation/NSException.h"

using namespace zn;
using testing::Contains;
using testing::ElementsAre;

namespace {

constexpr const char* cjkCollection = "/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc";

/// Tells fontconfig that this folder has all the fonts there are.
std::filesystem::path useOnlyFontsIn(const std::filesystem::path& fonts) {
    const auto folder =
        std::filesystem::path(testing::TempDir()) / ("zarnic-fonts-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "fonts.conf")
        << "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig><dir>"
        << fonts.string() << "</dir><cachedir>" << (folder / "cache").string()
        << "</cachedir></fontconfig>";
    setenv("FONTCONFIG_FILE", (folder / "fonts.conf").c_str(), 1);
    return folder;
}

[[noreturn]] void endWith(std::initializer_list<bool> expectations) {
    for (const bool met : expectations)
        std::fprintf(stderr, "%s ", met ? "met" : "NOT MET");
    std::_Exit(std::ranges::find(expectations, false) == expectations.end() ? 0 : 1);
}

void registerHanFont() {
    const auto folder = useOnlyFontsIn("/usr/share/fonts/truetype/dejavu");
    const bool fallsBack = UIFont::systemFontOfSize(15)->familyName() == "DejaVu Sans";
    const bool unknown = UIFont::fontWithName("NotoSansCJKsc-Regular", 15) == nullptr;
    const double before = sizeWithFont("中文", nullptr).width;
    const bool registered = UIFont::registerFontFile(cjkCollection);
    const bool again = UIFont::registerFontFile(cjkCollection);
    const bool known = UIFont::fontWithName("NotoSansCJKsc-Regular", 15) != nullptr;
    // What was measured before the font came is measured anew.
    const bool measuredAnew = before != 24 && sizeWithFont("中文", nullptr).width == 24;
    const bool refused =
        !UIFont::registerFontFile("/etc/passwd") && !UIFont::registerFontFile("/nonexistent.ttf");
    std::filesystem::remove_all(folder);
    endWith({fallsBack, unknown, registered, again, known, measuredAnew, refused});
}

/// Ends the process with 0 when everything that needs fonts says so.
void measureWithoutFonts() {
    const auto folder = useOnlyFontsIn("/nonexistent");
    const bool message =
        missingFontsMessage().value_or("").find("fonts-inter") != std::string::npos;
    bool metrics = false;
    bool measuring = false;
    try {
        UIFont::systemFontOfSize(15)->lineHeight();
    } catch (const NSException& exception) {
        metrics = exception.reason() == missingFontsMessage();
    }
    try {
        boundingRectWithSize("text", {100, 100}, 1, nullptr);
    } catch (const NSException& exception) {
        measuring = exception.name() == NSInternalInconsistencyException;
    }
    const bool lists =
        UIFont::fontWithName("Inter", 15) == nullptr && UIFont::familyNames().empty();
    std::filesystem::remove_all(folder);
    endWith({message, metrics, measuring, lists});
}

}  // namespace

TEST(UIFont, SystemFontMeasuresNearThePlatforms) {
    const auto font = UIFont::systemFontOfSize(15);
    EXPECT_EQ(font->familyName(), "Inter");
    EXPECT_EQ(font->fontName(), "Inter-Regular");
    EXPECT_NEAR(font->lineHeight(), 17.9, 0.5);
    EXPECT_NEAR(UIFont::systemFontOfSize(17)->lineHeight(), 20.3, 0.5);
    EXPECT_DOUBLE_EQ(font->lineHeight(), font->ascender() - font->descender());
    EXPECT_LT(font->descender(), 0);
    EXPECT_GT(font->capHeight(), font->xHeight());
    EXPECT_GT(font->ascender(), font->capHeight());
    EXPECT_FALSE(missingFontsMessage());
}

TEST(UIFont, EqualDescriptionsAreOneObject) {
    const auto font = UIFont::systemFontOfSize(15);
    EXPECT_EQ(font, UIFont::systemFontOfSize(15));
    EXPECT_EQ(font, UIFont::systemFontOfSize(22)->fontWithSize(15));
    EXPECT_EQ(font, UIFont::fontWithName("Inter-Regular", 15));
    const auto other = make<UIFont>(font->fontDescription());
    EXPECT_TRUE(font->isEqual(*other));
    EXPECT_EQ(font->hash(), other->hash());
    EXPECT_FALSE(font->isEqual(*UIFont::boldSystemFontOfSize(15)));
}

TEST(UIFont, EachWeightAndSlantIsAFaceOfItsOwn) {
    const std::pair<double, const char*> faces[] = {
        {UIFontWeight::UltraLight, "Inter-Thin"},
        {UIFontWeight::Thin, "Inter-ExtraLight"},
        {UIFontWeight::Light, "Inter-Light"},
        {UIFontWeight::Regular, "Inter-Regular"},
        {UIFontWeight::Medium, "Inter-Medium"},
        {UIFontWeight::Semibold, "Inter-SemiBold"},
        {UIFontWeight::Bold, "Inter-Bold"},
        {UIFontWeight::Heavy, "Inter-ExtraBold"},
        {UIFontWeight::Black, "Inter-Black"},
        {-7, "Inter-Thin"},
        {7, "Inter-Black"},
        {std::nan(""), "Inter-Regular"},
    };
    for (const auto& [weight, name] : faces)
        EXPECT_EQ(UIFont::systemFontOfSize(15, weight)->fontName(), name) << weight;
    EXPECT_EQ(UIFont::italicSystemFontOfSize(15)->fontName(), "Inter-Italic");
}

TEST(UIFont, NamesAreFamiliesOrPostScriptNames) {
    EXPECT_EQ(UIFont::fontWithName("DejaVu Sans", 12)->fontName(), "DejaVuSans");
    EXPECT_EQ(UIFont::fontWithName("dejavu sans", 12)->familyName(), "DejaVu Sans");
    EXPECT_EQ(UIFont::fontWithName("DejaVuSans-BoldOblique", 12)->fontName(),
              "DejaVuSans-BoldOblique");
    EXPECT_EQ(UIFont::fontWithName("DejaVuSansCondensed", 12)->fontName(), "DejaVuSansCondensed");
    for (const char* name : {"", "No Such Font", "Inter,"})
        EXPECT_EQ(UIFont::fontWithName(name, 12), nullptr) << name;
}

TEST(UIFont, SizesThatAreNoneBecomeUsable) {
    for (const double size : {0.0, -3.0, std::nan(""), HUGE_VAL})
        EXPECT_EQ(UIFont::systemFontOfSize(size)->pointSize(), 12) << size;
    EXPECT_EQ(UIFont::systemFontOfSize(1e30)->pointSize(), 10'000);
    EXPECT_GT(UIFont::systemFontOfSize(std::numeric_limits<double>::min())->lineHeight(), -1);
}

TEST(UIFont, ListsFamiliesAndTheirFonts) {
    const auto families = UIFont::familyNames();
    EXPECT_THAT(families, Contains("Inter"));
    EXPECT_TRUE(std::is_sorted(families.begin(), families.end()));
    EXPECT_THAT(UIFont::fontNamesForFamilyName("Noto Color Emoji"), ElementsAre("NotoColorEmoji"));
    EXPECT_THAT(UIFont::fontNamesForFamilyName("No Such Font"), testing::IsEmpty());
}

TEST(UIFont, NamesTheFontsOfACollectionInItsOrder) {
    const auto names = UIFont::postScriptNamesOfFontFile(cjkCollection);
    ASSERT_GE(names.size(), 5U);
    EXPECT_EQ(names[0], "NotoSansCJKjp-Regular");
    EXPECT_EQ(names[2], "NotoSansCJKsc-Regular");
    EXPECT_TRUE(UIFont::postScriptNamesOfFontFile("/etc/passwd").empty());
    EXPECT_TRUE(UIFont::postScriptNamesOfFontFile("").empty());
}

TEST(UIFontDeathTest, WithoutAnyFontThereIsAMessageAndNoCrash) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(measureWithoutFonts(), testing::ExitedWithCode(0), "");
}

TEST(UIFontDeathTest, RegisteredFilesCanBeUsedAtOnce) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(registerHanFont(), testing::ExitedWithCode(0), "");
}
