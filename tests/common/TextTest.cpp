#include "common/WildcardMatch.h"
#include "common/cSplit.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

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

} // namespace
} // namespace vellumar
