#include "zarnic/platform/foundation/CFURL.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace zn;

namespace {

/// As for the URLs of images.
std::optional<std::string> escaped(std::string_view text) {
    return CFURLCreateStringByAddingPercentEscapes(text, "%:/?#=", "");
}

std::string escapeOf(char character) {
    char text[4];
    std::snprintf(text, sizeof text, "%%%02X", static_cast<unsigned char>(character));
    return text;
}

}  // namespace

TEST(CFURLTest, escapesFortyFiveCharactersOfASCIIAndKeepsTheOthers) {
    const std::string_view kept =
        "!#$%&'()*+,-./0123456789:;=?@ABCDEFGHIJKLMNOPQRSTUVWXYZ_"
        "abcdefghijklmnopqrstuvwxyz~";
    ASSERT_EQ(kept.size(), 83U);
    for (int code = 0; code < 128; ++code) {
        const auto character = static_cast<char>(code);
        const bool isKept = kept.find(character) != kept.npos;
        EXPECT_EQ(escaped({&character, 1}),
                  isKept ? std::string(1, character) : escapeOf(character))
            << code;
    }
}

TEST(CFURLTest, escapesEveryByteOfOtherCharacters) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", ""},
        {"http://h/图 片.png?名=值#尾",
         "http://h/%E5%9B%BE%20%E7%89%87.png?%E5%90%8D=%E5%80%BC#%E5%B0%BE"},
        {"é", "%C3%A9"},
        {"e\u0301", "e%CC%81"},
        {"😀", "%F0%9F%98%80"},
        {"\u0080\uFFFF\U0010FFFF", "%C2%80%EF%BF%BF%F4%8F%BF%BF"},
        {"%E5%9B%BE 100%", "%E5%9B%BE%20100%"},
        {"http://[::1]/", "http://%5B::1%5D/"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(escaped(text), expected) << text;
}

TEST(CFURLTest, theListsChangeWhatIsKept) {
    EXPECT_EQ(CFURLCreateStringByAddingPercentEscapes("a#50%", "", ""), "a%2350%25");
    EXPECT_EQ(CFURLCreateStringByAddingPercentEscapes("a&b=c/d", "", "&=/"), "a%26b%3Dc%2Fd");
    EXPECT_EQ(CFURLCreateStringByAddingPercentEscapes("图片 [x]", "片[", "x"),
              "%E5%9B%BE片%20[%78%5D");
}

TEST(CFURLTest, textsThatAreNotUTF8GiveNothing) {
    for (const std::string_view text : {"\xFF", "a\xC3", "\xED\xA0\x80", "ok\x80", "\xC0\xAF"})
        EXPECT_EQ(escaped(text), std::nullopt);
}
