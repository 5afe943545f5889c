#include "platform/uikit/text/TextFlow.h"

#include <gtest/gtest.h>

#include <random>

namespace zn {
namespace {

TextStyle style() {
    TextStyle made;
    made.font = UIFont::systemFontOfSize(16);
    return made;
}

TextFlow flowOf(std::string_view text, double width) {
    TextFlow flow;
    flow.setStyle(style(), width, text);
    return flow;
}

/// Every caret of the text.
std::vector<Rect> carets(const TextFlow& flow, const std::string& text) {
    std::vector<Rect> found;
    for (std::size_t at = 0; at <= text.size(); ++at)
        found.push_back(flow.caretAt({at, false}));
    return found;
}

TEST(TextFlow, AChangedPartLooksAsIfAllWereLaidOutAgain) {
    const std::string pieces[] = {"\n", "\r",   "\r\n", "words to wrap ",
                                  "x",  "你好", "",     "\xE2\x80\xA8"};
    for (unsigned seed = 0; seed < 40; ++seed) {
        std::mt19937 random(seed);
        std::string text = "first\nsecond\r\nthird";
        TextFlow flow = flowOf(text, 120);
        for (int step = 0; step < 25; ++step) {
            const std::size_t from = random() % (text.size() + 1);
            const std::size_t length = random() % 3 == 0 ? random() % (text.size() - from + 1) : 0;
            const std::string& piece = pieces[random() % 8];
            text.replace(from, length, piece);
            flow.replace({from, length}, piece.size(), text);
            const TextFlow fresh = flowOf(text, 120);
            ASSERT_EQ(flow.size(), fresh.size()) << seed << " " << step;
            ASSERT_EQ(carets(flow, text), carets(fresh, text)) << seed << " " << step;
        }
    }
}

TEST(TextFlow, AChangeDamagesItsParagraphOrAllBelow) {
    std::string text = "one\ntwo\nthree";
    TextFlow flow = flowOf(text, 200);
    const double line = flow.lineHeight();
    text = "one\ntwox\nthree";
    const auto inside = flow.replace({7, 0}, 1, text);
    EXPECT_DOUBLE_EQ(inside.top, line);
    EXPECT_DOUBLE_EQ(inside.bottom, 2 * line);
    text = "one\ntw\nox\nthree";
    const auto split = flow.replace({6, 0}, 1, text);
    EXPECT_DOUBLE_EQ(split.top, line);
    EXPECT_DOUBLE_EQ(split.bottom, 4 * line);
}

TEST(TextFlow, PlacesAndCaretsAgreeInEveryLine) {
    for (const std::string text :
         {"a line that wraps and wraps again\n\nend", "你好你好你好你好你好你好",
          "שלום עולם זה טקסט ארוך שנשבר", ""}) {
        const TextFlow flow = flowOf(text, 90);
        for (std::size_t at = 0; at <= text.size(); ++at) {
            const Rect caret = flow.caretAt({at, false});
            const TextPlace place = flow.placeAt({caret.minX(), caret.midY()});
            EXPECT_EQ(flow.caretAt(place), caret) << text << " at " << at;
        }
        EXPECT_EQ(flow.placeAt({-50, -50}).position, flow.placeAt({-50, 1}).position);
        EXPECT_EQ(flow.placeAt({50, 9999}).position,
                  flow.placeAt({50, flow.size().height - 1}).position);
    }
}

TEST(TextFlow, TheEndOfAWrappedLineIsItsOwnPlace) {
    const std::string text = "你好你好你好你好你好你好";
    const TextFlow flow = flowOf(text, 90);
    const TextPlace end = flow.lineEnd({0, false});
    EXPECT_TRUE(end.atLineEnd);
    EXPECT_LT(end.position, text.size());
    EXPECT_DOUBLE_EQ(flow.caretAt(end).minY(), 0);
    EXPECT_GT(flow.caretAt(end).minX(), 60);
    const Rect next = flow.caretAt({end.position, false});
    EXPECT_DOUBLE_EQ(next.minX(), 0);
    EXPECT_DOUBLE_EQ(next.minY(), flow.lineHeight());
    EXPECT_EQ(flow.lineStart(end).position, 0u);
    EXPECT_EQ(flow.lineStart({end.position, false}).position, end.position);
}

TEST(TextFlow, ASelectionReachesToTheRightWhereTheTextGoesOn) {
    const TextFlow flow = flowOf("ab\n\ncd", 100);
    const double line = flow.lineHeight();
    const auto boxes = flow.boxesBetween({1, 4}, {0, 3 * line});
    double area = 0;
    for (const Rect& box : boxes)
        area += box.width() * box.height();
    const double a = flow.caretAt({1, false}).minX();
    const double c = flow.caretAt({5, false}).minX();
    EXPECT_NEAR(area, line * (100 - a + 100 + c), 0.1);
    EXPECT_TRUE(flow.boxesBetween({1, 4}, {1.5 * line, 1.6 * line}).size() == 1);
    EXPECT_TRUE(flow.boxesBetween({1, 0}, {0, 99}).empty());
}

}  // namespace
}  // namespace zn
