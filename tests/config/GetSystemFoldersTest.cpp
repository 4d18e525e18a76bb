#include "config/GetSystemFolders.h"

#include "support/FakeMessageService.h"
#include "support/FakeSystemFolders.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TEST(GetSystemFolders, FillsTheThreeFoldersWithoutTrailingSeparators)
{
    test::FakeSystemFolders folders;
    folders.windows = std::string("C:\\WINDOWS\\\0junk", 16);
    folders.documents = "C:\\Users\\pilot\\Documents";
    folders.appData = "C:\\Users\\pilot\\AppData\\Roaming";
    test::FakeMessageService messages;
    SystemPaths paths;
    EXPECT_EQ(GetSystemFolders(folders, messages, paths), "OK");
    EXPECT_EQ(paths.WindowsPath, "C:\\WINDOWS");
    EXPECT_EQ(paths.MyDocumentsPath, "C:\\Users\\pilot\\Documents");
    EXPECT_EQ(paths.AppDataPath, "C:\\Users\\pilot\\AppData\\Roaming");
    EXPECT_TRUE(messages.empty());
}

TEST(GetSystemFolders, AnEmptyFolderIsAPathErrorWithAlignedLabels)
{
    test::FakeSystemFolders folders;
    folders.windows = "C:\\WINDOWS";
    folders.documents = "";
    folders.appData = "C:\\AppData";
    test::FakeMessageService messages;
    SystemPaths paths;
    EXPECT_EQ(GetSystemFolders(folders, messages, paths), "Error");
    ASSERT_EQ(messages.shown().size(), 1u);
    const auto& shown = messages.last();
    EXPECT_TRUE(shown.system);
    EXPECT_EQ(shown.title, "Path Error");
    EXPECT_EQ(shown.style, MessageStyle::OKOnly | MessageStyle::Critical);
    EXPECT_EQ(shown.text, "Can't get Windows path.\n"
                          "Windows         : C:\\WINDOWS\n"
                          "My Document     : \n"
                          "Application Data: C:\\AppData");
}

TEST(GetSystemFolders, AFolderTheSystemDoesNotGiveKeepsItsEarlierValue)
{
    test::FakeSystemFolders folders;
    folders.windows = "C:\\WINDOWS";
    test::FakeMessageService messages;
    SystemPaths paths;
    paths.MyDocumentsPath = "kept";
    paths.AppDataPath = "kept too";
    EXPECT_EQ(GetSystemFolders(folders, messages, paths), "OK");
    EXPECT_EQ(paths.MyDocumentsPath, "kept");
}

} // namespace
} // namespace vellumar
