#include <gmock/gmock.h>

#include <array>
#include <random>

#include "zarnic/platform/drawing/TextLayout.h"

namespace zn {
namespace {

TextStyle styleOfSize(double size) {
    return {.font = UIFont::systemFontOfSize(size)};
}

/// Everything that two layouts show and tell.
void expectSame(const TextLayout& edited, const TextLayout& fresh, std::string_view text) {
    const auto range = edited.differingLines(fresh);
    ASSERT_EQ(range.first, range.end) << text;
    ASSERT_EQ(edited.lines().size(), fresh.lines().size()) << text;
    ASSERT_EQ(edited.size(), fresh.size()) << text;
    for (std::size_t i = 0; i < edited.lines().size(); ++i) {
        ASSERT_EQ(edited.lines()[i].start, fresh.lines()[i].start) << text;
        ASSERT_EQ(edited.lines()[i].length, fresh.lines()[i].length) << text;
    }
    for (std::size_t at = 0; at <= text.size(); at += 3) {
        const Rect own = edited.caretAt(at), other = fresh.caretAt(at);
        ASSERT_NEAR(own.minX(), other.minX(), 1e-6) << text << " at " << at;
        ASSERT_EQ(own.minY(), other.minY()) << text << " at " << at;
    }
}

/// Types and deletes at random, more often near the end; in one script or in many.
class Typist {
public:
    Typist(unsigned seed, bool oneScript) : random_(seed), oneScript_(oneScript) {}

    void edit(std::string& text) {
        const std::size_t at = place(text);
        if (whole(4) == 0)
            text.erase(at, whole(6));
        else
            text.insert(at, piece());
    }

private:
    const char* piece() {
        static constexpr std::array latin{
            "a", "word ", "i",  " ", "-", "(",  ") ",      "\"",    "longer than most ",
            "é", "! ",    "AV", "—", "’", "\t", "x\u0301", "12, 3", "wwwwwwwwwwwwwwwwwwwwwwwwwww"};
        static constexpr std::array others{
            "ж", "字", "。", "سلام ", "👍🏽", "\u200F", "\u202Eab\u202C", "\xFF"};
        if (oneScript_ || whole(10) > 0)
            return latin[whole(latin.size())];
        return others[whole(others.size())];
    }
    std::size_t whole(std::size_t bound) { return random_() % bound; }
    std::size_t place(const std::string& text) {
        std::size_t at = whole(2) ? text.size() : whole(text.size() + 1);
        while (at > 0 && at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
            --at;
        return at;
    }

    std::mt19937 random_;
    bool oneScript_;
};

class EditedLayout : public testing::TestWithParam<unsigned> {};

TEST_P(EditedLayout, IsTheLayoutOfTheNewText) {
    Typist typist(GetParam(), GetParam() % 4 != 0);
    TextStyle style = styleOfSize(10 + GetParam() % 7);
    style.alignment = static_cast<NSTextAlignment>(GetParam() % 5);
    const Size box{40.0 + 25 * GetParam() % 230, 0};
    std::string text = "The quick brown fox jumps over the lazy dog. ";
    auto layout = TextLayout::layout(text, style, box);
    for (int turn = 0; turn < 120; ++turn) {
        typist.edit(text);
        layout = TextLayout::editedLayout(text, *layout);
        expectSame(*layout, *TextLayout::layout(text, style, box), text);
        if (HasFatalFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditedLayout, testing::Range(1u, 31u));

TEST(EditedLayoutTest, OnlyTheLinesThatLookOtherwiseDiffer) {
    const Size box{200, 0};
    std::string text;
    for (int i = 0; i < 40; ++i)
        text += "several short words ";
    const auto before = TextLayout::layout(text, styleOfSize(14), box);
    const std::size_t count = before->lines().size();
    const auto longer = TextLayout::editedLayout(text + "x", *before);
    EXPECT_EQ(longer->differingLines(*before).first, count - 1);
    const auto& middle = before->lines()[count / 2];
    text[middle.start] = 'W';
    const auto range = TextLayout::editedLayout(text, *before)->differingLines(*before);
    EXPECT_EQ(range.first, count / 2);
    EXPECT_LE(range.end, count);
}

}  // namespace
}  // namespace zn
