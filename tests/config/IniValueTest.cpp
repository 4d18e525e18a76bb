#include "config/IniValue.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TEST(IniValue, EverythingFromTheFirstApostropheIsAComment)
{
    EXPECT_EQ(StripIniComment("sky 'comment"), "sky");
    EXPECT_EQ(StripIniComment("'"), "");
    EXPECT_EQ(StripIniComment("  a b ' c ' d"), "a b");
    EXPECT_EQ(StripIniComment("  no comment  "), "  no comment  ");
    EXPECT_EQ(StripIniComment("Error"), "Error");
}

TEST(IniValue, Booleans)
{
    EXPECT_EQ(ParseBooleanText("TRUE"), true);
    EXPECT_EQ(ParseBooleanText(" false "), false);
    EXPECT_EQ(ParseBooleanText("0"), false);
    EXPECT_EQ(ParseBooleanText("-1"), true);
    EXPECT_EQ(ParseBooleanText("2.5"), true);
    EXPECT_EQ(ParseBooleanText("yes"), std::nullopt);
    EXPECT_EQ(ParseBooleanText(""), std::nullopt);
    EXPECT_EQ(ParseBooleanText("Error"), std::nullopt);
}

TEST(IniValue, Numbers)
{
    EXPECT_TRUE(IsNumericText(" 12 "));
    EXPECT_TRUE(IsNumericText("-3.5"));
    EXPECT_TRUE(IsNumericText(".5"));
    EXPECT_TRUE(IsNumericText("1e3"));
    EXPECT_FALSE(IsNumericText("abc"));
    EXPECT_FALSE(IsNumericText("12abc"));
    EXPECT_FALSE(IsNumericText("1e"));
    EXPECT_FALSE(IsNumericText("."));
    EXPECT_FALSE(IsNumericText(""));
    EXPECT_EQ(ParseInteger16("75"), 75);
    EXPECT_EQ(ParseInteger16("2.5"), 2); // halves to even
    EXPECT_EQ(ParseInteger16("3.5"), 4);
    EXPECT_EQ(ParseInteger16("-2"), -2);
    EXPECT_EQ(ParseInteger16("40000"), std::nullopt);
    EXPECT_EQ(ParseInteger16("x"), std::nullopt);
}

} // namespace
} // namespace vellumar
