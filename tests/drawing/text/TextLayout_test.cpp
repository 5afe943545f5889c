#include "zarnic/platform/drawing/TextLayout.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "tests/drawing/text/LaidOut.h"

using namespace zn;
using testing::ElementsAre;

namespace {

constexpr double greatestFloat = 3.4028234663852886e38;
constexpr unsigned wrapping = NSStringDrawingOptions::UsesLineFragmentOrigin;

std::vector<std::string> linesOf(std::string_view text, const TextLayout& layout) {
    std::vector<std::string> lines;
    for (const auto& line : layout.lines())
        lines.emplace_back(text.substr(line.start, line.length));
    return lines;
}

}  // namespace

TEST(TextLayout, HeightIsLinesTimesTheFontsLineHeight) {
    const double line = font()->lineHeight();
    const std::pair<const char*, int> texts[] = {
        {"", 1},
        {"one", 1},
        {"one\ntwo", 2},
        {"one\r\ntwo\rthree", 3},
        {"one\xE2\x80\xA8two\xE2\x80\xA9three", 3},
        {"trailing\n", 2},
        {"\n", 2},
        {"\n\n", 3},
        {"Latin 中文 かな 한국어 😀 مرحبا שלום", 1},
        {"Latin\n中文\n😀\nمرحبا", 4},
    };
    for (const auto& [text, count] : texts)
        EXPECT_DOUBLE_EQ(
            boundingRectWithSize(text, {greatestFloat, greatestFloat}, wrapping, font())
                .size.height,
            count * line)
            << text;
}

TEST(TextLayout, AbsentTextTakesNoRoomAndEmptyTextOneLine) {
    EXPECT_EQ(boundingRectWithSize({}, {100, 100}, wrapping, font()), Rect());
    const Size empty = boundingRectWithSize("", {100, 100}, wrapping, font()).size;
    EXPECT_EQ(empty, (Size{0, font()->lineHeight()}));
}

TEST(TextLayout, WidthsAreFractionalAndScaleWithTheFont) {
    const double small = sizeWithFont("Hamburgefonstiv 中文", font(10)).width;
    EXPECT_NE(small, std::round(small));
    EXPECT_NEAR(sizeWithFont("Hamburgefonstiv 中文", font(40)).width, small * 4, 0.1);
    EXPECT_EQ(sizeWithFont("中文", font(15)).width, 30);
    EXPECT_EQ(sizeWithFont("x", nullptr), sizeWithFont("x", font(12)));
}

TEST(TextLayout, WrapsAtWordsAndThenCharacters) {
    const std::string_view text = "Hello wonderful world";
    EXPECT_THAT(linesOf(text, *laidOut(text, 90)), ElementsAre("Hello ", "wonderful ", "world"));
    EXPECT_THAT(linesOf("中文测量", *laidOut("中文测量", 32)), ElementsAre("中文", "测量"));
    const auto broken = laidOut("incomprehensibilities", 60);
    EXPECT_GT(broken->lines().size(), 2U);
    for (const auto& line : broken->lines())
        EXPECT_LE(line.frame.width(), 60);
    EXPECT_EQ(linesOf(text, *laidOut(text, 90, NSLineBreakMode::CharWrapping))[0].size(), 11U);
}

TEST(TextLayout, TheMeasuredWidthHoldsTheTextAgain) {
    for (const char* text :
         {"Hello wonderful world", "设备已连接，请检查", "AVATAR To fi", "مرحبا"}) {
        const double width = sizeWithFont(text, font()).width;
        EXPECT_EQ(laidOut(text, width)->lines().size(), 1U) << text;
        EXPECT_EQ(laidOut(text, width, NSLineBreakMode::TruncatingTail, 1)->size().width, width);
    }
}

TEST(TextLayout, WithoutLineFragmentsItIsOneLineOnTheBaseline) {
    const Rect box = boundingRectWithSize("one two\nthree", {10, 10}, 0, font());
    EXPECT_EQ(box.size, sizeWithFont("one two", font()));
    EXPECT_EQ(box.origin, (Point{0, -font()->ascender()}));
}

TEST(TextLayout, ExtentsThatAreNoneMeanAny) {
    const Size free = sizeWithFont("Hello wonderful world", font());
    for (const double extent : {0.0, -5.0, std::nan(""), HUGE_VAL, greatestFloat})
        EXPECT_EQ(
            boundingRectWithSize("Hello wonderful world", {extent, extent}, wrapping, font()).size,
            free)
            << extent;
    EXPECT_EQ(laidOut("ab", 1e-9)->lines().size(), 2U);
}

TEST(TextLayout, TruncatesTheLastLineThatFits) {
    const std::string_view text = "The quick brown fox jumps over the lazy dog";
    const auto check = [&](NSLineBreakMode mode, std::size_t lines, std::size_t lastEnd) {
        const auto layout = laidOut(text, 150, mode, lines);
        ASSERT_EQ(layout->lines().size(), lines);
        const auto& last = layout->lines().back();
        EXPECT_LE(last.frame.width(), 150);
        EXPECT_GT(last.frame.width(), 130);
        EXPECT_EQ(last.start + last.length, lastEnd);
    };
    for (const std::size_t lines : {1U, 2U}) {
        check(NSLineBreakMode::TruncatingHead, lines, text.size());
        check(NSLineBreakMode::TruncatingMiddle, lines, text.size());
        check(NSLineBreakMode::TruncatingTail, lines, text.size());
    }
    check(NSLineBreakMode::Clipping, 1, text.size());
}

TEST(TextLayout, TruncationKeepsTheEndsItsModeNames) {
    const std::string_view text = "aaaaaaaaaaaaaaaaaaaaaaaaaaazzzzzzzzzzzzzzzzzzzzzzzzz";
    const auto edges = [&](NSLineBreakMode mode) {
        const auto layout = laidOut(text, 100, mode, 1);
        // Positions step over what was cut out.
        return std::pair{layout->positionAt({12, 5}), layout->positionAt({88, 5})};
    };
    EXPECT_LT(edges(NSLineBreakMode::TruncatingTail).second, 14U);
    EXPECT_GT(edges(NSLineBreakMode::TruncatingHead).first, 36U);
    const auto [start, end] = edges(NSLineBreakMode::TruncatingMiddle);
    EXPECT_LT(start, 4U);
    EXPECT_GT(end, 48U);
}

TEST(TextLayout, LinesBeyondTheLastAreAnnounced) {
    const auto truncated = laidOut("first\nsecond", 200, NSLineBreakMode::TruncatingTail, 1);
    EXPECT_GT(truncated->size().width, sizeWithFont("first", font()).width);
    // Blank rest is nothing to announce.
    EXPECT_EQ(laidOut("first\n \n", 200, NSLineBreakMode::TruncatingTail, 1)->size().width,
              sizeWithFont("first", font()).width);
    EXPECT_EQ(laidOut("first\nsecond", 200, NSLineBreakMode::WordWrapping, 1)->size().width,
              sizeWithFont("first", font()).width);
}

TEST(TextLayout, BoxHeightLimitsLinesButNeverToNone) {
    const double line = font()->lineHeight();
    const std::pair<double, std::size_t> heights[] = {{1, 1},  {line, 1},     {line * 1.8, 1},
                                                      {36, 2}, {line * 3, 3}, {0, 4}};
    for (const auto& [height, count] : heights)
        EXPECT_EQ(
            laidOut("1\n2\n3\n4", 100, NSLineBreakMode::WordWrapping, 0, height)->lines().size(),
            count)
            << height;
}

TEST(TextLayout, AlignsLinesInTheBox) {
    const auto minX = [](const char* text, NSTextAlignment alignment) {
        return TextLayout::layout(text, {font(), alignment}, {200, 0})->lines()[0].frame.minX();
    };
    const double spare = 200 - sizeWithFont("text", font()).width;
    EXPECT_EQ(minX("text", NSTextAlignment::Left), 0);
    EXPECT_EQ(minX("text", NSTextAlignment::Center), spare / 2);
    EXPECT_EQ(minX("text", NSTextAlignment::Right), spare);
    EXPECT_EQ(minX("text", NSTextAlignment::Natural), 0);
    EXPECT_EQ(minX("שלום", NSTextAlignment::Natural), 200 - sizeWithFont("שלום", font()).width);
    EXPECT_EQ(minX("שלום", NSTextAlignment::Left), 0);
    const auto justified = TextLayout::layout("one two three four five six seven eight",
                                              {font(), NSTextAlignment::Justified}, {100, 0});
    EXPECT_NEAR(justified->lines().front().frame.width(), 100, 0.01);
    EXPECT_LT(justified->lines().back().frame.width(), 90);
}

TEST(TextLayout, AsManyBytesAsComeAreTaken) {
    const double replaced = sizeWithFont(
                                "a\xEF\xBF\xBD"
                                "b",
                                font())
                                .width;
    EXPECT_EQ(sizeWithFont("a\xFF"
                           "b",
                           font())
                  .width,
              replaced);
    EXPECT_EQ(sizeWithFont("a\xE4\xB8"
                           "b",
                           font())
                  .width,
              replaced);
    EXPECT_EQ(sizeWithFont(std::string_view("a\0b", 3), font()), sizeWithFont("ab", font()));
    for (unsigned seed = 1; seed < 300; ++seed) {
        std::string bytes;
        for (unsigned i = 0, state = seed; i < 40; ++i) {
            state = state * 1103515245 + 12345;
            bytes += static_cast<char>(state >> 16);
        }
        const auto layout = laidOut(bytes, 60, NSLineBreakMode(seed % 6), seed % 3);
        EXPECT_LE(layout->lines().back().start + layout->lines().back().length, bytes.size());
        for (const double x : {-1.0, 20.0, 1000.0})
            EXPECT_LE(layout->positionAt({x, double(seed)}), bytes.size());
        layout->boxesBetween(0, bytes.size() + seed);
        layout->caretAt(seed);
    }
}

TEST(TextLayout, LongTextsTakeTimeInProportion) {
    const std::string word(100'000, 'm');
    const double letter = sizeWithFont("mm", font()).width - sizeWithFont("m", font()).width;
    const auto perLine = static_cast<std::size_t>(300 / letter);
    EXPECT_NEAR(double(laidOut(word, 300)->lines().size()), double(word.size() / perLine), 2);
    EXPECT_NEAR(laidOut(word)->size().width, letter * double(word.size()), letter * 100);

    std::string prose;
    while (prose.size() < 1'000'000)
        prose += "the quick brown fox 中文 ";
    const auto whole = laidOut(prose, 300);
    std::size_t end = 0;
    for (const auto& line : whole->lines()) {
        EXPECT_EQ(line.start, end);
        EXPECT_LE(line.frame.width(), 300);
        end = line.start + line.length;
    }
    EXPECT_EQ(end, prose.size());
    for (const auto mode : {NSLineBreakMode::TruncatingHead, NSLineBreakMode::TruncatingMiddle,
                            NSLineBreakMode::TruncatingTail, NSLineBreakMode::Clipping})
        EXPECT_LE(laidOut(prose, 300, mode, 2)->size().width, 300);
}

TEST(TextLayout, EqualRequestsShareALayout) {
    const auto first = laidOut("shared text", 100);
    EXPECT_EQ(first, laidOut("shared text", 100));
    EXPECT_NE(first, laidOut("shared text", 101));
    EXPECT_NE(first, laidOut("other text", 100));
    EXPECT_EQ(laidOut("shared text", greatestFloat), laidOut("shared text", -1));
    // The cache is bounded: what has not been asked for since much else came is made anew.
    const WeakRef<TextLayout> old = laidOut("soon forgotten");
    for (int i = 0; i < 3000; ++i)
        laidOut(std::string(600, 'x') + std::to_string(i));
    EXPECT_TRUE(old.expired());
}

TEST(TextLayout, MeasuresOnManyThreadsAtOnce) {
    const double expected = sizeWithFont("thread 中文 😀", font()).width;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
            for (int i = 0; i < 50; ++i) {
                const auto text = "thread " + std::to_string(i % 10 + t) + " 中文 שלום 😀";
                laidOut(text, 80 + i)->caretAt(3);
                drawn(text, 1);
                EXPECT_EQ(sizeWithFont("thread 中文 😀", font()).width, expected);
            }
        });
    for (auto& thread : threads)
        thread.join();
}

TEST(TextLayout, CaretsAndPositionsAgree) {
    for (const std::string_view text :
         {"Hello world", "中文 text", "שלום עולם", "e\xCC\x81tude 👨‍👩‍👧 end",
          "a\xFF"
          "b\n\nc"}) {
        const auto layout = laidOut(text, 120);
        for (const auto& line : layout->lines()) {
            const double y = line.frame.midY();
            double previous = -1;
            for (double x = line.frame.minX(); x <= line.frame.maxX(); x += 0.5) {
                const std::size_t position = layout->positionAt({x, y});
                const double caret = layout->caretAt(position).minX();
                EXPECT_GE(caret, previous) << text << " at " << x;
                previous = caret;
            }
        }
    }
}

TEST(TextLayout, PositionsNeverSplitWhatIsSeenAsOneCharacter) {
    const std::string_view family = "👨‍👩‍👧x";
    const auto layout = laidOut(family);
    const double width = sizeWithFont("👨‍👩‍👧", font()).width;
    EXPECT_EQ(layout->positionAt({width * 0.4, 5}), 0U);
    EXPECT_EQ(layout->positionAt({width * 0.6, 5}), family.size() - 1);
    EXPECT_EQ(layout->positionAt({1000, 5}), family.size());
}

TEST(TextLayout, CaretStandsInTheLineOfItsPosition) {
    const auto layout = laidOut("one\n\nthree\n");
    const double line = font()->lineHeight();
    const std::pair<std::size_t, int> places[] = {{0, 0}, {3, 0}, {4, 1}, {5, 2}, {10, 2}, {11, 3}};
    for (const auto& [position, index] : places)
        EXPECT_DOUBLE_EQ(layout->caretAt(position).minY(), index * line) << position;
    EXPECT_EQ(layout->caretAt(3).minX(), layout->lines()[0].frame.maxX());
    EXPECT_EQ(layout->caretAt(99).minY(), layout->caretAt(11).minY());
}

TEST(TextLayout, BoxesCoverTheSelectedText) {
    const std::string_view text = "one two שלום end";
    const auto layout = laidOut(text);
    const auto all = layout->boxesBetween(0, text.size());
    ASSERT_EQ(all.size(), 1U);
    EXPECT_NEAR(all[0].width(), layout->size().width, 0.1);
    // From inside the Latin to inside the Hebrew: two boxes, since the Hebrew runs the other way.
    EXPECT_EQ(layout->boxesBetween(4, 12).size(), 2U);
    EXPECT_EQ(layout->boxesBetween(12, 4).size(), 2U);
    EXPECT_TRUE(layout->boxesBetween(3, 3).empty());
    EXPECT_EQ(laidOut("one\ntwo")->boxesBetween(1, 6).size(), 2U);
}
