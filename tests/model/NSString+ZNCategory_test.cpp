#include "zarnic/NSString+ZNCategory.h"

#include <gtest/gtest.h>

#include "zarnic/platform/foundation/NSException.h"

using namespace zn;
using namespace std::literals;

namespace {

std::span<const std::byte> bytes(std::string_view text) {
    return std::as_bytes(std::span(text));
}

struct Match {
    std::string_view text;
    std::string_view expression;
    bool matches;
};

}  // namespace

TEST(NSStringCategory, expressionsMatchTheWholeText) {
    constexpr std::array cases = {
        Match{"abc", "abc", true},
        Match{"abc", "b", false},
        Match{"abc", ".*b.*", true},
        Match{"abcabc", "abc|abcabc", true},
        Match{"ABC", "abc", false},
        Match{"ABC", "(?i)abc", true},
        Match{"abc\n", "abc", false},
        Match{"abc\n", "abc$", false},
        Match{"a\nb", "a.b", false},
        Match{"a\nb", "(?s)a.b", true},
        Match{"a\nb", "^a$\\n^b$", false},
        Match{"", "a*", true},
        Match{"", "", false},
        Match{"abc", "", false},
        Match{"13812345678", "^1[3-9]\\d{9}$", true},
        Match{"中文字", "[\\u4e00-\\u9fa5]+", true},
        Match{"中文字", "\\p{Han}{3}", true},
        Match{"\U0001F600", ".", true},
        Match{"a\0b"sv, "a\\x00b", true},
        Match{"x", "x\0"sv, false},
        Match{"first.last@example.com", "[A-Z0-9a-z._%+-]+@[A-Za-z0-9.-]+\\.[A-Za-z]{2,4}", true},
    };
    for (const Match& each : cases)
        EXPECT_EQ(zn_IsMatchRegEx(each.text, each.expression), each.matches)
            << each.text << " against " << each.expression;
}

TEST(NSStringCategory, invalidExpressionsRaise) {
    for (const auto* expression : {"(", "[a", "a{2,1}", "*", "\\", "(?<=a*)b", "\\p{Nonsense}"}) {
        try {
            zn_IsMatchRegEx("b", expression);
            ADD_FAILURE() << expression;
        } catch (const NSException& exception) {
            EXPECT_EQ(exception.name(), NSInvalidArgumentException);
        }
    }
}

TEST(NSStringCategory, explodingExpressionsRaiseInsteadOfHanging) {
    const std::string many(40, 'a');
    EXPECT_THROW(zn_IsMatchRegEx(many + "b", "(a+)+"), NSException);
    EXPECT_THROW(zn_IsMatchRegEx(many + "b", "(a|a)*"), NSException);
    EXPECT_THROW(zn_IsMatchRegEx(std::string(3'000'000, 'a'), "(a|b)*c"), NSException);
    EXPECT_THROW(zn_IsMatchRegEx("a", std::string(100'000, '(')), NSException);
    EXPECT_TRUE(zn_IsMatchRegEx(std::string(100'000, 'a'), "a*"));
    EXPECT_FALSE(zn_IsMatchRegEx("a", "((((a{1,9999}){1,9999}){1,9999}){1,9999}){1,9999}b"));
}

TEST(NSStringCategory, digestsOfKnownTexts) {
    EXPECT_EQ(zn_EncryptMD5("abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(zn_EncryptSHA1("abc"), "a9993e364706816aba3e25717850c26c9cd0d89d");
    constexpr std::string_view sha256 =
        "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
    EXPECT_EQ(zn_EncryptSHA256("abc"), sha256);
    EXPECT_EQ(ZN_EncryptSHA256(bytes("abc")), sha256);
    EXPECT_EQ(ZN_EncryptSHA1(bytes("abc")), zn_EncryptSHA1("abc"));
    // RFC 1321, A.5, and FIPS 180-2, appendices A.2 and B.2: more than one block, or just one.
    EXPECT_EQ(
        zn_EncryptMD5(
            "12345678901234567890123456789012345678901234567890123456789012345678901234567890"),
        "57edf4a22be3c955ac49da2e2107b67a");
    constexpr std::string_view twoBlocks =
        "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq";
    EXPECT_EQ(zn_EncryptSHA1(twoBlocks), "84983e441c3bd26ebaae4aa1f95129e5e54670f1");
    EXPECT_EQ(zn_EncryptSHA256(twoBlocks),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

TEST(NSStringCategory, nothingHasNoDigest) {
    EXPECT_EQ(zn_EncryptMD5(""), std::nullopt);
    EXPECT_EQ(zn_EncryptSHA1(""), std::nullopt);
    EXPECT_EQ(zn_EncryptSHA256(""), std::nullopt);
    EXPECT_EQ(ZN_EncryptSHA1({}), std::nullopt);
    EXPECT_EQ(ZN_EncryptSHA256({}), std::nullopt);
}

TEST(NSStringCategory, sha256OfTextIsOfAsciiUpToAZeroOnly) {
    EXPECT_EQ(zn_EncryptSHA256("é"), std::nullopt);
    EXPECT_EQ(zn_EncryptSHA256("abc\0def"sv), zn_EncryptSHA256("abc"));
    EXPECT_EQ(zn_EncryptSHA256("\0abc"sv), std::nullopt);
    EXPECT_NE(ZN_EncryptSHA256(bytes("é")), std::nullopt);
    EXPECT_NE(ZN_EncryptSHA256(bytes("abc\0def"sv)), zn_EncryptSHA256("abc"));
}

TEST(NSStringCategory, sha1OfTextTakesAsManyBytesAsTheTextHasUtf16Units) {
    EXPECT_EQ(zn_EncryptSHA1("é"), ZN_EncryptSHA1(bytes("\xC3")));
    EXPECT_EQ(zn_EncryptSHA1("aé"), ZN_EncryptSHA1(bytes("a\xC3")));
    EXPECT_EQ(zn_EncryptSHA1("中文"), ZN_EncryptSHA1(bytes("\xE4\xB8")));
    EXPECT_EQ(zn_EncryptSHA1("\U0001F600"), ZN_EncryptSHA1(bytes("\xF0\x9F")));
    EXPECT_EQ(zn_EncryptSHA1("a\0b"sv), ZN_EncryptSHA1(bytes("a\0b"sv)));
}

TEST(NSStringCategory, md5OfTextIsOfUtf8UpToAZero) {
    EXPECT_EQ(zn_EncryptMD5("中文"), "a7bac2239fcdcb3a067903d8077c4a07");
    EXPECT_EQ(zn_EncryptMD5("abc\0def"sv), zn_EncryptMD5("abc"));
    // Of no bytes at all.
    EXPECT_EQ(zn_EncryptMD5("\0abc"sv), "d41d8cd98f00b204e9800998ecf8427e");
}
