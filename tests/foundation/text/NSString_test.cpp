#include "zarnic/platform/foundation/NSString.h"

#include <gtest/gtest.h>

#include <limits>

using namespace zn;

TEST(NSString, readsIntegersFromTheBeginning) {
    const std::pair<const char*, std::int64_t> cases[] = {
        {"", 0},          {"abc", 0},  {"12abc", 12}, {" \t\n42", 42}, {"+7", 7},
        {"- 7", -7},      {"--7", 0},  {"-+7", 0},    {"0x10", 0},     {"1.9", 1},
        {"\u300012", 12}, {"１２", 0}, {"1,000", 1},  {"-0", 0},
    };
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(longLongValue(text), number) << text;
        EXPECT_EQ(intValue(text), number) << text;
    }
}

TEST(NSString, clampsIntegersToTheirRange) {
    EXPECT_EQ(intValue("2147483648"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(intValue("-99999999999999999999999"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(longLongValue("9223372036854775808"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(longLongValue("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(unsignedLongLongValue("18446744073709551615"), ~std::uint64_t{0});
    EXPECT_EQ(unsignedLongLongValue("99999999999999999999"), ~std::uint64_t{0});
    EXPECT_EQ(unsignedLongLongValue("-1"), ~std::uint64_t{0});
}

TEST(NSString, readsRealsWithoutNanOrHexadecimal) {
    const std::pair<const char*, double> cases[] = {
        {"", 0},
        {" 1.5e3x", 1500},
        {"11.2.1", 11.2},
        {"-.5", -0.5},
        {"+2", 2},
        {"nan", 0},
        {"inf", 0},
        {"0x1p4", 0},
        {"e5", 0},
        {"1e", 1},
        {"1e999", std::numeric_limits<double>::infinity()},
        {"3,5", 3},
        {"+-3", 0},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(doubleValue(text), number) << text;
    EXPECT_EQ(floatValue("11.2.1"), 11.2F);
}

TEST(NSString, readsTruthFromTheFirstTellingCharacter) {
    for (const auto* text : {"Y", "yes", "True", "t", "1", " -009", "+0t"})
        EXPECT_TRUE(boolValue(text)) << text;
    for (const auto* text : {"", "0", "no", "on", "--1", "x1", "00"})
        EXPECT_FALSE(boolValue(text)) << text;
}

TEST(NSString, countsUtf16UnitsAndKnowsValidText) {
    EXPECT_EQ(utf16Length("aé中😀"), 5U);
    EXPECT_TRUE(isValidUTF8("aé中😀"));
    for (const auto* text : {"\xff", "\xc3", "\xed\xa0\x80", "\xc0\x80", "\xf4\x90\x80\x80"})
        EXPECT_FALSE(isValidUTF8(text));
}

TEST(NSString, mapsCaseWithoutALocale) {
    EXPECT_EQ(uppercaseString("straße ı"), "STRASSE I");
    EXPECT_EQ(lowercaseString("ÀΣ I İ"), "àς i i\u0307");
    EXPECT_EQ(lowercaseString(""), "");
}

TEST(NSString, trimsThePlatformsWhiteSpaceAtBothEnds) {
    EXPECT_EQ(stringByTrimmingWhitespaceAndNewlines(" \t\r\n\u00a0\u2028\u200b a b \u3000\u0085"),
              "a b");
    EXPECT_EQ(stringByTrimmingWhitespaceAndNewlines("\u3000 \n"), "");
    EXPECT_EQ(stringByTrimmingWhitespaceAndNewlines("\ufeffa"), "\ufeffa");
}

TEST(NSString, splittingKeepsEmptyPieces) {
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(componentsSeparatedByString("a==b", "="), (Pieces{"a", "", "b"}));
    EXPECT_EQ(componentsSeparatedByString("", "="), Pieces{""});
    EXPECT_EQ(componentsSeparatedByString("=", "="), (Pieces{"", ""}));
    EXPECT_EQ(componentsSeparatedByString("a--b-c", "--"), (Pieces{"a", "b-c"}));
    EXPECT_EQ(componentsSeparatedByString("ab", ""), Pieces{"ab"});
}

TEST(NSString, joinsPathComponents) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"/x", "a", "/x/a"}, {"/x/", "a", "/x/a"},      {"/", "a", "/a"},
        {"", "a", "a"},      {"/x", "/a", "/x/a"},      {"/x", "a/", "/x/a"},
        {"/x", "", "/x"},    {"/x//y", "a", "/x/y/a"},  {"/", "", "/"},
        {"", "", ""},        {"/x/.", "..", "/x/./.."},
    };
    for (const auto& [path, component, joined] : cases)
        EXPECT_EQ(stringByAppendingPathComponent(path, component), joined);
}
