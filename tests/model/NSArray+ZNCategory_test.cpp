#include "zarnic/NSArray+ZNCategory.h"

#include <gtest/gtest.h>

#include "zarnic/NSDictionary+ZNCategory.h"
#include "zarnic/NSMutableArray+ZNCategory.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSException.h"

using namespace zn;

TEST(NSArrayCategory, describesToTheByte) {
    EXPECT_EQ(descriptionWithLocale(Array{}), "0 (\n)");
    EXPECT_EQ(descriptionWithLocale(Array{1, 2}), "2 (\n\t1, \n\t2, \n)");
    EXPECT_EQ(descriptionWithLocale(Array{"\"a\"", true, Value::null(), 0.1, 0.1f}, "zh_CN"),
              "5 (\n\t\"a\", \n\t1, \n\t<null>, \n\t0.1, \n\t0.1, \n)");
}

TEST(NSDictionaryCategory, describesToTheByteWithoutIndentingWhatIsNested) {
    EXPECT_EQ(descriptionWithLocale(Dictionary{}), "{\t\n }");
    EXPECT_EQ(descriptionWithLocale(Dictionary{{"a", 1}}), "{\t\n \t \"a\" = 1,\n}");
    const auto bytes = Value::data(std::vector<std::byte>(5, std::byte{0xAB}));
    EXPECT_EQ(
        descriptionWithLocale(Dictionary{{"z", Array{Dictionary{{"k", "中"}}}},
                                         {"a", bytes},
                                         {"d", NSDate::dateWithTimeIntervalSince1970(1483228800)}}),
        "{\t\n \t \"z\" = 1 (\n\t{\t\n \t \"k\" = 中,\n}, \n),\n"
        "\t \"a\" = <abababab ab>,\n\t \"d\" = 2017-01-01 00:00:00 +0000,\n}");
}

TEST(NSArrayCategory, describesNestsDeeperThanTheStack) {
    Array nest;
    for (int depth = 0; depth < 1'000'000; ++depth)
        nest = Array{Value(nest)};
    EXPECT_EQ(descriptionWithLocale(nest).size(), 1'000'000U * 9 + 5);
}

TEST(NSMutableArrayCategory, movesItems) {
    struct Move {
        std::size_t from;
        std::size_t to;
        Array outcome;
    };
    const Move moves[] = {
        {0, 2, {"b", "c", "a"}}, {2, 0, {"c", "a", "b"}}, {0, 1, {"b", "a", "c"}},
        {1, 2, {"a", "c", "b"}}, {2, 1, {"a", "c", "b"}}, {0, 3, {"a", "b", "c"}},
        {3, 0, {"a", "b", "c"}}, {1, 1, {"a", "b", "c"}}, {9, 9, {"a", "b", "c"}},
    };
    for (const Move& move : moves) {
        const Array array{"a", "b", "c"};
        zn_moveObjectFromIndex(array, move.from, move.to);
        EXPECT_EQ(Value(array), Value(move.outcome)) << move.from << " to " << move.to;
    }
    EXPECT_THROW(zn_moveObjectFromIndex(Array{1, 2}.copy(), 0, 1), NSException);
}
