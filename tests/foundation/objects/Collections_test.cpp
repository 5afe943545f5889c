#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/Value.h"

using namespace zn;

namespace {

template <class Call>
std::string thrownName(Call call) {
    try {
        call();
    } catch (const NSException& exception) {
        return exception.name();
    }
    return "nothing";
}

}  // namespace

TEST(Array, copiesShareAndCopyMakesNewForms) {
    Array array{1, 2};
    const Array shared = array;
    const Array frozen = array.copy();
    Array thawed = frozen.mutableCopy();
    array.add(3);
    thawed.removeAll();
    EXPECT_EQ(shared.count(), 3U);
    EXPECT_EQ(frozen.count(), 2U);
    EXPECT_TRUE(thawed.empty());
    EXPECT_TRUE(frozen.copy().identical(frozen));
    EXPECT_FALSE(frozen.isMutable());
    EXPECT_TRUE(Value(array).array().identical(array));
    EXPECT_FALSE(Value(array).copy().array().isMutable());
    EXPECT_TRUE(Value(frozen).mutableCopy().array().isMutable());
}

TEST(Array, insertsReplacesAndRemovesInPlace) {
    Array array{"b", "d"};
    array.insert(0, "a");
    array.insert(3, "e");
    array.replace(2, "c");
    array.remove(3);
    array.add(array[0]);
    EXPECT_EQ(Value(array), Value(Array{"a", "b", "c", "a"}));
}

TEST(Array, refusesAbsentItemsWrongIndicesAndChangesOfImmutableOnes) {
    Array array{1};
    Array frozen = array.copy();
    EXPECT_EQ(thrownName([&] { array.add(Value()); }), NSInvalidArgumentException);
    EXPECT_EQ(thrownName([&] { (void)Array{Value()}; }), NSInvalidArgumentException);
    EXPECT_EQ(thrownName([&] { (void)array[1]; }), NSRangeException);
    EXPECT_EQ(thrownName([&] { array.insert(2, 1); }), NSRangeException);
    EXPECT_EQ(thrownName([&] { array.replace(1, 1); }), NSRangeException);
    EXPECT_EQ(thrownName([&] { array.remove(1); }), NSRangeException);
    EXPECT_EQ(thrownName([&] { frozen.add(1); }), NSInternalInconsistencyException);
    EXPECT_EQ(thrownName([&] { frozen.removeAll(); }), NSInternalInconsistencyException);
    EXPECT_EQ(array.count(), 1U);
}

TEST(Dictionary, keepsInsertionOrderThroughReplacementAndRemoval) {
    Dictionary dictionary{{"c", 1}, {"a", 2}, {"b", 3}, {"d", 4}};
    dictionary.set("a", 5);
    dictionary.remove("c");
    dictionary.remove("missing");
    EXPECT_EQ(dictionary.allKeys(), (std::vector<std::string>{"a", "b", "d"}));
    dictionary.set("c", 6);
    EXPECT_EQ(dictionary.allKeys(), (std::vector<std::string>{"a", "b", "d", "c"}));
    EXPECT_EQ(dictionary["a"], 5);
    EXPECT_EQ(dictionary.entry(3).first, "c");
    EXPECT_FALSE(dictionary.contains("missing"));
}

TEST(Dictionary, refusesAbsentValuesWrongIndicesAndChangesOfImmutableOnes) {
    Dictionary dictionary{{"a", 1}};
    Dictionary frozen = dictionary.copy();
    EXPECT_EQ(thrownName([&] { dictionary.set("b", Value()); }), NSInvalidArgumentException);
    EXPECT_EQ(thrownName([&] { (void)dictionary.entry(1); }), NSRangeException);
    EXPECT_EQ(thrownName([&] { frozen.set("b", 1); }), NSInternalInconsistencyException);
    EXPECT_EQ(thrownName([&] { frozen.remove("a"); }), NSInternalInconsistencyException);
    EXPECT_EQ(thrownName([&] { frozen.removeAll(); }), NSInternalInconsistencyException);
}

TEST(Dictionary, agreesWithAModelUnderRandomChanges) {
    std::mt19937 random(7);
    Dictionary dictionary;
    std::vector<std::pair<std::string, int>> model;
    for (int step = 0; step < 20'000; ++step) {
        const std::string key =
            "key " + std::to_string(random() % 60) + std::string(random() % 2 * 20, '_');
        const auto found = std::ranges::find(model, key, &std::pair<std::string, int>::first);
        if (random() % 3 == 0) {
            dictionary.remove(key);
            if (found != model.end())
                model.erase(found);
        } else {
            dictionary.set(key, step);
            if (found != model.end())
                found->second = step;
            else
                model.emplace_back(key, step);
        }
        if (step % 1000 == 0)
            dictionary = dictionary.mutableCopy();
        ASSERT_EQ(dictionary.count(), model.size());
        if (!model.empty()) {
            const auto& [lastKey, lastValue] = model.back();
            ASSERT_EQ(dictionary.entry(model.size() - 1).first, lastKey);
            ASSERT_EQ(dictionary[lastKey], lastValue);
        }
    }
    std::size_t index = 0;
    for (const auto& [key, value] : dictionary) {
        EXPECT_EQ(key, model[index].first);
        EXPECT_EQ(value, model[index].second);
        ++index;
    }
    EXPECT_EQ(index, model.size());
}

TEST(Dictionary, rowsShareTheirKeysUntilOneChanges) {
    const KeyTable columns{"id", "name", "note"};
    std::vector<Value> cells{1, "first", "a note that is rather long"};
    Dictionary first(columns, cells);
    cells = {2, "second", Value()};
    const Dictionary second(columns, cells);
    EXPECT_EQ(first.entry(1).first.data(), second.entry(1).first.data());
    first.set("extra", true);
    EXPECT_EQ(first.count(), 4U);
    EXPECT_EQ(second.allKeys(), (std::vector<std::string>{"id", "name"}));
    EXPECT_EQ(columns.count(), 3U);
    EXPECT_THROW(Dictionary(columns, std::span(cells).first(2)), NSException);
}

TEST(Dictionary, anAbsentCellLeavesItsKeyOutAndMayBeSetLater) {
    std::vector<Value> cells{Value(), 2, Value()};
    Dictionary row(KeyTable{"a", "b", "c"}, cells);
    EXPECT_EQ(row.count(), 1U);
    EXPECT_EQ(row.entry(0).first, "b");
    EXPECT_EQ(Value(row), Value(Dictionary{{"b", 2}}));
    row.set("a", 1);
    EXPECT_EQ(row.allKeys(), (std::vector<std::string>{"b", "a"}));
}

TEST(Dictionary, acceptsItsOwnKeysAsArguments) {
    std::vector<Value> cells{1, 2, 3, Value()};
    Dictionary row(KeyTable{"a", "b", "c", "a key longer than fourteen"}, cells);
    row.remove(row.entry(0).first);
    row.remove(row.entry(0).first);
    EXPECT_EQ(row.allKeys(), (std::vector<std::string>{"c"}));
    row.set(row.entry(0).first, row["c"]);
    EXPECT_EQ(row["c"], 3);
}

TEST(Dictionary, removingManyKeysOneByOneIsNotQuadratic) {
    Dictionary dictionary;
    for (int i = 0; i < 200'000; ++i)
        dictionary.set(std::to_string(i), i);
    for (int i = 0; i < 200'000; ++i)
        dictionary.remove(std::to_string(i));
    EXPECT_TRUE(dictionary.empty());
}
