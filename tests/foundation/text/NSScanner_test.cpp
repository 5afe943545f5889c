#include "zarnic/platform/foundation/NSScanner.h"

#include <gtest/gtest.h>

#include "zarnic/platform/foundation/NSException.h"

using namespace zn;

TEST(NSCharacterSet, holdsAsciiAndOtherCharacters) {
    const auto set = NSCharacterSet::charactersInString("b&é中&\xFF");
    for (const char32_t inside : {U'b', U'&', U'é', U'中'})
        EXPECT_TRUE(set.contains(inside));
    for (const char32_t outside : {U'a', U'è', U'\xFF', char32_t{0xFFFFFFFF}, char32_t{0}})
        EXPECT_FALSE(set.contains(outside));
    EXPECT_TRUE(NSCharacterSet().empty());
    const auto blank = NSCharacterSet::whitespaceAndNewlines();
    for (const char32_t inside : {U' ', U'\n', U'\t', U'\u00A0', U'\u2028', U'\u3000'})
        EXPECT_TRUE(blank.contains(inside));
    EXPECT_FALSE(blank.contains(U'x'));
}

TEST(NSScanner, scansRunsOfASetAndBetween) {
    const auto separators = NSCharacterSet::charactersInString("&;");
    NSScanner scanner("a=1&; b é;");
    EXPECT_FALSE(scanner.scanCharactersFromSet(separators));
    EXPECT_EQ(scanner.scanUpToCharactersFromSet(separators), "a=1");
    EXPECT_FALSE(scanner.scanUpToCharactersFromSet(separators));
    EXPECT_EQ(scanner.scanLocation(), 3U);
    EXPECT_EQ(scanner.scanCharactersFromSet(separators), "&;");
    EXPECT_EQ(scanner.scanUpToCharactersFromSet(separators), "b é") << "skips before, not inside";
    EXPECT_FALSE(scanner.isAtEnd());
    EXPECT_EQ(scanner.scanCharactersFromSet(separators), ";");
    EXPECT_TRUE(scanner.isAtEnd());
    EXPECT_FALSE(scanner.scanUpToCharactersFromSet(separators));
}

TEST(NSScanner, skipsWhatItIsToldToBeforeEveryScan) {
    const auto letters = NSCharacterSet::charactersInString("abc");
    NSScanner standard(" \n\u3000ab  ");
    EXPECT_EQ(standard.scanCharactersFromSet(letters), "ab");
    EXPECT_TRUE(standard.isAtEnd()) << "only blanks are left";
    EXPECT_EQ(standard.scanLocation(), 7U) << "never skips after a scan";
    NSScanner failing("  1");
    EXPECT_FALSE(failing.scanCharactersFromSet(letters));
    EXPECT_EQ(failing.scanLocation(), 0U) << "restored to before the skipping";

    NSScanner exact(" ab ");
    exact.setCharactersToBeSkipped({});
    EXPECT_FALSE(exact.scanCharactersFromSet(letters));
    EXPECT_EQ(exact.scanUpToCharactersFromSet(letters), " ");
    EXPECT_EQ(exact.scanCharactersFromSet(letters), "ab");
    EXPECT_FALSE(exact.isAtEnd());
    exact.setScanLocation(4);
    EXPECT_TRUE(exact.isAtEnd());
    EXPECT_THROW(exact.setScanLocation(5), NSException);
}

TEST(NSScanner, readsHexadecimalNumbers) {
    struct Case {
        const char* text;
        std::optional<std::uint32_t> number;
        std::size_t location;
    };
    const Case cases[] = {
        {"FF", 255U, 2},
        {"0x1f", 31U, 4},
        {"0X1G", 1U, 3},
        {"  7", 7U, 3},
        {"0x", 0U, 1},
        {"0xg", 0U, 1},
        {"g", std::nullopt, 0},
        {"", std::nullopt, 0},
        {" -1", std::nullopt, 0},
        {"１", std::nullopt, 0},
        {"ffffffff", 0xFFFFFFFFU, 8},
        {"123456789abcdef01z", 0xFFFFFFFFU, 17},
        {"00000000000000000001", 1U, 20},
    };
    for (const Case& each : cases) {
        NSScanner scanner(each.text);
        EXPECT_EQ(scanner.scanHexInt(), each.number) << each.text;
        EXPECT_EQ(scanner.scanLocation(), each.location) << each.text;
    }
}

TEST(NSScanner, passesBrokenBytesOn) {
    const auto separators = NSCharacterSet::charactersInString("&");
    NSScanner scanner("\xFF\xE4\xB8&\x80");
    EXPECT_EQ(scanner.scanUpToCharactersFromSet(separators), "\xFF\xE4\xB8");
    EXPECT_EQ(scanner.scanCharactersFromSet(separators), "&");
    EXPECT_EQ(scanner.scanUpToCharactersFromSet(separators), "\x80");
    EXPECT_TRUE(scanner.isAtEnd());
}
