#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSLog.h"

using namespace zn;

namespace {

class NSObjectZNJSON : public testing::Test {
protected:
    void SetUp() override {
        setLogSink([this](std::string_view line) { lines.emplace_back(line); });
    }
    void TearDown() override { setLogSink({}); }

    std::vector<std::string> lines;
};

std::string textOf(const Value& data) {
    return {reinterpret_cast<const char*>(data.bytes().data()), data.bytes().size()};
}

/// A value of every writable kind, with spaces and line breaks wherever they can be.
Value randomValue(std::mt19937& random, int depth) {
    static const std::string texts[] = {
        "",        " ",     "a b",     "\n", "line\nbreak ",
        "/ \" \\", "中 文", "\t\x01 ", "  ", "e f g h i j k l m n o p"};
    const auto text = [&] { return texts[random() % std::size(texts)]; };
    switch (random() % (depth > 0 ? 8 : 6)) {
        case 0:
            return Value::null();
        case 1:
            return random() % 2 == 0;
        case 2:
            return static_cast<std::int64_t>(random()) - 1000000;
        case 3:
            return static_cast<double>(random()) / 7;
        case 6: {
            Array items;
            for (auto count = random() % 4; count > 0; --count)
                items.add(randomValue(random, depth - 1));
            return items;
        }
        case 7: {
            Dictionary members;
            for (auto count = random() % 4; count > 0; --count)
                members.set(text(), randomValue(random, depth - 1));
            return members;
        }
        default:
            return text();
    }
}

}  // namespace

TEST_F(NSObjectZNJSON, dataIsPrettyPrinted) {
    EXPECT_EQ(textOf(zn_convertToJsonData(Dictionary{{"a", Array{1, "x y"}}})),
              "{\n  \"a\" : [\n    1,\n    \"x y\"\n  ]\n}");
    EXPECT_TRUE(zn_convertToJsonData(Value()).absent());
    EXPECT_TRUE(lines.empty());
}

TEST_F(NSObjectZNJSON, theStringLosesItsSpacesThoseWithinTextsIncludedOnPurpose) {
    EXPECT_EQ(zn_convertToJsonString(Dictionary{{"k", "a b"}}), R"({"k":"ab"})");
    EXPECT_EQ(zn_convertToJsonString(Dictionary{{"a key", " "}}), R"({"akey":""})");
    EXPECT_EQ(zn_convertToJsonString(Array{"line\nbreak\ttab / 中 文"}),
              R"(["line\nbreak\ttab\/中文"])");
    EXPECT_EQ(zn_convertToJsonString(Array{Array{}, Dictionary{}}), "[[],{}]");
    EXPECT_EQ(zn_convertToJsonString(Value()), std::nullopt);
}

TEST_F(NSObjectZNJSON, theStringIsTheDataWithoutItsSpacesAndLineBreaks) {
    std::mt19937 random(3);
    for (int turn = 0; turn < 2000; ++turn) {
        const Value value = Array{randomValue(random, 4)};
        std::string expected = textOf(zn_convertToJsonData(value));
        std::erase_if(expected, [](char byte) { return byte == ' ' || byte == '\n'; });
        ASSERT_EQ(zn_convertToJsonString(value), expected);
    }
}

TEST_F(NSObjectZNJSON, whatIsNoUTF8IsLoggedAndGivesNothing) {
    EXPECT_TRUE(zn_convertToJsonData(Array{"\xFF"}).absent());
    EXPECT_EQ(zn_convertToJsonString(Array{"\xFF"}), std::nullopt);
    const std::string line =
        "ConvertToJsonData Failed:Error Domain=NSCocoaErrorDomain Code=3852 \"A text is not UTF-8 "
        "and cannot be written as JSON.\" UserInfo={NSDebugDescription=A text is not UTF-8 and "
        "cannot be written as JSON.}";
    EXPECT_EQ(lines, (std::vector<std::string>{line, line}));
}

TEST_F(NSObjectZNJSON, whatIsNoArrayOrDictionaryRaises) {
    for (const Value& value : {Value("text"), Value(5), Value::null(), Value(make<NSObject>()),
                               Value(Array{Value::data({})})}) {
        EXPECT_THROW(zn_convertToJsonData(value), NSException);
        EXPECT_THROW(zn_convertToJsonString(value), NSException);
    }
    EXPECT_TRUE(lines.empty());
}

TEST_F(NSObjectZNJSON, readingGivesMutableContainers) {
    const Value value = ZN_ConvertToObject(R"({"a":[1,{}]})");
    EXPECT_EQ(value, Value(Dictionary{{"a", Array{1, Dictionary{}}}}));
    EXPECT_TRUE(value.dictionary().isMutable());
    EXPECT_TRUE(value.dictionary()["a"].array().isMutable());
    EXPECT_TRUE(value.dictionary()["a"].array()[1].dictionary().isMutable());
}

TEST_F(NSObjectZNJSON, anEmptyTextGivesNothingAndABrokenOneALine) {
    EXPECT_TRUE(ZN_ConvertToObject("").absent());
    EXPECT_TRUE(lines.empty());
    EXPECT_TRUE(ZN_ConvertToObject("[1").absent());
    EXPECT_TRUE(ZN_ConvertToObject("5").absent());
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0],
              "ConvertToObject Failed:Error Domain=NSCocoaErrorDomain Code=3840 \"Unfinished array "
              "at line 1, column 3.\" UserInfo={NSDebugDescription=Unfinished array at line 1, "
              "column 3., NSJSONSerializationErrorIndex=2}");
    EXPECT_TRUE(lines[1].starts_with("ConvertToObject Failed:Error Domain=NSCocoaErrorDomain "));
}
