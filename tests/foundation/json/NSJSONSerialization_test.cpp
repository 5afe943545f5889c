#include "zarnic/platform/foundation/NSJSONSerialization.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/foundation/json/JSONTexts.h"
#include "zarnic/platform/foundation/NSException.h"

using namespace zn;
using namespace std::string_literals;

namespace {

using Kind = Value::Kind;

/// ASCII text in units of that many bytes.
std::string widened(std::string_view text, std::size_t unitLength, bool bigEndian) {
    std::string bytes;
    for (const char character : text) {
        const std::string zeros(unitLength - 1, '\0');
        bytes += bigEndian ? zeros + character : character + zeros;
    }
    return bytes;
}

}  // namespace

TEST(NSJSONSerialization, NumbersKeepTheirKindAndValue) {
    struct Case {
        const char* text;
        Kind kind;
        Value value;
    };
    const Case cases[] = {
        {"0", Kind::Integer, 0},
        {"-0", Kind::Integer, 0},
        {"-12", Kind::Integer, -12},
        {"9223372036854775807", Kind::Integer, std::numeric_limits<std::int64_t>::max()},
        {"-9223372036854775808", Kind::Integer, std::numeric_limits<std::int64_t>::min()},
        {"9223372036854775808", Kind::Unsigned, std::uint64_t{1} << 63},
        {"18446744073709551615", Kind::Unsigned, std::numeric_limits<std::uint64_t>::max()},
        {"18446744073709551616", Kind::Double, 18446744073709551616.0},
        {"-9223372036854775809", Kind::Double, -9223372036854775809.0},
        {"100000000000000000000000000000", Kind::Double, 1e29},
        {"1.0", Kind::Double, 1.0},
        {"-0.0", Kind::Double, -0.0},
        {"0.1", Kind::Double, 0.1},
        {"1e2", Kind::Double, 100.0},
        {"1E+2", Kind::Double, 100.0},
        {"25e-1", Kind::Double, 2.5},
        {"1.7976931348623157e308", Kind::Double, std::numeric_limits<double>::max()},
        {"5e-324", Kind::Double, std::numeric_limits<double>::denorm_min()},
        {"1e-400", Kind::Double, 0.0},
        {"0.3000000000000000444089209850062616169452667236328125", Kind::Double, 0.1 + 0.2},
        {"9007199254740993.0", Kind::Double, 9007199254740992.0},
        {"123456789012345678901234567890e-20", Kind::Double, 1234567890.1234567},
        {"true", Kind::Boolean, true},
        {"false", Kind::Boolean, false},
    };
    for (const auto& [text, kind, value] : cases) {
        const Value number = readItem(text);
        EXPECT_EQ(number.kind(), kind) << text;
        EXPECT_EQ(number, value) << text;
    }
    EXPECT_TRUE(std::signbit(readItem("-0.0").doubleValue()));
    EXPECT_TRUE(std::signbit(readItem("-1e-400").doubleValue()));
    // Many zeros and a small exponent are a number like any other.
    EXPECT_EQ(readItem("0." + repeated("0", 400) + "1e401"), Value(1.0));
    EXPECT_EQ(readItem("1" + repeated("0", 400) + "e-400"), Value(1.0));
    EXPECT_TRUE(readItem("1" + repeated("0", 400) + "e-1").absent());
    EXPECT_EQ(readItem("0." + repeated("0", 400) + "1e1"), Value(0.0));
}

TEST(NSJSONSerialization, TextsAreUnescaped) {
    const std::pair<std::string, std::string> cases[] = {
        {R"("")", ""},
        {R"("a text longer than a value holds itself")", "a text longer than a value holds itself"},
        {R"("\"\\\/\b\f\n\r\t")", "\"\\/\b\f\n\r\t"},
        {R"("\u0041\u00e9\u4E2D\uFFFF")", "Aé中\xEF\xBF\xBF"},
        {R"("\ud83d\ude00 \uD834\uDD1E")", "😀 𝄞"},
        {R"("a\u0000b")", "a\0b"s},
        {"\"中文, größer\x7F\"", "中文, größer\x7F"},
        {"\"" + repeated("1234567\\n", 3) + "\"", repeated("1234567\n", 3)},
    };
    for (const auto& [text, meaning] : cases)
        EXPECT_EQ(readItem(text), Value(meaning)) << text;
}

TEST(NSJSONSerialization, EveryEncodingIsTold) {
    const Value expected = Dictionary{{"a", Array{1, "x"}}};
    const std::string text = R"({"a":[1,"x"]})";
    EXPECT_EQ(read(text), expected);
    EXPECT_EQ(read("\xEF\xBB\xBF" + text), expected);
    for (const std::size_t unit : {2U, 4U}) {
        for (const bool bigEndian : {false, true}) {
            const std::string bytes = widened(text, unit, bigEndian);
            std::string mark = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
            if (unit == 4)
                mark = bigEndian ? "\0\0\xFE\xFF"s : "\xFF\xFE\0\0"s;
            EXPECT_EQ(read(bytes), expected) << unit << bigEndian;
            EXPECT_EQ(read(mark + bytes), expected) << unit << bigEndian;
            // A unit that is not whole, and half of a pair.
            EXPECT_TRUE(read(bytes + "\0"s).absent()) << unit << bigEndian;
        }
    }
    EXPECT_EQ(read("[\0\"\0\x3D\xD8\x00\xDE\"\0]\0"s), Value(Array{"😀"}));
    EXPECT_TRUE(read("[\0\"\0\x3D\xD8\"\0]\0"s).absent());
    EXPECT_TRUE(read("[\0\"\0\x00\xDE\"\0]\0"s).absent());
    EXPECT_TRUE(read("[\0\0\0\"\0\0\0\0\0\x11\0\"\0\0\0]\0\0\0"s).absent());
    EXPECT_EQ(read("\"\0-N\"\0"s, NSJSONReadingOptions::AllowFragments), Value("中"));
}

TEST(NSJSONSerialization, TextThatIsNotUTF8IsRefused) {
    for (const std::string bytes :
         {"\x80", "\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF0\x80\x80\xAF",
          "\xF4\x90\x80\x80", "\xFC\x83\xBF\xBF\xBF\xBF", "\xFF", "\xE4\xB8",
          "aaaaaaaaaaaaaaaa\xE9"})
        for (const std::string& text :
             {"[\"" + bytes + "\"]", "[\"\\n" + bytes + "\"]", "[\"" + bytes + "\\n\"]",
              "{\"" + bytes + "\":1}", "[" + bytes + "]", "[1]" + bytes})
            EXPECT_TRUE(read(text).absent()) << text;
}

TEST(NSJSONSerialization, AnErrorSaysWhatAndWhere) {
    struct Case {
        std::string text;
        const char* says;
        std::int64_t byte;
    };
    const Case cases[] = {
        {"", "No value at line 1, column 1.", 0},
        {" \n\t", "No value at line 2, column 2.", 3},
        {"[1", "Unfinished array at line 1, column 3.", 2},
        {"{\"a\":", "Unexpected end of the text at line 1, column 6.", 5},
        {"{\"a\":1", "Unfinished object at line 1, column 7.", 6},
        {"[1 2]", "Expected a comma or the end of the array at line 1, column 4.", 3},
        {"{\"a\":1 \"b\":2}", "Expected a comma or the end of the object at line 1, column 8.", 7},
        {"{\n \"é\" 1}", "Expected a colon after the key at line 2, column 6.", 8},
        {"{1:2}", "Expected a text as key at line 1, column 2.", 1},
        {"[,1]", "Expected a value at line 1, column 2.", 1},
        {"[1,,]", "Expected a value at line 1, column 4.", 3},
        {"{,}", "Expected a text as key at line 1, column 2.", 1},
        {"[nul]", "Unknown word at line 1, column 2.", 1},
        {"[1]]", "Garbage after the value at line 1, column 4.", 3},
        {"[\"abc", "Unfinished text at line 1, column 2.", 1},
        {"[\"a\\", "Unfinished text at line 1, column 4.", 3},
        {"[\"a\nb\"]", "Control character within a text at line 1, column 4.", 3},
        {"[\"\\x\"]", "Unknown escape at line 1, column 3.", 2},
        {"[\"\\u12\"]", "Escape without four hexadecimal digits at line 1, column 3.", 2},
        {"[\"\\ud800\"]", "Surrogate without its other half at line 1, column 3.", 2},
        {"[\"\\udc00\"]", "Surrogate without its other half at line 1, column 3.", 2},
        {"[\"\\ud800\\u0041\"]", "Surrogate without its other half at line 1, column 3.", 2},
        {"[\"\xFF\"]", "Text that is not UTF-8 at line 1, column 3.", 2},
        {"[01]", "Number with a leading zero at line 1, column 2.", 1},
        {"[-]", "Minus without digits at line 1, column 3.", 2},
        {"[1.]", "Expected a digit after the decimal point at line 1, column 4.", 3},
        {"[1e+]", "Expected a digit in the exponent at line 1, column 5.", 4},
        {"[1e400]", "Number too large at line 1, column 2.", 1},
        {"[NaN]", "Expected a value at line 1, column 2.", 1},
        {"5",
         "Text begins with no array or object, and fragments are not allowed at line 1, column 1.",
         0},
        {repeated("[", 513), "Too many arrays and objects within each other at line 1, column 513.",
         512},
        // The byte counts in the data as given, its mark included.
        {"\xEF\xBB\xBF[x]", "Expected a value at line 1, column 2.", 4},
        {"\xFF\xFE" + widened("[1\n,x]", 2, false), "Expected a value at line 2, column 2.", 10},
        {widened("[x]", 4, true), "Expected a value at line 1, column 2.", 4},
        {"[\0\"\0\x3D\xD8\"\0"s, "Text that is not Unicode at line 1, column 3.", 4},
    };
    for (const auto& [text, says, byte] : cases) {
        Ref<NSError> error;
        EXPECT_TRUE(read(text, NSJSONReadingOptions::None, &error).absent()) << text;
        ASSERT_NE(error, nullptr) << text;
        EXPECT_EQ(error->domain(), NSCocoaErrorDomain);
        EXPECT_EQ(error->code(), 3840);
        EXPECT_EQ(error->userInfo()[NSDebugDescriptionErrorKey], Value(says)) << text;
        EXPECT_EQ(error->userInfo()[NSJSONSerializationErrorIndex], Value(byte)) << text;
    }
}

TEST(NSJSONSerialization, ASuccessLeavesTheErrorAlone) {
    const auto before = NSError::errorWithDomain("D", 1);
    auto error = before;
    EXPECT_FALSE(read("[]", NSJSONReadingOptions::None, &error).absent());
    EXPECT_FALSE(
        NSJSONSerialization::dataWithJSONObject(Array{}, NSJSONWritingOptions::None, &error)
            .absent());
    EXPECT_EQ(error, before);
}

TEST(NSJSONSerialization, OptionsDecideFormsAndFragments) {
    const std::string text = R"({"a":[{}]})";
    for (const bool mutableForm : {false, true}) {
        const auto value = read(text, mutableForm ? NSJSONReadingOptions::MutableContainers
                                                  : NSJSONReadingOptions::MutableLeaves)
                               .dictionary();
        EXPECT_EQ(value.isMutable(), mutableForm);
        EXPECT_EQ(value["a"].array().isMutable(), mutableForm);
        EXPECT_EQ(value["a"].array()[0].dictionary().isMutable(), mutableForm);
    }
    for (const auto& [fragment, value] : {std::pair<const char*, Value>{" \"x\" ", "x"},
                                          {"-5", -5},
                                          {"null", Value::null()},
                                          {"true\n", true}}) {
        EXPECT_TRUE(read(fragment).absent()) << fragment;
        EXPECT_EQ(read(fragment, NSJSONReadingOptions::MutableContainers |
                                     NSJSONReadingOptions::AllowFragments),
                  value);
    }
}

TEST(NSJSONSerialization, OfMembersWithTheSameKeyTheFirstCounts) {
    const auto value = read(R"({"a":1,"b":[2],"\u0061":3,"b":{"x":4},"c":5,"a":6})").dictionary();
    EXPECT_EQ(value.allKeys(), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(Value(value), Value(Dictionary{{"a", 1}, {"b", Array{2}}, {"c", 5}}));
    // The same objects again, in the order expected and in others.
    const auto items = read(R"([{"a":1,"b":2},{"a":3,"b":4},{"a":5,"a":6,"b":7},{"b":8,"a":9},{},
                                {"b":10},{"a":11,"b":12,"c":13},{"a\"b":14},{"a\"b":15}])")
                           .array();
    const Array expected{Dictionary{{"a", 1}, {"b", 2}},
                         Dictionary{{"a", 3}, {"b", 4}},
                         Dictionary{{"a", 5}, {"b", 7}},
                         Dictionary{{"b", 8}, {"a", 9}},
                         Dictionary{},
                         Dictionary{{"b", 10}},
                         Dictionary{{"a", 11}, {"b", 12}, {"c", 13}},
                         Dictionary{{"a\"b", 14}},
                         Dictionary{{"a\"b", 15}}};
    EXPECT_EQ(Value(items), Value(expected));
    EXPECT_EQ(items[3].dictionary().allKeys(), (std::vector<std::string>{"b", "a"}));
}

TEST(NSJSONSerialization, ObjectsOfAnyNumberOfKeysKeepThemAll) {
    std::string text = "[";
    Array expected;
    int key = 0;
    for (const int count : {1, 12, 13, 127, 128, 129, 130, 1000, 100000}) {
        Dictionary members;
        text += text.size() > 1 ? ",{" : "{";
        for (int i = 0; i < count; ++i, ++key) {
            text += (i > 0 ? ",\"" : "\"") + std::to_string(key) + "\":" + std::to_string(i);
            members.set(std::to_string(key), i);
        }
        // A key that was there, at the end of all of them.
        text += ",\"" + std::to_string(key - 1) + "\":null}";
        expected.add(members);
    }
    const Value value = read(text + "]", NSJSONReadingOptions::MutableContainers);
    EXPECT_EQ(value, Value(expected));
    // Changing one of them leaves those alone that had the same keys.
    const auto twins =
        read(R"([{"a":1},{"a":2}])", NSJSONReadingOptions::MutableContainers).array();
    auto first = twins[0].dictionary();
    first.set("b", 3);
    first.remove("a");
    EXPECT_EQ(Value(twins), Value(Array{Dictionary{{"b", 3}}, Dictionary{{"a", 2}}}));
}

TEST(NSJSONSerialization, NestsGoToTheirBound) {
    constexpr std::size_t deepest = NSJSONSerialization::maximumDepth;
    EXPECT_EQ(read(repeated("[", deepest) + repeated("]", deepest)), nested(deepest));
    EXPECT_TRUE(read(repeated("[", deepest + 1) + repeated("]", deepest + 1)).absent());
    EXPECT_TRUE(read(repeated("{\"a\":", deepest + 1) + "1" + repeated("}", deepest + 1)).absent());
    EXPECT_TRUE(read(repeated("[", 100000)).absent());
    EXPECT_TRUE(read(repeated("[{\"\":", 50000) + "\n").absent());
    EXPECT_EQ(written(nested(deepest)), repeated("[", deepest) + repeated("]", deepest));
    EXPECT_THROW(written(nested(deepest + 1)), NSException);
}

TEST(NSJSONSerialization, ValuesOfOneTextOutliveEachOther) {
    std::vector<Value> kept;
    for (int turn = 0; turn < 3; ++turn) {
        std::string text = "[";
        for (int i = 0; i < 3000; ++i)
            text +=
                (i > 0 ? ",{\"text\":\"a text longer than a value holds " : "{\"text\":\"first ") +
                std::to_string(i) + "\",\"list\":[" + std::to_string(i) + ",[true]]}";
        const auto items = read(text + "]", NSJSONReadingOptions::MutableContainers).array();
        for (std::size_t i = 1; i < items.count(); i += 97) {
            kept.push_back(items[i].dictionary()["text"]);
            auto list = items[i].dictionary()["list"].array();
            list.insert(0, "a new item that is longer than a value holds");
            kept.push_back(list);
        }
    }
    for (std::size_t k = 0; k < kept.size(); k += 2) {
        const int i = static_cast<int>(1 + 97 * (k / 2 % (kept.size() / 6)));
        EXPECT_EQ(kept[k], Value("a text longer than a value holds " + std::to_string(i)));
        EXPECT_EQ(kept[k + 1],
                  Value(Array{"a new item that is longer than a value holds", i, Array{true}}));
    }
}
