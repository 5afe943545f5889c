#include "zarnic/NSObject+ZNCategory.h"

#include <gtest/gtest.h>

using namespace zn;

TEST(NSObjectZNCategory, emptyTextAndDataCountAsNullAndEmptyContainersDoNot) {
    constexpr std::string_view zero("\0", 1);
    for (const Value& value : {Value(), Value::null(), Value(""), Value::data({})})
        EXPECT_FALSE(zn_NotNull(value)) << value.description();
    for (const Value& value :
         {Value(0), Value(false), Value(" "), Value(zero), Value(Array{}), Value(Dictionary{}),
          Value(make<NSObject>()), Value::data(std::as_bytes(std::span(zero)))})
        EXPECT_TRUE(zn_NotNull(value)) << value.description();
}

TEST(NSObjectZNCategory, typedArgumentsAnswerAsTheirValuesDo) {
    EXPECT_FALSE(zn_NotNull(""));
    EXPECT_FALSE(zn_NotNull(static_cast<const char*>(nullptr)));
    EXPECT_FALSE(zn_NotNull(std::string()));
    EXPECT_FALSE(zn_NotNull(std::string_view()));
    EXPECT_FALSE(zn_NotNull(std::optional<std::string>()));
    EXPECT_FALSE(zn_NotNull(std::optional<std::string>("")));
    EXPECT_FALSE(zn_NotNull(Ref<NSObject>()));
    EXPECT_TRUE(zn_NotNull("a"));
    EXPECT_TRUE(zn_NotNull(std::optional<std::string>("a")));
    EXPECT_TRUE(zn_NotNull(make<NSObject>()));
}
