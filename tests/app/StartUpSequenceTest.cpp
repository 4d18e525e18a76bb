#include "StartUpSequence.h"

#include "FileHelpers.h"
#include "PathText.h"
#include "TempFolder.h"
#include "TestServices.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

// Registry and folders of a machine whose simulator lies in the test's folder.
class MachineRegistry final : public Registry {
public:
    std::string simulator;
    std::optional<std::string> readString(std::uint32_t, const std::string& key,
                                          const std::string& name) override
    {
        if (key == "Software\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0" &&
            name == "EXE Path")
            return simulator;
        return std::nullopt;
    }
    std::string hostPath(const std::string& path) override { return path; }
};

class StartUpSequenceTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    MachineRegistry registry;
    Services services{fakes.messages,      fakes.events,   fakes.files,        registry,
                      fakes.systemFolders, fakes.launcher, fakes.folderBrowser};
    ProgramState state;
    ScreenFacts screen;

    StartUpSequenceTest()
    {
        fakes.systemFolders.program = temp.makeFolder("Vellumar");
        fakes.systemFolders.windows = temp.makeFolder("windows");
        fakes.systemFolders.documents = temp.makeFolder("Documents");
        fakes.systemFolders.appData = temp.makeFolder("AppData");
        temp.write("AppData/Microsoft/FS9/fs9.cfg");
        temp.write("FS9/fs9.exe", "MZ");
        temp.write("FS9/suneffect.cfg", "original");
        registry.simulator = temp / "FS9";
        temp.write("Vellumar/Texture/Clouds/Summer haze/cld01.bmp");
        temp.makeFolder("Vellumar/Splash Screen");
        temp.makeFolder("Vellumar/Situation");
        for (const char* channel :
             {"Vellumar/Sound/Ch1", "Vellumar/Sound/Ch2", "Vellumar/Sound/Ch3"})
            temp.makeFolder(channel);
        temp.write("Vellumar/cloud.ini",
                   "[PathCheck]\r\nCheck=off\r\n[AppName]\r\nName=Vellumar\r\n"
                   "[Situation]\r\nCfgFile=fs9.cfg\r\n"
                   "[Set1]\r\nDirName=Clouds\\Summer haze\r\n");
    }
};

TEST_F(StartUpSequenceTest, FromTheSystemFoldersToALoadedLibrary)
{
    ASSERT_EQ(RunStartUpSequence(services, screen, state), StartUpOutcome::Continue);
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
    temp.write("Vellumar/cloud.ini", "[PathCheck]\r\nCheck=on\r\n[AppName]\r\nName=Vellumar\r\n"
                                     "[ButtonSound]\r\nBeep=off\r\n"
                                     "[Situation]\r\nCfgFile=fs9.cfg\r\n"
                                     "[Set1]\r\nDirName=Clouds\\Summer haze\r\n");
    ASSERT_EQ(RunStartUpSequence(services, screen, state), StartUpOutcome::Continue);
    EXPECT_FALSE(state.ini->ChangedByOthers()); // the path check wrote "off" itself
    temp.write("Vellumar/cloud.ini", "[AppName]\r\nName=Edited elsewhere, longer\r\n");
    EXPECT_TRUE(state.ini->ChangedByOthers());
}

} // namespace
} // namespace vellumar
