#include "zarnic/platform/foundation/NSURL.h"

#include <gtest/gtest.h>

#include "zarnic/platform/foundation/Value.h"

using namespace zn;

namespace {

using Part = std::optional<std::string>;
const Part none;

}  // namespace

TEST(NSURL, splitsHostPathAndQuery) {
    struct Case {
        const char* text;
        Part scheme, host, path, query;
    };
    const Case cases[] = {
        {"app://host/Detail.page?id=7", "app", "host", "/Detail.page", "id=7"},
        {"/Detail?id=7", none, none, "/Detail", "id=7"},
        {"Detail?id=7", none, none, "Detail", "id=7"},
        {"/Detail/?id=7", none, none, "/Detail", "id=7"},
        {"app://Detail?id=7", "app", "Detail", "", "id=7"},
        {"app:///Detail", "app", none, "/Detail", none},
        {"app:/Detail", "app", none, "/Detail", none},
        {"app:Detail?id=7", "app", none, none, none},
        {"app:", "app", none, none, none},
        {"/a/De%74ail;x=1?q=%20", none, none, "/a/Detail", "q=%20"},
        {"http://u:p@h:80", "http", "h", "", none},
        {"http://h%20x/", "http", "h x", "/", none},
        {"http://[::1]:8080/a//", "http", "::1", "/a/", none},
        {"http://h?", "http", "h", "", ""},
        {"?a=b?c", none, none, none, "a=b?c"},
        {"1a:b", none, none, "1a:b", none},
        {"a_b:/c", none, none, "a_b:/c", none},
        {"/%FF", none, none, none, none},
        {"/%E4%B8%AD", none, none, "/中", none},
        {"", none, none, none, none},
    };
    for (const Case& each : cases) {
        const auto url = NSURL::URLWithString(each.text);
        ASSERT_TRUE(url) << each.text;
        EXPECT_EQ(url->absoluteString(), each.text);
        EXPECT_EQ(url->scheme(), each.scheme) << each.text;
        EXPECT_EQ(url->host(), each.host) << each.text;
        EXPECT_EQ(url->path(), each.path) << each.text;
        EXPECT_EQ(url->relativePath(), each.path) << each.text;
        EXPECT_EQ(url->query(), each.query) << each.text;
    }
}

TEST(NSURL, splitsTheSmallerParts) {
    const auto url = NSURL::URLWithString("https://me%40x:se:cret@h:443/p;v=2;w?q#f?;/");
    EXPECT_EQ(url->user(), "me@x");
    EXPECT_EQ(url->password(), "se:cret");
    EXPECT_EQ(url->port(), 443);
    EXPECT_EQ(url->path(), "/p");
    EXPECT_EQ(url->parameterString(), "v=2;w");
    EXPECT_EQ(url->query(), "q");
    EXPECT_EQ(url->fragment(), "f?;/");
    for (const auto* text : {"http://h", "http://h:", "http://h:x", "http://h:70000", "h:80"})
        EXPECT_FALSE(NSURL::URLWithString(text)->port()) << text;
    EXPECT_EQ(NSURL::URLWithString("/p#")->fragment(), "");
}

TEST(NSURL, refusesTextsThatAreNoURLs) {
    for (const auto* text : {" ", "a b", "中", "a\"b", "<a>", "a\\b", "a^b", "{a}", "a|b", "a`b",
                             "a#b#c", "%", "%2", "%2g", "a%zz", "%+1", "a\nb", "\x7f", "\xFF"})
        EXPECT_FALSE(NSURL::URLWithString(text)) << text;
    std::string legal = "!$&'()*+,-./0123456789:;=?@_~[]%2f#";
    for (char letter = 'a'; letter <= 'z'; ++letter)
        (legal += letter) += static_cast<char>(letter - 0x20);
    EXPECT_TRUE(NSURL::URLWithString(legal));
    EXPECT_FALSE(NSURL::URLWithString(std::string_view("a\0b", 3)));
}

TEST(NSURL, isEqualByText) {
    const Value one = NSURL::URLWithString("/Detail?id=7");
    EXPECT_EQ(one, Value(NSURL::URLWithString("/Detail?id=7")));
    EXPECT_FALSE(one == Value(NSURL::URLWithString("/Detail?id=8")));
    EXPECT_EQ(one.description(), "/Detail?id=7");
}
