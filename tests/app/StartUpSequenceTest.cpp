#include "app/StartUpSequence.h"

#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vellumar {
namespace {

class StartUpSequenceTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    Services& services = fakes.services;
    ProgramState state;
    ScreenFacts screen;

    StartUpSequenceTest() { temp.write("FS9/suneffect.cfg", "original"); }
};

TEST_F(StartUpSequenceTest, FromTheSystemFoldersToALoadedLibrary)
{
    // Temporary files of a program killed while it wrote (process 0 runs no program).
    temp.write("Vellumar/.vellumar-0-1.tmp", "half a cloud.ini");
    temp.write("FS9/texture/.vellumar-0-2.tmp", "half a bitmap");
    temp.write("Vellumar/Texture/.vellumar-import-0-1/cld01.bmp", "an unpacked set");
    ASSERT_EQ(RunStartUpSequence(services, screen, state), StartUpOutcome::Continue);
    EXPECT_EQ(FileExists(fakes.files, temp / "Vellumar/.vellumar-0-1.tmp"), "Error");
    EXPECT_EQ(FileExists(fakes.files, temp / "FS9/texture/.vellumar-0-2.tmp"), "Error");
    EXPECT_FALSE(std::filesystem::exists(temp / "Vellumar/Texture/.vellumar-import-0-1"));
    EXPECT_TRUE(fakes.messages.empty());
    EXPECT_EQ(state.paths.ProgramPath, temp / "Vellumar");
    EXPECT_EQ(state.paths.FsPath, temp / "FS9");
    EXPECT_EQ(state.paths.FsTexturePath, JoinPath(temp / "FS9", "texture"));
    EXPECT_EQ(state.paths.DataFolder, temp / "Vellumar");
    ASSERT_EQ(state.settings.Sets.size(), 1u);
    EXPECT_EQ(state.settings.Sets[0].name, "Summer haze");
    EXPECT_EQ(state.ini->IniTimeStamp(), fakes.files.modificationTime(temp / "Vellumar/cloud.ini"));
}

TEST_F(StartUpSequenceTest, AMissingSystemFolderEndsTheProgram)
{
    fakes.systemFolders.appData.clear();
    EXPECT_EQ(RunStartUpSequence(services, screen, state), StartUpOutcome::EndProgram);
    EXPECT_EQ(fakes.messages.last().title, "Path Error");
}

TEST_F(StartUpSequenceTest, ALargeFontScreenIsToldOnceAndTheProgramStillStarts)
{
    screen.logicalDpiY = 120;
    ASSERT_EQ(RunStartUpSequence(services, screen, state), StartUpOutcome::Continue);
    ASSERT_EQ(fakes.messages.shown().size(), 1u);
    const auto& shown = fakes.messages.last();
    EXPECT_TRUE(shown.system);
    EXPECT_EQ(shown.title, "Screen Font Size Error");
    EXPECT_EQ(shown.style, MessageStyle::Information);
    EXPECT_EQ(shown.text, "Sorry...\nVellumar 2004 does not apply Large font size.\n"
                          "Please select Small font size from Display property.");
}

TEST_F(StartUpSequenceTest, AMissingCloudIniEndsTheProgram)
{
    fakes.files.deleteFile(temp / "Vellumar/cloud.ini");
    EXPECT_EQ(RunStartUpSequence(services, screen, state), StartUpOutcome::EndProgram);
    EXPECT_EQ(fakes.messages.last().title, "No ini File");
    EXPECT_EQ(fakes.messages.last().text, "No Cloud.ini file is found in this application folder.");
}

TEST_F(StartUpSequenceTest, AReadOnlyCloudIniIsMadeWritableWithoutAsking)
{
    ASSERT_TRUE(fakes.files.setAttributes(temp / "Vellumar/cloud.ini", FileAttribute::ReadOnly));
    ASSERT_EQ(RunStartUpSequence(services, screen, state), StartUpOutcome::Continue);
    EXPECT_FALSE(*fakes.files.attributes(temp / "Vellumar/cloud.ini") & FileAttribute::ReadOnly);
    EXPECT_TRUE(fakes.messages.empty());
}

TEST_F(StartUpSequenceTest, TheSunEffectFileIsSavedOnceAndNeverOverwritten)
{
    ASSERT_EQ(RunStartUpSequence(services, screen, state), StartUpOutcome::Continue);
    EXPECT_EQ(temp.read("FS9/suneffect.cfg_BackUp"), "original");
    temp.write("FS9/suneffect.cfg", "installed by a set");
    ProgramState again;
    ASSERT_EQ(RunStartUpSequence(services, screen, again), StartUpOutcome::Continue);
    EXPECT_EQ(temp.read("FS9/suneffect.cfg_BackUp"), "original");
}

TEST_F(StartUpSequenceTest, OwnWritesRefreshTheTimeStampButForeignEditsAreNoticed)
{
    installation.writeCloudIni("[PathCheck]\r\nCheck=on\r\n");
    ASSERT_EQ(RunStartUpSequence(services, screen, state), StartUpOutcome::Continue);
    EXPECT_FALSE(state.ini->ChangedByOthers()); // the path check wrote "off" itself
    temp.write("Vellumar/cloud.ini", "[AppName]\r\nName=Edited elsewhere, longer\r\n");
    EXPECT_TRUE(state.ini->ChangedByOthers());
}

} // namespace
} // namespace vellumar
