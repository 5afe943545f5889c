#include "zarnic/UIColor+ZNCategory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <set>

#include "zarnic/platform/foundation/NSScanner.h"

namespace zn {
namespace {

constexpr double half = static_cast<double>(128 / 255.0F);

CGColor read(std::string_view text, double alpha = -1) {
    return ZN_ColorwithHexString(text, alpha)->cgColor();
}

TEST(UIColorZNCategory, HexTextsWithTheirPrefixesAndBlanks) {
    const CGColor red{1, 0, 0, 1};
    for (const char* text : {"#FF0000", "0XFF0000", "0xff0000", "ff0000", " ff0000 ", "\tFF0000\n",
                             "0X#FF0000", "#FFFF0000", "0xFFFF0000", "\u3000ff0000\u00a0"})
        EXPECT_EQ(read(text), red) << text;
    EXPECT_EQ(read("#80FF0000"), (CGColor{1, 0, 0, half}));
    EXPECT_EQ(read("123456"), (CGColor{0x12 / 255.0F, 0x34 / 255.0F, 0x56 / 255.0F, 1}));
    EXPECT_EQ(ZN_ColorWithHexString("#00FF0000")->cgColor(), (CGColor{1, 0, 0, 0}));
    EXPECT_EQ(read("#0XFF0000"), (CGColor{1, 0, 0, 0})) << "here 0X is a pair";
}

TEST(UIColorZNCategory, AnAlphaAboveZeroWinsOverTheTexts) {
    EXPECT_EQ(read("#FF0000", 0.5).alpha, 0.5);
    EXPECT_EQ(read("#80FF0000", 0.3).alpha, 0.3);
    EXPECT_EQ(read("#FF0000", 2).alpha, 2);
    for (const double none : {0.0, -0.5, -1.0, std::nan("")}) {
        EXPECT_EQ(read("#FF0000", none).alpha, 1) << none;
        EXPECT_EQ(read("#80FF0000", none).alpha, half) << none;
    }
}

TEST(UIColorZNCategory, OtherLengthsAreClearOnPurposeMeasuredBeforeThePrefixGoes) {
    for (const char* text : {"", "   ", "#FFF", "0XFFF", "12345", "#FFFFF", "#1234567", "0XFFFF",
                             "0X#FFF", "123456789", "##FF0000"})
        EXPECT_EQ(ZN_ColorWithHexString(text), UIColor::clearColor()) << text;
}

TEST(UIColorZNCategory, PairsReadAsTheScannerReadsThem) {
    for (int first = 0; first < 128; ++first) {
        for (int second = 0; second < 128; ++second) {
            const std::string pair{static_cast<char>(first), static_cast<char>(second)};
            const double value = NSScanner(pair).scanHexInt().value_or(0);
            ASSERT_EQ(read("00" + pair + "00").green,
                      static_cast<double>(static_cast<float>(value) / 255.0F))
                << first << ' ' << second;
        }
    }
}

/// Lengths count UTF-16 units after upper-casing, which may turn one letter into two.
TEST(UIColorZNCategory, LettersBeyondAscii) {
    EXPECT_EQ(read("00\u00e9100"), (CGColor{0, 0, 0, 1})) << "an e acute and a digit";
    EXPECT_EQ(read("\ufb000000"), (CGColor{1, 0, 0, 1})) << "the ligature ff is FF in upper case";
    EXPECT_EQ(read("0000\U0001F600"), (CGColor{0, 0, 0, 1})) << "an emoji has two units";
    EXPECT_EQ(ZN_ColorWithHexString("00\u30031100"), UIColor::clearColor()) << "seven units";
    EXPECT_EQ(read("FF\u30007FF"), (CGColor{1, 7 / 255.0F, 1, 1})) << "a wide blank is skipped";
    EXPECT_EQ(read("FF\xFF"
                   "111"),
              (CGColor{1, 0, 0x11 / 255.0F, 1}))
        << "a byte that is no text";
}

TEST(UIColorZNCategory, NumbersAndTextsSurviveTheWayThereAndBack) {
    for (int value = 0; value < 256; ++value) {
        const double component = static_cast<float>(value) / 255.0F;
        const auto color = UIColor::colorWithRed(component, component, component, component);
        EXPECT_EQ(zn_GetRed(color), value);
        EXPECT_EQ(ZN_GetIntValueFromColor(color), value * 0x010101);
        const auto text = ZN_HexStringWithColor(color, false);
        EXPECT_EQ(ZN_ColorwithHexString(text, component)->cgColor().blue, component);
        const auto withAlpha = ZN_ColorWithHexString(ZN_HexStringWithColor(color, true));
        EXPECT_EQ(withAlpha->isEqual(*color), value >= 16) << value;
    }
}

TEST(UIColorZNCategory, HexTextsHaveSixDigitsAndOnPurposeNoLeadingZerosOfTheAlpha) {
    const auto hex = [](double alpha, bool hasAlpha) {
        return ZN_HexStringWithColor(UIColor::colorWithRed(1, 0, 0, alpha), hasAlpha);
    };
    EXPECT_EQ(hex(1, false), "ff0000");
    EXPECT_EQ(hex(1, true), "ffff0000");
    EXPECT_EQ(hex(0.5, true), "7fff0000");
    EXPECT_EQ(hex(15 / 255.0F, true), "fff0000");
    EXPECT_EQ(hex(0, true), "ff0000");
    EXPECT_EQ(ZN_HexStringWithColor(UIColor::blackColor(), false), "000000");
    EXPECT_EQ(ZN_HexStringWithColor(nullptr, true), "000000");
}

TEST(UIColorZNCategory, NumbersAreCutAndTheDoubleCarriesTheAlphaBehindThePoint) {
    EXPECT_EQ(ZN_GetDoubleValueFromColor(UIColor::redColor()), 16711681.0);
    EXPECT_EQ(ZN_GetDoubleValueFromColor(UIColor::colorWithRed(1, 0, 0, 0.5)), 16711680.5);
    EXPECT_EQ(ZN_GetDoubleValueFromColor(UIColor::blackColor()), 1.0);
    EXPECT_EQ(zn_GetGreen(UIColor::colorWithRed(0, 0.5, 0, 1)), 127);
    EXPECT_EQ(zn_GetAlpha(UIColor::colorWithWhite(1, 0.25)), 0.25);
    EXPECT_EQ(ZN_GetIntValueFromColor(nullptr), 0);
    // Components outside 0 to 1 do no harm.
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(zn_GetRed(UIColor::colorWithRed(2, 0, 0, 1)), 510);
    EXPECT_EQ(zn_GetRed(UIColor::colorWithRed(infinity, 0, 0, 1)), 2147483647);
    EXPECT_EQ(zn_GetRed(UIColor::colorWithRed(-infinity, 0, 0, 1)), -2147483647);
    EXPECT_EQ(zn_GetRed(UIColor::colorWithRed(std::nan(""), 0, 0, 1)), 0);
}

TEST(UIColorZNCategory, LightnessIsThatOfTheColourDrawnOnNothing) {
    const auto gray = [](int red, int green, int blue) {
        return UIColor::colorWithRed(red / 255.0, green / 255.0, blue / 255.0, 1);
    };
    EXPECT_TRUE(ZN_IsLightColor(UIColor::yellowColor()));
    EXPECT_FALSE(ZN_IsLightColor(gray(127, 127, 127))) << "381";
    EXPECT_TRUE(ZN_IsLightColor(gray(128, 128, 126))) << "382";
    EXPECT_TRUE(ZN_IsLightColor(UIColor::colorWithWhite(1, 0.5))) << "three times 128";
    EXPECT_FALSE(ZN_IsLightColor(UIColor::colorWithWhite(1, 0.49)));
    EXPECT_FALSE(ZN_IsLightColor(nullptr));
    std::array<double, 3> components{7, 7, 7};
    ZN_GetRGBComponents(components, UIColor::colorWithRed(1, 0.5, 0, 0.5));
    EXPECT_EQ(components, (std::array<double, 3>{128, 64, 0}));
}

TEST(UIColorZNCategory, RandomColoursAreWholeStepsAndSpreadOverAll) {
    std::array<std::set<double>, 3> seen;
    for (int i = 0; i < 4000; ++i) {
        const CGColor color = ZN_GetArc4randomColor(0.25F)->cgColor();
        EXPECT_EQ(color.alpha, 0.25);
        seen[0].insert(color.red), seen[1].insert(color.green), seen[2].insert(color.blue);
    }
    std::set<double> steps;
    for (int value = 0; value < 256; ++value)
        steps.insert(static_cast<double>(static_cast<float>(value) / 255.0F));
    for (const auto& values : seen) {
        EXPECT_GT(values.size(), 250U);
        EXPECT_TRUE(std::includes(steps.begin(), steps.end(), values.begin(), values.end()));
    }
}

}  // namespace
}  // namespace zn
