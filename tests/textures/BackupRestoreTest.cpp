#include "common/FileHelpers.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"
#include "textures/Backup.h"
#include "textures/Restore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace vellumar {
namespace {

class BackupRestoreTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    TextureServices services{fakes.messages, fakes.files, fakes.events, fakes.clock};
    TextureFolders folders;

    BackupRestoreTest()
    {
        folders.FsPath = temp.makeFolder("FS9");
        folders.FsTexturePath = temp.makeFolder("FS9/texture");
        folders.DataFolder = temp.path();
        folders.BackupFolder = temp / "BackUp";
    }

    void age(const std::string& relative)
    {
        std::filesystem::last_write_time(temp / relative,
                                         std::filesystem::last_write_time(temp / relative) -
                                             std::chrono::hours(24));
    }
};

TEST_F(BackupRestoreTest, TheBackupButtonListsFilesTheTextureFolderDoesNotHold)
{
    temp.write("FS9/texture/cld01.bmp", "original");
    temp.write("FS9/weather/clouds/clouds.cld", "original");
    BackupSelectedFiles(services, folders, {{"cld01.bmp", true}, {"clouds.cld", true}},
                        {{"trail.bmp", true}, {"skipped.bmp", false}});
    EXPECT_EQ(temp.read("BackUp/cld01.bmp"), "original");
    EXPECT_EQ(fakes.messages.last().title, "Backup files");
    EXPECT_EQ(fakes.messages.last().text,
              "Following files are not found in the Texture Folder.\n clouds.cld\n trail.bmp");
}

TEST_F(BackupRestoreTest, TheFirstBackupWinsUnlessTimeStampsAreCompared)
{
    temp.write("FS9/texture/sky.bmp", "first");
    temp.write("BackUp/sky.bmp", "kept");
    age("BackUp/sky.bmp");
    EXPECT_TRUE(BackupFileList(services, folders, {"sky.bmp"}, false, false));
    EXPECT_EQ(temp.read("BackUp/sky.bmp"), "kept");
    EXPECT_TRUE(BackupFileList(services, folders, {"sky.bmp"}, true, false));
    EXPECT_EQ(temp.read("BackUp/sky.bmp"), "first");
    EXPECT_TRUE(BackupFileList(services, folders, {"missing.bmp"}, true, false));
}

TEST_F(BackupRestoreTest, AskingLetsTheUserRefuseAndThatIsAFailure)
{
    temp.write("FS9/texture/sky.bmp", "new");
    temp.write("BackUp/sky.bmp", "old");
    age("BackUp/sky.bmp");
    fakes.messages.answerNext(MessageResult::No);
    EXPECT_FALSE(BackupFileList(services, folders, {"sky.bmp"}, true, true));
    EXPECT_EQ(temp.read("BackUp/sky.bmp"), "old");
    EXPECT_EQ(fakes.messages.last().title, "File Copy Error");
    EXPECT_EQ(fakes.messages.last().text, "Backup file Error!! FileName : sky.bmp");
    EXPECT_EQ(fakes.messages.last().style, MessageStyle::Critical);
}

TEST_F(BackupRestoreTest, ABackupThatFailsHalfWayLeavesNoHalfFileAndStopsTheRun)
{
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        temp.write(std::string("FS9/texture/") + name, std::string("original ") + name);
    fakes.files.failCopyHalfway = [](const std::string& source, const std::string&) {
        return source.find("b.bmp") != std::string::npos;
    };
    TextList status;
    services.showStatus = [&status](const std::string& text) { status.push_back(text); };
    BackupSelectedFiles(services, folders, {{"a.bmp", true}, {"b.bmp", true}, {"c.bmp", true}}, {});
    EXPECT_EQ(temp.read("BackUp/a.bmp"), "original a.bmp");
    // Not even a first backup, which is never replaced later, is left half written.
    EXPECT_EQ(FileExists(fakes.files, temp / "BackUp/b.bmp"), "Error");
    EXPECT_EQ(FileExists(fakes.files, temp / "BackUp/c.bmp"), "Error");
    TextList left;
    ListFilesInTree(fakes.files, fakes.events, temp / "BackUp", "*.*", left);
    EXPECT_EQ(left.size(), 1u);
    EXPECT_EQ(status, (TextList{"Copying a.bmp", "Copying b.bmp"}));
    EXPECT_EQ(fakes.messages.last().title, "File Copy Error");
    EXPECT_EQ(fakes.messages.last().text, "Backup file Error!! FileName : b.bmp");
}

TEST_F(BackupRestoreTest, ReBackupTakesEachNameOfTheLibraryOnce)
{
    temp.write("Texture/Clouds/A/cld01.bmp");
    temp.write("Texture/Clouds/B/cld01.bmp");
    temp.write("Texture/Clouds/B/notinsim.bmp");
    temp.write("FS9/texture/cld01.bmp", "original");
    int beeps = 0;
    TextList status;
    services.showStatus = [&status](const std::string& text) { status.push_back(text); };
    mnuBkAll_Click(services, folders, [&beeps] { ++beeps; });
    EXPECT_EQ(temp.read("BackUp/cld01.bmp"), "original");
    EXPECT_EQ(status, (TextList{"Copying cld01.bmp"}));
    EXPECT_EQ(beeps, 1);
    EXPECT_TRUE(fakes.messages.empty());
}

TEST_F(BackupRestoreTest, RestoreConfirmsAndPutsOnlyBackedUpFilesBack)
{
    temp.write("BackUp/cld01.bmp", "original");
    temp.write("FS9/texture/cld01.bmp", "installed");
    const TickList ticked = {{"cld01.bmp", true}, {"clouds.cld", true}, {"sky.bmp", true}};
    fakes.messages.answerNext(MessageResult::Cancel);
    RestoreOriginals(services, folders, ticked, {});
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "installed");
    RestoreOriginals(services, folders, ticked, {});
    EXPECT_EQ(fakes.messages.last().title, "To Original Files");
    EXPECT_EQ(fakes.messages.last().style, 49);
    EXPECT_EQ(fakes.messages.last().text,
              "Following files will be back to original.\n cld01.bmp\n\n"
              "And following files are not found in the BackUp "
              "Folder.\n clouds.cld\n sky.bmp");
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original");
    EXPECT_EQ(temp.read("BackUp/cld01.bmp"), "original");

    // Again: the same result, the backup unchanged.
    temp.write("FS9/texture/cld01.bmp", "installed again");
    RestoreOriginals(services, folders, {{"cld01.bmp", true}}, {});
    EXPECT_EQ(fakes.messages.last().style, 65);
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original");
}

TEST_F(BackupRestoreTest, AFileThatCannotBePutBackIsNamedAndLeftAsItWas)
{
    temp.write("BackUp/cld01.bmp", "original 1");
    temp.write("BackUp/cld02.bmp", "original 2");
    temp.write("FS9/texture/cld01.bmp", "installed 1");
    const std::string locked = temp.write("FS9/texture/cld02.bmp", "installed 2");
    ASSERT_TRUE(fakes.files.setAttributes(locked, FileAttribute::ReadOnly));
    EXPECT_FALSE(
        RestoreOriginals(services, folders, {{"cld01.bmp", true}, {"cld02.bmp", true}}, {}));
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original 1");
    EXPECT_EQ(temp.read("FS9/texture/cld02.bmp"), "installed 2");
    EXPECT_EQ(fakes.messages.last().title, "To Original Files");
    EXPECT_EQ(fakes.messages.last().style, MessageStyle::OKOnly | MessageStyle::Critical);
    EXPECT_EQ(fakes.messages.last().text,
              "Following files could not be back to original. They are as they were.\n"
              " cld02.bmp\n\nBe sure your attribute on Msfs folder and texture folder is in "
              "Archive attribute and not Read only.");
    fakes.files.setAttributes(locked, FileAttribute::Archive);
}

TEST_F(BackupRestoreTest, NothingToRestoreStillAsks)
{
    RestoreOriginals(services, folders, {{"x.bmp", false}}, {});
    EXPECT_EQ(fakes.messages.last().text, "");
    EXPECT_EQ(fakes.messages.last().title, "To Original Files");
}

} // namespace
} // namespace vellumar
