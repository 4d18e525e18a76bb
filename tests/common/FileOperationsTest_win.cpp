// What the Windows file operations add to the system's calls: UTF-8 names, either separator,
// time stamps in Unix nanoseconds, attribute bits, and the safety of replacing a file.

#include "common/FileOperations.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vellumar {
namespace {

std::wstring Wide(const std::string& ascii)
{
    return std::wstring(ascii.begin(), ascii.end());
}

class WindowsFileOperationsTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    std::unique_ptr<FileOperations> files = CreatePlatformFileOperations();

    std::vector<DirectoryEntry> search(const std::string& pattern)
    {
        std::vector<DirectoryEntry> found;
        EXPECT_TRUE(files->search(pattern, [&](const DirectoryEntry& entry) {
            found.push_back(entry);
            return true;
        })) << pattern;
        return found;
    }

    std::vector<std::string> names(const std::string& pattern)
    {
        std::vector<std::string> list;
        for (const DirectoryEntry& entry : search(pattern))
            list.push_back(entry.name);
        std::sort(list.begin(), list.end());
        return list;
    }

    static void setWriteTime(const std::string& path, std::int64_t ticks)
    {
        HANDLE file = CreateFileW(Wide(path).c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        FILETIME time{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
        EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, &time));
        CloseHandle(file);
    }
};

// 2004-07-29 12:00:00 UTC, with some 100-nanosecond ticks to spare.
constexpr std::int64_t kTicks = 127355760000000000LL + 1234567;
constexpr FileTime kUnixNanoseconds = 1091102400LL * 1'000'000'000 + 123456700;

TEST_F(WindowsFileOperationsTest, NamesOutsideAsciiTravelAsUtf8)
{
    // "Wolke é 日" made with the system's own call, so that no conversion of ours is involved.
    const std::wstring wideName = L"Wolke \u00e9 \u65e5.bmp";
    const std::string name = "Wolke \xC3\xA9 \xE6\x97\xA5.bmp";
    HANDLE file = CreateFileW((Wide(temp.path()) + L"\\" + wideName).c_str(), GENERIC_WRITE, 0,
                              nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD written = 0;
    WriteFile(file, "sky", 3, &written, nullptr);
    CloseHandle(file);

    EXPECT_EQ(names(temp.path() + "\\*.bmp"), std::vector<std::string>{name});
    const std::string path = temp.path() + "\\" + name;
    EXPECT_EQ(files->readFile(path), "sky");
    const std::string copy = temp.path() + "\\Kopie \xC3\xA9.bmp";
    ASSERT_TRUE(files->copyFile(path, copy));
    EXPECT_NE(GetFileAttributesW((Wide(temp.path()) + L"\\Kopie \u00e9.bmp").c_str()),
              INVALID_FILE_ATTRIBUTES);
}

TEST_F(WindowsFileOperationsTest, EitherSeparatorAndAnyLetterCaseFindTheFile)
{
    temp.write("Texture/Cloud3.bmp", "c");
    std::string forward = temp.path() + "/TEXTURE/cloud3.BMP";
    EXPECT_EQ(files->readFile(forward), "c");
    EXPECT_TRUE(files->attributes(forward));
    EXPECT_EQ(files->resolve(forward), temp.path() + "\\TEXTURE\\cloud3.BMP");
}

TEST_F(WindowsFileOperationsTest, SearchesListDotEntriesAndStopWhenAsked)
{
    temp.write("set/a.bmp");
    temp.write("set/b.bmp");
    temp.makeFolder("set/sub");
    const std::vector<DirectoryEntry> all = search(temp.path() + "\\set\\*.*");
    ASSERT_EQ(all.size(), 5u);
    for (const DirectoryEntry& entry : all)
        EXPECT_EQ(entry.isDirectory, entry.name == "." || entry.name == ".." || entry.name == "sub")
            << entry.name;
    EXPECT_EQ(names(temp.path() + "\\set\\*.BMP"), (std::vector<std::string>{"a.bmp", "b.bmp"}));

    int visits = 0;
    EXPECT_TRUE(files->search(temp.path() + "\\set\\*", [&](const DirectoryEntry&) {
        ++visits;
        return false;
    }));
    EXPECT_EQ(visits, 1);

    // No match in a folder that exists is an empty search; a missing folder is a failed one.
    EXPECT_TRUE(names(temp.path() + "\\set\\*.wav").empty());
    EXPECT_TRUE(names(temp.path() + "\\set\\missing.bmp").empty());
    auto never = [](const DirectoryEntry&) { return true; };
    EXPECT_FALSE(files->search(temp.path() + "\\missing\\*.*", never));
    EXPECT_FALSE(files->search(temp.path() + "\\set\\", never));
}

TEST_F(WindowsFileOperationsTest, TimeStampsAreUnixNanosecondsAndCopiesKeepTimeAndReadOnly)
{
    const std::string source = temp.write("source.bmp", "new");
    setWriteTime(source, kTicks);
    EXPECT_EQ(files->modificationTime(source), kUnixNanoseconds);
    EXPECT_EQ(files->modificationTime(temp.path() + "\\missing.bmp"), std::nullopt);
    const std::optional<FileStamp> stamp = files->fileStamp(source);
    ASSERT_TRUE(stamp);
    EXPECT_EQ(stamp->size, 3u);
    EXPECT_EQ(stamp->time, kUnixNanoseconds);
    EXPECT_EQ(files->fileStamp(temp.path()), std::nullopt);
    ASSERT_TRUE(files->setAttributes(source, FileAttribute::ReadOnly | FileAttribute::Archive));
    const std::string target = temp.path() + "\\target.bmp";
    ASSERT_TRUE(files->copyFile(source, target));
    EXPECT_EQ(files->modificationTime(target), kUnixNanoseconds);
    EXPECT_TRUE(*files->attributes(target) & FileAttribute::ReadOnly);
}

TEST_F(WindowsFileOperationsTest, AttributesAreTheSystemsBits)
{
    const std::string file = temp.write("attr.bmp");
    // Wine marks every file for archiving, so that bit is not compared.
    constexpr std::uint32_t kCompared = FileAttribute::ReadOnly | FileAttribute::Hidden |
                                        FileAttribute::System | FileAttribute::Directory;
    ASSERT_TRUE(files->setAttributes(file, FileAttribute::Hidden | FileAttribute::System));
    EXPECT_EQ(*files->attributes(file) & kCompared, FileAttribute::Hidden | FileAttribute::System);
    // Bits that describe rather than set (a folder) are left out instead of failing the call.
    ASSERT_TRUE(files->setAttributes(file, FileAttribute::Archive | FileAttribute::Directory));
    EXPECT_EQ(*files->attributes(file) & kCompared, 0u);
    ASSERT_TRUE(files->setAttributes(file, 0));
    EXPECT_FALSE(*files->attributes(file) & FileAttribute::ReadOnly);
    EXPECT_TRUE(*files->attributes(temp.path()) & FileAttribute::Directory);
    EXPECT_EQ(files->attributes(temp.path() + "\\missing"), std::nullopt);
}

TEST_F(WindowsFileOperationsTest, ReadOnlyFilesStayAsTheyAre)
{
    const std::string locked = temp.write("locked.bmp", "keep");
    ASSERT_TRUE(files->setAttributes(locked, FileAttribute::ReadOnly));
    EXPECT_FALSE(files->deleteFile(locked));
    EXPECT_FALSE(files->renameOver(temp.write("other.bmp", "new"), locked));
    EXPECT_FALSE(files->replaceFile(locked, "new"));
    EXPECT_EQ(temp.read("locked.bmp"), "keep");
    // A folder is no file to rename over either.
    temp.makeFolder("folder");
    EXPECT_FALSE(files->renameOver(temp.path() + "\\other.bmp", temp.path() + "\\folder"));
    EXPECT_EQ(temp.read("other.bmp"), "new");
}

TEST_F(WindowsFileOperationsTest, ReplacingKeepsAttributesAndLeavesNoTemporaryFile)
{
    const std::string file = temp.write("dir/cloud.cfg", "old contents");
    ASSERT_TRUE(files->setAttributes(file, FileAttribute::Hidden | FileAttribute::Archive));
    ASSERT_TRUE(files->replaceFile(file, std::string("new\r\n\0bytes", 12)));
    EXPECT_EQ(temp.read("dir/cloud.cfg"), std::string("new\r\n\0bytes", 12));
    EXPECT_TRUE(*files->attributes(file) & FileAttribute::Hidden);
    ASSERT_TRUE(files->replaceFile(temp.path() + "/dir/new.cfg", ""));
    EXPECT_EQ(temp.read("dir/new.cfg"), "");
    EXPECT_FALSE(files->replaceFile(temp.path() + "\\missing\\x.cfg", "x"));
    EXPECT_EQ(names(temp.path() + "\\dir\\*"),
              (std::vector<std::string>{".", "..", "cloud.cfg", "new.cfg"}));
}

TEST_F(WindowsFileOperationsTest, RenamingNeverReplacesButRenameOverDoes)
{
    const std::string a = temp.write("a.bmp", "a");
    const std::string b = temp.write("b.bmp", "b");
    EXPECT_FALSE(files->moveFile(a, b));
    EXPECT_EQ(temp.read("b.bmp"), "b");
    EXPECT_TRUE(files->moveFile(a, temp.path() + "\\A.BMP")); // a change of letter case only
    EXPECT_EQ(names(temp.path() + "\\*.bmp"), (std::vector<std::string>{"A.BMP", "b.bmp"}));
    EXPECT_TRUE(files->renameOver(temp.path() + "\\A.BMP", b));
    EXPECT_EQ(temp.read("b.bmp"), "a");
    EXPECT_EQ(names(temp.path() + "\\*.bmp"), std::vector<std::string>{"b.bmp"});
}

TEST_F(WindowsFileOperationsTest, CreateFoldersTakesEitherSeparatorAndADriveRoot)
{
    EXPECT_TRUE(files->createFolders(temp.path() + "/one\\two/three\\"));
    EXPECT_TRUE(*files->attributes(temp.path() + "\\one\\two\\three") & FileAttribute::Directory);
    EXPECT_TRUE(files->createFolders("C:\\"));
}

TEST_F(WindowsFileOperationsTest, DeleteTreeStopsAtAReadOnlyFile)
{
    temp.write("tree/a.bmp");
    temp.write("tree/sub/b.bmp");
    const std::string locked = temp.write("tree/sub/deeper/locked.bmp");
    temp.makeFolder("tree/empty");
    ASSERT_TRUE(files->setAttributes(locked, FileAttribute::ReadOnly));
    EXPECT_FALSE(files->deleteTree(temp.path() + "\\tree"));
    EXPECT_TRUE(files->attributes(locked));

    ASSERT_TRUE(files->setAttributes(locked, FileAttribute::Normal));
    EXPECT_TRUE(files->deleteTree(temp.path() + "/tree/"));
    EXPECT_FALSE(files->attributes(temp.path() + "\\tree"));
    EXPECT_FALSE(files->deleteTree(temp.path() + "\\tree"));
}

TEST_F(WindowsFileOperationsTest, ReadingAFolderOrAMissingFileGivesNothing)
{
    EXPECT_EQ(files->readFile(temp.path()), std::nullopt);
    EXPECT_EQ(files->readFile(temp.path() + "\\missing.txt"), std::nullopt);
    const std::string big(300000, 'b');
    EXPECT_EQ(files->readFile(temp.write("big.bin", big)), big);
    EXPECT_EQ(files->fileSize(temp.path() + "\\BIG.bin"), 300000u);
    EXPECT_EQ(files->fileSize(temp.path()), std::nullopt);
}

} // namespace
} // namespace vellumar
