#include <gtest/gtest.h>

#include <string_view>

#include "tests/storage/DataBaseFixture.h"

namespace zn {
namespace {

struct Comparison {
    std::string_view first;
    std::string_view second;
    int result;
};

TEST(PinyinCmpTest, OnlyAGreaterSignedByteWithinTheShorterLengthCounts) {
    const Comparison comparisons[] = {
        {"b", "a", 1},          {"a", "b", 0},       {"a", "a", 0},
        {"abc", "abcde", 0},    {"abcde", "abc", 0}, {"", "a", 0},
        {"a", "", 0},           {"", "", 0},         {"\xE4", "a", 0},
        {"a", "\xE4", 1},       {"\xE4", "\xE5", 0}, {"\xE5", "\xE4", 1},
        {"\x80", "\xFF", 0},    {"\x7F", "\x80", 1}, {"ab", "aa", 1},
        {"aa", "ab", 0},        {"abz", "aca", 0},   {{"a\0b", 3}, {"a\0a", 3}, 1},
        {{"\0", 1}, "\xFF", 1},
    };
    for (const auto& [first, second, result] : comparisons)
        EXPECT_EQ(pinyin_cmp(nullptr, static_cast<int>(first.size()), first.data(),
                             static_cast<int>(second.size()), second.data()),
                  result)
            << first << " and " << second;
}

TEST(PinyinCmpTest, WithoutACommonLengthTheTextsAreNotRead) {
    for (const auto& [first, second] : {std::pair(0, 0), {0, 9}, {9, 0}, {-1, 9}})
        EXPECT_EQ(pinyin_cmp(nullptr, first, nullptr, second, nullptr), 0);
}

using PinyinCollationTest = DataBaseFixture;

/// Equality is not symmetric, and nothing is less: see the declaration.
TEST_F(PinyinCollationTest, EveryOpenedDatabaseKnowsIt) {
    for (const auto* name : {"first.db", "second.db"}) {
        open(name);
        EXPECT_EQ(answer("SELECT 'b' = 'a' COLLATE pinyin"), "0");
        EXPECT_EQ(answer("SELECT 'a' = 'b' COLLATE pinyin"), "1");
        EXPECT_EQ(answer("SELECT 'a' < 'b' COLLATE pinyin"), "0");
    }
}

}  // namespace
}  // namespace zn
