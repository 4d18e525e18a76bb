#include "common/FileHelpers.h"

#include "common/FileOperations.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "support/CountingEventPump.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vellumar {
namespace {

// Paths written the Windows way, with "\" whatever the platform.
std::string Backslashed(std::string path)
{
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

class FileHelpersTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    std::unique_ptr<FileOperations> files = CreatePlatformFileOperations();
    test::CountingEventPump events;

    TextList sorted(TextList list)
    {
        std::sort(list.begin(), list.end());
        return list;
    }
};

TEST_F(FileHelpersTest, FileExistsFindsFilesFoldersAndPatterns)
{
    temp.write("Texture/cloud3.bmp");
    temp.write("Texture/readme.txt");
    EXPECT_EQ(FileExists(*files, temp / "Texture/cloud3.bmp"), "OK");
    EXPECT_EQ(FileExists(*files, temp / "Texture"), "OK");
    EXPECT_EQ(FileExists(*files, temp / "Texture/*.bmp"), "OK");
    EXPECT_EQ(FileExists(*files, temp / "Texture/*.wav"), "Error");
    EXPECT_EQ(FileExists(*files, temp / "Texture/missing.bmp"), "Error");
    EXPECT_EQ(FileExists(*files, temp / "Nowhere/cloud3.bmp"), "Error");
    EXPECT_EQ(FileExists(*files, ""), "Error");
    EXPECT_EQ(FileExists(*files, temp / "Texture/"), "Error"); // a search cannot end in "\"
}

TEST_F(FileHelpersTest, NamesAreFoundWithoutRegardToCaseAndWithBackslashes)
{
    temp.write("Texture/Clouds/CLOUD3.bmp");
    EXPECT_EQ(FileExists(*files, temp / "texture/CLOUDS/cloud3.BMP"), "OK");
    EXPECT_EQ(FileExists(*files, Backslashed(temp / "TEXTURE/clouds/Cloud3.bmp")), "OK");
    EXPECT_EQ(FileExists(*files, Backslashed(temp / "texture/clouds/*.BMP")), "OK");
    EXPECT_EQ(FolderExists(*files, Backslashed(temp / "TEXTURE/Clouds")), "OK");
    EXPECT_EQ(files->readFile(temp / "TEXTURE/CLOUDS/cloud3.bmp").value_or("?"), "x");
}

TEST_F(FileHelpersTest, FolderExistsOnlyForFolders)
{
    temp.write("data/file.txt");
    EXPECT_EQ(FolderExists(*files, temp / "data"), "OK");
    EXPECT_EQ(FolderExists(*files, temp / "data/"), "OK");
    EXPECT_EQ(FolderExists(*files, "  " + (temp / "data") + "  "), "OK");
    EXPECT_EQ(FolderExists(*files, temp / "data/file.txt"), "Error");
    EXPECT_EQ(FolderExists(*files, temp / "missing"), "Error");
    EXPECT_EQ(FolderExists(*files, ""), "Error");
    EXPECT_EQ(FolderExists(*files, "   "), "Error");
}

TEST_F(FileHelpersTest, MakeFolderPathCreatesTheWholeChain)
{
    const std::string deep = temp / "a/b/c";
    EXPECT_EQ(MakeFolderPath(*files, deep + kNativeSeparator), "OK");
    EXPECT_EQ(FolderExists(*files, deep), "OK");
    EXPECT_EQ(MakeFolderPath(*files, deep), "OK"); // already there
    temp.write("plain");
    EXPECT_EQ(MakeFolderPath(*files, temp / "plain/sub"), "Error");
}

TEST_F(FileHelpersTest, ListFilesAppendsFullPathsOfMatchingFilesOnly)
{
    temp.write("set/sky1.bmp");
    temp.write("set/SKY2.BMP");
    temp.write("set/cumulus.cld");
    temp.makeFolder("set/sub.bmp");
    TextList list{"kept"};
    ListFiles(*files, events, temp / "set", "*.bmp", list);
    EXPECT_EQ(sorted(list), sorted({"kept", temp / "set/SKY2.BMP", temp / "set/sky1.bmp"}));
    EXPECT_GT(events.calls, 0);
}

TEST_F(FileHelpersTest, ListFilesInTreeGivesFolderFilesBeforeSubfolderFiles)
{
    temp.write("root/b.bmp");
    temp.write("root/sub/a.bmp");
    temp.write("root/sub/deeper/c.bmp");
    temp.write("root/sub/deeper/skip.txt");
    TextList withSeparator, without;
    ListFilesInTree(*files, events, temp / "root" + kNativeSeparator, "*.bmp", withSeparator);
    ListFilesInTree(*files, events, temp / "root", "*.bmp", without);
    EXPECT_EQ(withSeparator, without);
    ASSERT_EQ(without.size(), 3u);
    EXPECT_EQ(without[0], temp / "root/b.bmp");
    EXPECT_EQ(without[1], temp / "root/sub/a.bmp");
    EXPECT_EQ(without[2], temp / "root/sub/deeper/c.bmp");
}

TEST_F(FileHelpersTest, CopiesNeverOverwriteAndKeepTheTimeStamp)
{
    const std::string source = temp.write("a.bmp", "new bytes");
    const std::string target = temp.write("b.bmp", "old");
    EXPECT_FALSE(files->copyFile(source, target));
    EXPECT_EQ(temp.read("b.bmp"), "old");
    const std::string fresh = temp / "c.bmp";
    ASSERT_TRUE(files->copyFile(source, fresh));
    EXPECT_EQ(temp.read("c.bmp"), "new bytes");
    EXPECT_EQ(files->modificationTime(source), files->modificationTime(fresh));
}

// The thunder-clap search of the message sounds: the first folder that holds the file, in any
// letter case, and nothing at all once an earlier search has found it.
TEST_F(FileHelpersTest, FindFileInTreeStopsAtTheFirstFindAndNeverAfterOne)
{
    temp.write("Sound/a/other.wav");
    temp.write("Sound/b/XTHUN4C.WAV");
    bool found = false;
    std::string folder;
    FindFileInTree(*files, events, temp / "Sound", "xthun4c.wav", found, &folder);
    EXPECT_TRUE(found);
    EXPECT_EQ(folder, temp / "Sound/b");

    folder = "unchanged";
    const int calls = events.calls;
    FindFileInTree(*files, events, temp / "Sound", "xthun4c.wav", found, &folder);
    EXPECT_EQ(folder, "unchanged");
    EXPECT_EQ(events.calls, calls);

    bool notFound = false;
    FindFileInTree(*files, events, temp / "Sound", "missing.wav", notFound);
    EXPECT_FALSE(notFound);
}

} // namespace
} // namespace vellumar
