#include "common/TextCompare.h"
#include "common/WildcardMatch.h"
#include "common/cSplit.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TEST(TextCompare, ListingOrderIsThatOfUpperCasedNames)
{
    // "_" sorts after the letters once they are upper case, as Windows lists it.
    EXPECT_LT(CompareIgnoreCase("Zeta", "_x"), 0);
    EXPECT_LT(CompareIgnoreCase("abc", "ABD"), 0);
    EXPECT_EQ(CompareIgnoreCase("Sky", "sKY"), 0);
    EXPECT_LT(CompareIgnoreCase("ab", "abc"), 0);
}

TEST(WildcardMatch, WindowsPatterns)
{
    EXPECT_TRUE(WildcardMatch("*.*", "noextension"));
    EXPECT_TRUE(WildcardMatch("*", ".hidden"));
    EXPECT_TRUE(WildcardMatch("*.bmp", "CLOUD3.BMP"));
    EXPECT_FALSE(WildcardMatch("*.bmp", "cloud3.bmp.txt"));
    EXPECT_TRUE(WildcardMatch("cloud?.bmp", "Cloud7.bmp"));
    EXPECT_FALSE(WildcardMatch("cloud?.bmp", "cloud10.bmp"));
    EXPECT_TRUE(WildcardMatch("*cld", "cumulus.CLD"));
    EXPECT_TRUE(WildcardMatch("a*b*c", "aXXbYYbZZc"));
    EXPECT_FALSE(WildcardMatch("a*b*c", "aXXbYYbZZ"));
    EXPECT_TRUE(WildcardMatch("readme.*", "README"));
    EXPECT_TRUE(WildcardMatch("exact.txt", "EXACT.TXT"));
    EXPECT_FALSE(WildcardMatch("exact.txt", "exact.txt2"));
}

TEST(cSplit, SplitsLeftToRightKeepingEmptyPiecesAndTheLastOne)
{
    cSplit list;
    list.split("a|b||c|", "|");
    ASSERT_EQ(list.count(), 5u);
    EXPECT_EQ(list.item(1), "a");
    EXPECT_EQ(list.item(3), "");
    EXPECT_EQ(list.item(4), "c");
    EXPECT_EQ(list.item(5), "");
}

TEST(cSplit, AppendsToWhatIsThereAndHandlesOddIndexes)
{
    cSplit list;
    list.split(std::string("folder\0one.mp3\0two.mp3", 22), std::string_view("\0", 1));
    list.add("three.mp3");
    list.split("x::y", "::");
    ASSERT_EQ(list.count(), 6u);
    EXPECT_EQ(list.item(1), "folder");
    EXPECT_EQ(list.item(4), "three.mp3");
    EXPECT_EQ(list.item(6), "y");
    EXPECT_EQ(list.item(0), "");
    EXPECT_EQ(list.item(7), "");
    list.remove(7); // outside: nothing happens
    list.remove(1);
    EXPECT_EQ(list.count(), 5u);
    EXPECT_EQ(list.item(1), "one.mp3");
}

TEST(cSplit, EmptyDelimiterKeepsTheTextWhole)
{
    cSplit list;
    list.split("abc", "");
    ASSERT_EQ(list.count(), 1u);
    EXPECT_EQ(list.item(1), "abc");
}

} // namespace
} // namespace vellumar
