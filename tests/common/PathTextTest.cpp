#include "common/PathText.h"

#include "support/FakeMessageService.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TEST(PathText, TrimTrailingBackslashRemovesEverySeparatorThenBlanks)
{
    std::string path = "C:\\a\\\\";
    EXPECT_EQ(TrimTrailingBackslash(path), "C:\\a");
    EXPECT_EQ(path, "C:\\a"); // changed in place as well
    EXPECT_EQ(TrimTrailingBackslash(std::string_view("  C:\\b\\ ")), "C:\\b\\");
    EXPECT_EQ(TrimTrailingBackslash(std::string_view("C:\\a")), "C:\\a");
    EXPECT_EQ(TrimTrailingBackslash(std::string_view("")), "");
}

#ifndef _WIN32
TEST(PathText, TheRootFolderSurvivesTrimmingOnLinux)
{
    EXPECT_EQ(TrimTrailingBackslash(std::string_view("/")), "/");
    EXPECT_EQ(TrimTrailingBackslash(std::string_view("//")), "/");
    EXPECT_EQ(TrimTrailingBackslash(std::string_view("/home/user/")), "/home/user");
}
#endif

TEST(PathText, TextAfterLastKeepsItsAsymmetry)
{
    EXPECT_EQ(TextAfterLast("\\abc", '\\'), "");
    EXPECT_EQ(TextAfterLast("abc", '\\'), "abc");
    EXPECT_EQ(TextAfterLast("a\\b\\ c ", '\\'), "c");
    EXPECT_EQ(TextAfterLast("a\\b\\", '\\'), "");
    EXPECT_EQ(TextAfterLast(" no separator ", '\\'), " no separator ");
}

TEST(PathText, FileNameOfPathEndingInSeparatorTellsTheUserAndGoesOn)
{
    test::FakeMessageService messages;
    EXPECT_EQ(FileNameOfPath("/data/Texture\\cloud3.bmp", messages), "cloud3.bmp");
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(FileNameOfPath("C:\\a\\", messages), "");
    ASSERT_EQ(messages.shown().size(), 1u);
    const auto& shown = messages.last();
    EXPECT_TRUE(shown.system);
    EXPECT_EQ(shown.title, "");
    EXPECT_EQ(shown.style, MessageStyle::OKOnly);
    EXPECT_EQ(shown.text, "ファイル名とりこみでパス名の最後に￥がありました。");
}

} // namespace
} // namespace vellumar
