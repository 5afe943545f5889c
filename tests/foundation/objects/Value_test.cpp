#include "zarnic/platform/foundation/Value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "zarnic/platform/foundation/NSException.h"

using namespace zn;

namespace {

class Named final : public NSObject {
public:
    explicit Named(std::string name) : name_(std::move(name)) {}
    bool isEqual(const NSObject& other) const override {
        const auto* named = dynamic_cast<const Named*>(&other);
        return named != nullptr && named->name_ == name_;
    }
    std::size_t hash() const override { return name_.size(); }
    std::string description() const override { return "named " + name_; }

private:
    std::string name_;
};

Value dataOf(std::string_view bytes) {
    return Value::data(std::as_bytes(std::span(bytes)));
}

constexpr auto notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr auto infinity = std::numeric_limits<double>::infinity();
constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

}  // namespace

TEST(Value, keepsTheKindItWasMadeFrom) {
    EXPECT_EQ(Value().kind(), Value::Kind::Absent);
    EXPECT_EQ(Value(static_cast<const char*>(nullptr)).kind(), Value::Kind::Absent);
    EXPECT_EQ(Value(Ref<Named>()).kind(), Value::Kind::Absent);
    EXPECT_EQ(Value::null().kind(), Value::Kind::Null);
    EXPECT_EQ(Value(true).kind(), Value::Kind::Boolean);
    EXPECT_EQ(Value('a').kind(), Value::Kind::Character);
    EXPECT_EQ(Value(7U).kind(), Value::Kind::Integer);
    EXPECT_EQ(Value(std::uint64_t{1} << 62).kind(), Value::Kind::Integer);
    EXPECT_EQ(Value(std::uint64_t{1} << 63).kind(), Value::Kind::Unsigned);
    EXPECT_EQ(Value(1.0F).kind(), Value::Kind::Float);
    EXPECT_EQ(Value(1.0).kind(), Value::Kind::Double);
    EXPECT_EQ(Value("text").kind(), Value::Kind::String);
    EXPECT_EQ(dataOf("").kind(), Value::Kind::Data);
}

TEST(Value, textsSurviveCopiesAndMovesAtEveryLength) {
    for (std::size_t length = 0; length < 40; ++length) {
        const std::string text(length, 'x');
        Value value(text);
        Value copy(value);
        Value moved(std::move(value));
        EXPECT_TRUE(value.absent());
        copy = copy;
        value = moved;
        moved = 5;
        EXPECT_EQ(copy.string(), text);
        EXPECT_EQ(value, copy);
    }
    EXPECT_EQ(Value(std::string_view("a\0b", 3)).string().size(), 3U);
    EXPECT_NE(dataOf("").bytes().data(), nullptr);
}

TEST(Value, movingAContainersOwnItemOverItIsSafe) {
    Value value = Array{Value(Array{"a text that is longer than the value"})};
    value = value.array()[0];
    value = value.array()[0];
    EXPECT_EQ(value.string(), "a text that is longer than the value");
}

TEST(Value, numberTextsFollowTheKind) {
    const std::pair<Value, const char*> cases[] = {
        {true, "1"},
        {false, "0"},
        {'a', "97"},
        {-5, "-5"},
        {smallest, "-9223372036854775808"},
        {~std::uint64_t{0}, "18446744073709551615"},
        {0.1F, "0.1"},
        {40000000.0F, "4e+07"},
        {11.2F, "11.2"},
        {0.1, "0.1"},
        {67860.04, "67860.03999999999"},
        {1.0 / 3, "0.3333333333333333"},
        {100.0, "100"},
        {1e20, "1e+20"},
        {-0.0, "-0"},
        {-notANumber, "nan"},
        {infinity, "inf"},
        {-infinity, "-inf"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(value.stringValue(), text);
}

TEST(Value, realsTruncateAndSaturateAsIntegers) {
    EXPECT_EQ(Value(-2.9).intValue(), -2);
    EXPECT_EQ(Value(2147483648.0).intValue(), 2147483647);
    EXPECT_EQ(Value(1e300).longLongValue(), largest);
    EXPECT_EQ(Value(0x1p63).longLongValue(), largest);
    EXPECT_EQ(Value(-1e300).longLongValue(), smallest);
    EXPECT_EQ(Value(notANumber).intValue(), 0);
    EXPECT_EQ(Value(1e19).unsignedLongLongValue(), 10000000000000000000U);
    EXPECT_EQ(Value(-1.0).unsignedLongLongValue(), ~std::uint64_t{0});
}

TEST(Value, integersKeepTheirLowBits) {
    EXPECT_EQ(Value(std::int64_t{1} << 32).intValue(), 0);
    EXPECT_EQ(Value(4294967295).intValue(), -1);
    EXPECT_EQ(Value(~std::uint64_t{0}).longLongValue(), -1);
    EXPECT_EQ(Value(~std::uint64_t{0}).doubleValue(), 18446744073709551616.0);
}

TEST(Value, aNumberIsTrueWhenItsIntegerPartIsNotZero) {
    EXPECT_TRUE(Value(-1).boolValue());
    EXPECT_FALSE(Value(0.5).boolValue());
    EXPECT_FALSE(Value(notANumber).boolValue());
    EXPECT_FALSE(Value::null().boolValue());
    EXPECT_FALSE(Value(Array{1}).boolValue());
    EXPECT_TRUE(Value("yes").boolValue());
}

TEST(Value, numbersAreEqualAcrossKindsWithEqualHashes) {
    const std::pair<Value, Value> equals[] = {
        {true, 1},
        {'a', 97},
        {50, 50.0F},
        {0.0, -0.0},
        {0x1p63, std::uint64_t{1} << 63},
        {-0x1p63, smallest},
        {0.5F, 0.5},
        {notANumber, -notANumber},
    };
    for (const auto& [left, right] : equals) {
        EXPECT_EQ(left, right) << left.description();
        EXPECT_EQ(left.hash(), right.hash()) << left.description();
    }
    const std::pair<Value, Value> different[] = {
        {50, 50.1F},
        {largest, 0x1p63},
        {(std::int64_t{1} << 53) + 1, 0x1p53},
        {-1, ~std::uint64_t{0}},
        {0.1F, 0.1},
        {0, Value::null()},
        {1, "1"},
        {infinity, -infinity},
        {Value(), Value::null()},
        {"ab", dataOf("ab")},
    };
    for (const auto& [left, right] : different)
        EXPECT_NE(left, right) << left.description();
}

TEST(Value, containersAreEqualByContent) {
    const Value first = Dictionary{{"a", 1}, {"b", Array{"x", 2.0, Value::null()}}};
    const Value second = Dictionary{{"b", Array{"x", 2, Value::null()}}, {"a", true}}.copy();
    EXPECT_EQ(first, second);
    EXPECT_EQ(first.hash(), second.hash());
    EXPECT_NE(first, Value(Dictionary{{"a", 1}, {"c", Array{"x", 2, Value::null()}}}));
    EXPECT_NE(Value(Array{1, 2}), Value(Array{2, 1}));
    EXPECT_NE(Value(Array{}), Value(Dictionary{}));
}

TEST(Value, objectsAreHeldAndComparedByTheirOwnRule) {
    auto object = make<Named>("a");
    const WeakRef<Named> weak = object;
    Value value(object);
    EXPECT_EQ(value.object<Named>(), object);
    EXPECT_EQ(value, Value(make<Named>("a")));
    EXPECT_NE(value, Value(make<Named>("b")));
    EXPECT_EQ(value.description(), "named a");
    object = nullptr;
    EXPECT_FALSE(weak.expired());
    value = Value();
    EXPECT_TRUE(weak.expired());
}

TEST(Value, describesAsThePlaceholderDoes) {
    EXPECT_EQ(Value().description(), "(null)");
    EXPECT_EQ(Value::null().description(), "<null>");
    EXPECT_EQ(Value("a \"b\"").description(), "a \"b\"");
    EXPECT_EQ(dataOf("\x01\x02\x03\x04\xFF").description(), "<01020304 ff>");
    EXPECT_EQ(dataOf("").description(), "<>");
    EXPECT_EQ(Value(Array{}).description(), "0 (\n)");
    EXPECT_EQ(Value(Array{1, 2}).description(), "2 (\n\t1, \n\t2, \n)");
    EXPECT_EQ(Value(Dictionary{{"a", Array{Dictionary{}}}, {"b", 2}}).description(),
              "{\t\n \t \"a\" = 1 (\n\t{\t\n }, \n),\n\t \"b\" = 2,\n}");
}

TEST(Value, aTypedReadOfAnotherKindIsEmptyOrThrows) {
    EXPECT_EQ(Value(5).string(), "");
    EXPECT_TRUE(Value("x").bytes().empty());
    EXPECT_EQ(Value("x").object(), nullptr);
    EXPECT_THROW(Value().array(), NSException);
    EXPECT_THROW(Value(Array{}).dictionary(), NSException);
}

TEST(Value, nestsDeeperThanTheStackAreUsable) {
    const auto nested = [](std::size_t depth) {
        Value value = 1;
        for (std::size_t i = 0; i < depth; ++i)
            value = i % 2 == 0 ? Value(Array{value}) : Value(Dictionary{{"k", value}});
        return value;
    };
    const Value first = nested(500'000);
    EXPECT_EQ(first, nested(500'000));
    EXPECT_NE(first, nested(500'002));
    EXPECT_GT(first.description().size(), 1'000'000U);
}
