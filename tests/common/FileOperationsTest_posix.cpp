// Behaviour that Linux has to add to be like Windows: letter case, "\" and the listing order.

#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/ReplaceFile.h"
#include "support/CountingEventPump.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace vellumar {
namespace {

class PosixFileOperationsTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    std::unique_ptr<FileOperations> files = CreatePlatformFileOperations();
    test::CountingEventPump events;
};

TEST_F(PosixFileOperationsTest, ResolveFindsTheSpellingOnDisk)
{
    temp.write("Data/Texture/Sky Blue/SKY0.bmp");
    EXPECT_EQ(files->resolve(temp.path() + "\\data\\TEXTURE\\sky blue\\sky0.BMP"),
              temp / "Data/Texture/Sky Blue/SKY0.bmp");
    // Components that do not exist keep their spelling after the last one found.
    EXPECT_EQ(files->resolve(temp.path() + "\\DATA\\new\\File.txt"), temp / "Data/new/File.txt");
}

TEST_F(PosixFileOperationsTest, SizesAreOfFilesFoundInAnyLetterCase)
{
    temp.write("Texture/Cloud1.bmp", std::string(70000, 'c'));
    EXPECT_EQ(files->fileSize(temp.path() + "\\texture\\CLOUD1.BMP"), 70000u);
    EXPECT_EQ(files->fileSize(temp.path() + "\\Texture"), std::nullopt);
    EXPECT_EQ(files->fileSize(temp.path() + "\\Texture\\missing.bmp"), std::nullopt);
}

TEST_F(PosixFileOperationsTest, OfSeveralCaseVariantsTheFirstInListingOrderWins)
{
    temp.write("dir/readme.TXT", "lower");
    temp.write("dir/README.TXT", "upper");
    // The exact spelling always wins.
    EXPECT_EQ(files->readFile(temp / "dir/readme.TXT").value_or(""), "lower");
    EXPECT_EQ(files->readFile(temp / "dir/Readme.txt").value_or(""), "upper");
}

TEST_F(PosixFileOperationsTest, ACachedListingNoticesAChangedFolder)
{
    temp.makeFolder("watched");
    EXPECT_EQ(FileExists(*files, temp / "watched/NEW.BMP"), "Error"); // listing cached
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    EXPECT_EQ(FileExists(*files, temp / "watched/OTHER.BMP"), "Error"); // trusted now
    temp.write("watched/new.bmp");
    EXPECT_EQ(FileExists(*files, temp / "watched/NEW.BMP"), "OK");
    // Added right after the listing, within the same tick of the file system's clock.
    temp.write("watched/second.bmp");
    EXPECT_EQ(FileExists(*files, temp / "watched/SECOND.BMP"), "OK");
}

TEST_F(PosixFileOperationsTest, FoldersAreListedInTheOrderWindowsListsThem)
{
    for (const char* name : {"b.bmp", "_c.bmp", "A.bmp", "a2.bmp", "C.bmp"})
        temp.write(std::string("set/") + name);
    TextList list;
    ListFiles(*files, events, temp / "set", "*.*", list);
    EXPECT_EQ(list, (TextList{temp / "set/A.bmp", temp / "set/a2.bmp", temp / "set/b.bmp",
                              temp / "set/C.bmp", temp / "set/_c.bmp"}));
}

TEST_F(PosixFileOperationsTest, ASearchIncludesTheDotEntriesLikeWindows)
{
    temp.makeFolder("empty");
    EXPECT_EQ(FileExists(*files, temp / "empty/*.*"), "OK");
    EXPECT_EQ(FileExists(*files, temp / "empty/*.bmp"), "Error");
}

TEST_F(PosixFileOperationsTest, ReadOnlyHoldsEvenForRoot)
{
    const std::string file = temp.write("locked.bmp");
    ASSERT_TRUE(files->setAttributes(file, FileAttribute::ReadOnly));
    EXPECT_FALSE(files->deleteFile(file));
    EXPECT_FALSE(files->renameOver(temp.write("other.bmp"), file));
    EXPECT_EQ(temp.read("locked.bmp"), "x");
}

TEST_F(PosixFileOperationsTest, ReplacingAFileRemovesItsCaseVariants)
{
    temp.write("texture/CLOUD3.BMP", "variant");
    temp.write("texture/cloud3.bmp", "old");
    const std::string source = temp.write("set/cloud3.bmp", "new");
    ASSERT_TRUE(ReplaceFileWithCopy(*files, source, temp / "texture/cloud3.bmp"));
    TextList list;
    ListFiles(*files, events, temp / "texture", "*.*", list);
    EXPECT_EQ(list, (TextList{temp / "texture/cloud3.bmp"}));
    EXPECT_EQ(temp.read("texture/cloud3.bmp"), "new");
}

TEST_F(PosixFileOperationsTest, AVariantMadeBetweenTwoReplacementsIsFoundByTheSecond)
{
    temp.write("texture/cloud3.bmp", "old");
    const std::string source = temp.write("set/cloud3.bmp", "new");
    ASSERT_TRUE(ReplaceFileWithCopy(*files, source, temp / "texture/cloud3.bmp"));
    // Someone else adds a variant later on, as a user copying files by hand would.
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    temp.write("texture/Cloud3.BMP", "by hand");
    ASSERT_TRUE(ReplaceFileWithCopy(*files, source, temp / "texture/cloud3.bmp"));
    TextList list;
    ListFiles(*files, events, temp / "texture", "*.*", list);
    EXPECT_EQ(list, (TextList{temp / "texture/cloud3.bmp"}));
}

TEST_F(PosixFileOperationsTest, AUniqueNameIsTakenAsSpelledInAFolderFoundInAnyCase)
{
    temp.write("Texture/cloud3.bmp", "old");
    const std::string source = temp.write("set/cloud3.bmp", "new");
    ASSERT_TRUE(files->copyFileToUniqueName(source, temp.path() + "\\TEXTURE\\.Fresh-1.tmp"));
    EXPECT_EQ(temp.read("Texture/.Fresh-1.tmp"), "new");
    // It never overwrites, and a folder that does not exist is no place for it.
    EXPECT_FALSE(files->copyFileToUniqueName(source, temp / "Texture/.Fresh-1.tmp"));
    EXPECT_FALSE(files->copyFileToUniqueName(source, temp / "Missing/.Fresh-2.tmp"));
}

TEST_F(PosixFileOperationsTest, ALinkToAFolderCountsAsAFolderButAWalkEnds)
{
    temp.write("lib/real/set.bmp");
    std::filesystem::create_directory_symlink(temp / "lib", temp / "lib/real/loop");
    TextList list;
    ListFilesInTree(*files, events, temp / "lib", "*.bmp", list);
    EXPECT_FALSE(list.empty());
    EXPECT_EQ(list.front(), temp / "lib/real/set.bmp");
    EXPECT_LT(list.size(), 64u); // the loop is cut off, not followed forever
}

TEST_F(PosixFileOperationsTest, MoveFileMayChangeOnlyTheLetterCase)
{
    temp.write("dir/name.bmp", "1");
    temp.write("dir/other.bmp", "2");
    EXPECT_TRUE(files->moveFile(temp / "dir/name.bmp", temp / "dir/NAME.BMP"));
    EXPECT_EQ(temp.read("dir/NAME.BMP"), "1");
    EXPECT_FALSE(files->moveFile(temp / "dir/NAME.BMP", temp / "dir/OTHER.bmp"));
}

} // namespace
} // namespace vellumar
