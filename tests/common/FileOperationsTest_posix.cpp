// Behaviour that Linux has to add to be like Windows: letter case, "\" and the listing order.

#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/ReplaceFile.h"
#include "support/CountingEventPump.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

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

TEST_F(PosixFileOperationsTest, SizesAndStampsAreOfFilesFoundInAnyLetterCaseOrThroughALink)
{
    const std::string cloud = temp.write("Texture/Cloud1.bmp", std::string(70000, 'c'));
    EXPECT_EQ(files->fileSize(temp.path() + "\\texture\\CLOUD1.BMP"), 70000u);
    EXPECT_EQ(files->fileSize(temp.path() + "\\Texture"), std::nullopt);
    EXPECT_EQ(files->fileSize(temp.path() + "\\Texture\\missing.bmp"), std::nullopt);

    // The stamp in one look agrees with the two separate ones, however the path is spelled.
    std::filesystem::create_symlink(cloud, temp / "Texture/link.bmp");
    for (const std::string& spelled :
         {cloud, temp.path() + "\\texture\\CLOUD1.BMP", temp.path() + "/Texture/./Cloud1.bmp. ",
          temp.path() + "/Texture/link.bmp"}) {
        const std::optional<FileStamp> stamp = files->fileStamp(spelled);
        ASSERT_TRUE(stamp) << spelled;
        EXPECT_EQ(stamp->size, 70000u) << spelled;
        EXPECT_EQ(stamp->time, files->modificationTime(cloud)) << spelled;
    }
    EXPECT_EQ(files->fileStamp(temp.path() + "/Texture"), std::nullopt);
    EXPECT_EQ(files->fileStamp(temp.path() + "/Texture/missing.bmp"), std::nullopt);
    std::filesystem::remove(cloud);
    EXPECT_EQ(files->fileStamp(temp.path() + "/Texture/link.bmp"), std::nullopt); // dangling
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

TEST_F(PosixFileOperationsTest, DotDotIsTextAsOnWindowsAlsoAfterALink)
{
    // The library's cloud sets live elsewhere; "Clouds" only points there.
    temp.write("elsewhere/library/Summer haze/cld01.bmp");
    temp.makeFolder("Texture");
    std::filesystem::create_directory_symlink(temp / "elsewhere/library", temp / "Texture/Clouds");
    TextList list;
    ListFiles(*files, events, temp.path() + "\\Texture\\Clouds\\..\\Clouds\\Summer haze", "*.*",
              list);
    EXPECT_EQ(list.size(), 1u);
    EXPECT_EQ(
        FileExists(*files, temp.path() + "\\Texture\\Clouds\\x\\..\\Summer haze. \\cld01.bmp"),
        "OK");
}

TEST_F(PosixFileOperationsTest, ATreeGoesWithNamesOnlyLinuxCanHold)
{
    temp.write("old/notes. ");
    temp.write("old/a\\b.bmp");
    EXPECT_TRUE(files->deleteTree(temp / "old"));
    EXPECT_EQ(files->kindOf(temp / "old"), PathKind::Missing);
}

TEST_F(PosixFileOperationsTest, ASimulatorFileThatIsALinkIsReplacedAndWhatItPointsToIsKept)
{
    // The simulator's originals may be shared with another prefix through links.
    const std::string shared = temp.write("shared/cld01.bmp", "original");
    temp.makeFolder("texture");
    std::filesystem::create_symlink(shared, temp / "texture/cld01.bmp");
    ASSERT_TRUE(ReplaceFileWithCopy(*files, temp.write("set/cld01.bmp", "new"),
                                    temp / "texture/cld01.bmp"));
    EXPECT_FALSE(std::filesystem::is_symlink(temp / "texture/cld01.bmp"));
    EXPECT_EQ(temp.read("texture/cld01.bmp"), "new");
    EXPECT_EQ(temp.read("shared/cld01.bmp"), "original");
}

TEST_F(PosixFileOperationsTest, AKilledCopyLeavesItsTemporaryFileAndTheCleanUpTakesOnlyThat)
{
    const std::string source = temp.write("set/cld01.bmp", std::string(32 << 20, 'n'));
    const std::string target = temp.write("texture/cld01.bmp", "original");
    // A user's files that merely look alike, and the file of a copy still running (this one).
    temp.write("texture/.vellumar-notes.tmp");
    temp.write("texture/.vellumar-12-x.tmp");
    const std::string running =
        temp.write("texture/.vellumar-" + std::to_string(getpid()) + "-999999.tmp");

    auto leftoverOf = [&](pid_t child) {
        std::string found;
        files->search(temp / "texture/*", [&](const DirectoryEntry& entry) {
            if (TemporaryNameOwner(entry.name) == static_cast<std::uint32_t>(child))
                found = temp / ("texture/" + entry.name);
            return found.empty();
        });
        return found;
    };
    std::string leftover;
    // The kill may fall between two copies; then another round.
    for (int round = 0; round < 20 && leftover.empty(); ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            const auto real = CreatePlatformFileOperations();
            for (;;)
                ReplaceFileWithCopy(*real, source, target);
        }
        for (int wait = 0; wait < 2000 && leftoverOf(child).empty(); ++wait)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        leftover = leftoverOf(child);
    }
    ASSERT_FALSE(leftover.empty());
    const auto size = files->fileSize(target);
    EXPECT_TRUE(size == 8u || size == 32u << 20) << "the target is whole";

    EXPECT_EQ(RemoveLeftoverTemporaries(*files, temp / "texture"), TextList{leftover});
    TextList left;
    ListFiles(*files, events, temp / "texture", "*", left);
    std::sort(left.begin(), left.end());
    TextList kept{temp / "texture/.vellumar-12-x.tmp", running,
                  temp / "texture/.vellumar-notes.tmp", target};
    std::sort(kept.begin(), kept.end());
    EXPECT_EQ(left, kept);
}

} // namespace
} // namespace vellumar
