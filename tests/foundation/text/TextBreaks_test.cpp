#include "platform/foundation/text/TextBreaks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zn {
namespace {

const std::string family = "👨‍👩‍👧‍👦";
const std::string flags = "🇩🇪🇯🇵";
const std::string accented = "e\xCC\x81\xCC\xA3";

TEST(TextBreaks, GraphemesAreWhatAReaderSeesAsOne) {
    const struct {
        std::string text;
        std::vector<std::size_t> ends;
    } cases[] = {
        {"", {}},         {"ab", {1, 2}},           {family, {family.size()}},
        {flags, {8, 16}}, {accented + "x", {5, 6}}, {"\r\n\n", {2, 3}},
        {"你好", {3, 6}}, {"👍🏽!", {8, 9}},    {"각", {3}},
        {"שָׁ", {6}},       {"a\xFFz", {1, 2, 3}},
    };
    for (const auto& [text, ends] : cases) {
        std::vector<std::size_t> forward;
        for (std::size_t at = 0; at < text.size();)
            forward.push_back(at = nextGrapheme(text, at));
        EXPECT_EQ(forward, ends) << text;
        std::vector<std::size_t> backward;
        for (std::size_t at = text.size(); at > 0; at = previousGrapheme(text, at))
            backward.insert(backward.begin(), at);
        EXPECT_EQ(backward, ends) << text;
        for (std::size_t at = 0; at <= text.size(); ++at) {
            std::size_t start = 0;
            for (const std::size_t end : ends)
                start = end <= at ? end : start;
            EXPECT_EQ(graphemeStart(text, at), start) << text << " at " << at;
        }
    }
    EXPECT_EQ(nextGrapheme("ab", 9), 2u);
    EXPECT_EQ(previousGrapheme("ab", 9), 1u);
}

TEST(TextBreaks, WordsEndAndBeginWherePeopleSay) {
    const std::string text = "don't stop, 3.14 café!";
    std::vector<std::size_t> ends;
    for (std::size_t at = 0; at < text.size();)
        ends.push_back(at = nextWordEnd(text, at));
    EXPECT_EQ(ends, (std::vector<std::size_t>{5, 10, 16, 22, 23}));
    std::vector<std::size_t> starts;
    for (std::size_t at = text.size(); at > 0;)
        starts.push_back(at = previousWordStart(text, at));
    EXPECT_EQ(starts, (std::vector<std::size_t>{17, 12, 6, 0}));
    EXPECT_EQ(previousWordStart(text, 8), 6u);
    EXPECT_EQ(previousWordStart("  ", 2), 0u);
}

TEST(TextBreaks, ADoubleClickTakesTheWordTheBlanksOrTheSign) {
    const struct {
        std::string text;
        std::size_t position;
        std::string taken;
    } cases[] = {
        {"one two", 0, "one"},
        {"one two", 2, "one"},
        {"one two", 3, "one"},
        {"one  two", 4, "  "},
        {"one two", 7, "two"},
        {"a,b", 1, "a"},
        {"(,)", 1, ","},
        {"don't", 2, "don't"},
        {"שלום עולם", 3, "שלום"},
        {"x " + family, 2, family},
        {"ab\ncd", 2, "ab"},
        {"ab\ncd", 3, "cd"},
        {"ab \n", 4, "\n"},
        {"我喜欢编程", 4, "喜欢"},
        {"", 0, ""},
    };
    for (const auto& [text, position, taken] : cases) {
        const TextPiece piece = wordAt(text, position);
        EXPECT_EQ(text.substr(piece.start, piece.end - piece.start), taken)
            << text << " at " << position;
    }
}

TEST(TextBreaks, LongTextsCostNoMoreThanShortOnes) {
    // Would take minutes if a call looked at all of the text.
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "word👨‍👩‍👧 ";
    std::size_t at = text.size();
    for (int i = 0; i < 20000; ++i)
        at = previousGrapheme(text, at);
    for (int i = 0; i < 2000; ++i)
        at = nextWordEnd(text, at);
    EXPECT_LT(at, text.size());
}

}  // namespace
}  // namespace zn
