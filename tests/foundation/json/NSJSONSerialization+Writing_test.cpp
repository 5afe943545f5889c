#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <random>

#include "tests/foundation/json/JSONTexts.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSException.h"

using namespace zn;
using namespace std::string_literals;

using Kind = Value::Kind;

TEST(NSJSONSerializationWriting, WritesThePlatformsTwoForms) {
    const Value value = Dictionary{
        {"key", 4},
        {"list", Array{1, Array{}, Dictionary{}, Array{Value::null()}}},
        {"none", Dictionary{}},
    };
    EXPECT_EQ(written(value), R"({"key":4,"list":[1,[],{},[null]],"none":{}})");
    EXPECT_EQ(written(value, NSJSONWritingOptions::PrettyPrinted), R"({
  "key" : 4,
  "list" : [
    1,
    [

    ],
    {

    },
    [
      null
    ]
  ],
  "none" : {

  }
})");
    EXPECT_EQ(written(Array{}, NSJSONWritingOptions::PrettyPrinted), "[\n\n]");
}

TEST(NSJSONSerializationWriting, WritesEachKindOfValue) {
    const std::pair<Value, const char*> cases[] = {
        {Value::null(), "null"},
        {true, "true"},
        {false, "false"},
        {'A', "65"},
        {-5, "-5"},
        {std::numeric_limits<std::uint64_t>::max(), "18446744073709551615"},
        {std::numeric_limits<std::int64_t>::min(), "-9223372036854775808"},
        {10.0, "10"},
        {100000.0, "100000"},
        {-0.0, "-0"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.30000000000000004"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {9007199254740993.0, "9007199254740992"},
        {1e16, "10000000000000000"},
        {1e17, "1e+17"},
        {1e300, "1e+300"},
        {5e-324, "5e-324"},
        {-1.5e-7, "-1.5e-07"},
        {0.45f, "0.45"},
        {4e7f, "40000000"},
        {"", R"("")"},
        {"\"\\/\b\f\n\r\t", R"("\"\\\/\b\f\n\r\t")"},
        {"\x01\x1F\x7F", "\"\\u0001\\u001f\x7F\""},
        {"a\0b"s, R"("a\u0000b")"},
        {"中文 größer 😀", R"("中文 größer 😀")"},
        {"https://example.com/a/b?c=d e", R"("https:\/\/example.com\/a\/b?c=d e")"},
        {"0123456\"89012345\\7", R"("0123456\"89012345\\7")"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(written(Array{value}), "[" + std::string(text) + "]");
        if (value.kind() != Kind::Float) {
            EXPECT_EQ(readItem(text), value) << text;
        }
    }
    EXPECT_EQ(written(Dictionary{{"a/\n", 1}}), R"({"a\/\n":1})");
}

TEST(NSJSONSerializationWriting, RealsHaveTheShortestTextThatReadsAsTheSame) {
    std::mt19937_64 random(5);
    for (int turn = 0; turn < 20000; ++turn) {
        const auto digits = static_cast<double>(random() % 1'000'000'000'000'000) /
                            std::pow(10, static_cast<double>(random() % 16));
        const double number = digits / std::pow(10, static_cast<double>(random() % 8));
        if (number < 1e-4)
            continue;
        char shortest[64];
        const auto end =
            std::to_chars(shortest, std::end(shortest), -number, std::chars_format::fixed).ptr;
        const std::string text = written(Array{-number});
        ASSERT_EQ(text, "[" + std::string(shortest, end) + "]");
        ASSERT_EQ(read(text), Value(Array{-number}));
    }
}

TEST(NSJSONSerializationWriting, WhatCannotBeWrittenRaises) {
    Array endless;
    endless.add(endless);
    const Value refused[] = {
        Value(),
        Value::null(),
        5,
        true,
        "text",
        Value::data({}),
        make<NSObject>(),
        Array{std::nan("")},
        Array{std::numeric_limits<double>::infinity()},
        Array{-std::numeric_limits<float>::infinity()},
        Array{Value::data({})},
        Dictionary{{"date", NSDate::dateWithTimeIntervalSince1970(0)}},
        // A refusal counts more than a text that is not UTF-8.
        Array{"\xFF", std::nan("")},
        endless,
    };
    for (const auto& value : refused) {
        EXPECT_FALSE(NSJSONSerialization::isValidJSONObject(value));
        try {
            NSJSONSerialization::dataWithJSONObject(value);
            ADD_FAILURE() << "nothing was raised";
        } catch (const NSException& exception) {
            EXPECT_EQ(exception.name(), NSInvalidArgumentException);
        }
    }
    endless.removeAll();
    for (const Value& data : {Value(), Value("[]"), Value(Array{})})
        EXPECT_THROW(NSJSONSerialization::JSONObjectWithData(data), NSException);
}

TEST(NSJSONSerializationWriting, ATextThatIsNotUTF8IsAnErrorOfWriting) {
    for (const Value& value :
         {Value(Array{"\xFF"}), Value(Array{"\xED\xA0\x80"}), Value(Dictionary{{"\xC3", 1}}),
          Value(Array{"0123456789\xE4\xB8"})}) {
        Ref<NSError> error;
        EXPECT_TRUE(NSJSONSerialization::isValidJSONObject(value));
        EXPECT_TRUE(
            NSJSONSerialization::dataWithJSONObject(value, NSJSONWritingOptions::None, &error)
                .absent());
        ASSERT_NE(error, nullptr);
        EXPECT_EQ(error->domain(), NSCocoaErrorDomain);
        EXPECT_EQ(error->code(), NSPropertyListWriteInvalidError);
    }
}
