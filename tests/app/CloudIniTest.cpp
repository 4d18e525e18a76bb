#include "app/CloudIni.h"

#include "app/DataFolderChecks.h"
#include "common/FileHelpers.h"
#include "common/ResultText.h"
#include "config/CloudIniFile.h"
#include "config/ProgramPaths.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

namespace vellumar {
namespace {

class CloudIniTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    ProgramPaths paths;
    DataFolderSettings checks;
    CloudIniSettings settings;

    CloudIniTest()
    {
        paths.ProgramPath = temp.path();
        paths.AppDataPath = temp.makeFolder("AppData");
        temp.write("AppData/Microsoft/FS9/fs9.cfg", "[Main]\r\n");
        temp.write("Texture/Clouds/Summer haze/cld01.bmp");
        temp.write("Texture/Clouds/Cirrus dawn/cirrus1.bmp");
        temp.write("Texture/Sky/Blue/sky_1.bmp");
        temp.makeFolder("Splash Screen");
        temp.makeFolder("Situation");
        for (const char* channel : {"Sound/Ch1", "Sound/Ch2", "Sound/Ch3"})
            temp.makeFolder(channel);
    }

    // A configuration that loads without any message, plus the lines of the test.
    void install(const std::string& extra)
    {
        temp.write("cloud.ini",
                   "[PathCheck]\r\nCheck=off\r\n"
                   "[AppName]\r\nName=Vellumar 2004\r\n"
                   "[Situation]\r\nCfgFile=fs9.cfg\r\nSection=Main\r\nKey=Situation\r\n"
                   "[Set1]\r\nDirName=Clouds\\Summer haze\r\n" +
                       extra);
    }

    LoadOutcome load()
    {
        CloudIniFile ini(fakes.files, fakes.messages, temp / "cloud.ini");
        return LoadCloudIni(fakes.services, ini, paths, {}, checks, settings);
    }

    std::string iniValue(const std::string& section, const std::string& key)
    {
        CloudIniFile ini(fakes.files, fakes.messages, temp / "cloud.ini");
        return ini.ReadIniValue(section, key);
    }
};

TEST_F(CloudIniTest, ValuesUsersWriteReadAsTheTableSays)
{
    struct Reading {
        const char* lines;
        std::function<std::string(const CloudIniSettings&)> setting;
        std::string expected;
    };
    const auto intvl1 = [](const CloudIniSettings& s) { return std::to_string(s.SoundIntvl[0]); };
    const auto vol2 = [](const CloudIniSettings& s) { return std::to_string(s.SoundVol[1]); };
    const auto shown = [](const CloudIniSettings& s) { return std::to_string(s.NumberOfDisp); };
    const auto wait = [](const CloudIniSettings& s) { return std::to_string(s.RandomWait); };
    const auto startSel = [](const CloudIniSettings& s) { return s.StartSel; };
    const auto stretch = [](const CloudIniSettings& s) { return std::to_string(s.StretchMode); };
    const auto skyFiles = [](const CloudIniSettings& s) { return std::to_string(s.ShowSkyFiles); };
    const auto alias = [](const CloudIniSettings& s) { return s.Sets.back().name; };
    const std::vector<Reading> cases = {
        {"[Sound]\r\nCh1Intvl=75\r\n", intvl1, "60"},
        {"[Sound]\r\nCh1Intvl=abc\r\n", intvl1, "5"},
        {"[Sound]\r\nCh1Intvl=1e400\r\n", intvl1, "60"},
        {"[Sound]\r\nCh1Intvl=-1e30\r\n", intvl1, "5"}, // ignored: the value before the load
        {"[Sound]\r\nCh1Intvl=2.5\r\n", intvl1, "2"},
        {"[Sound]\r\nCh2Vol=150\r\n", vol2, "100"},
        {"[Sound]\r\nCh2Vol= 40 ' quieter\r\n", vol2, "40"},
        {"[LastInstalled]\r\nNumberOfDisp=0\r\n", shown, "1"},
        {"[LastInstalled]\r\nNumberOfDisp=-2\r\n", shown, "3"},
        {"[LastInstalled]\r\nNumberOfDisp=1e30\r\n", shown, "32767"},
        {"[Test]\r\nRandomWait=250.9\r\n", wait, "250"},
        {"[Test]\r\nRandomWait=1e400\r\n", wait, "2147483647"},
        {"[Test]\r\nRandomWait=-1e30\r\n", wait, "-2147483648"},
        {"[Test]\r\nRandomWait=soon\r\n", wait, "0"},
        {"[StartSel]\r\nSel=SITUATION 'start there\r\n", startSel, "situation"},
        {"[StartSel]\r\nSel=fly\r\n", startSel, "sky"},
        {"[StretchMode]\r\nStretch=OFF\r\n", stretch, "0"},
        {"[StretchMode]\r\nStretch=no\r\n", stretch, "1"},
        {"[ShowSkyFiles]\r\nShowFiles=1\r\n", skyFiles, "1"},
        {"[ShowSkyFiles]\r\nShowFiles=maybe\r\n", skyFiles, "0"},
        {"[Set2]\r\nDirName=Sky\\Blue\r\nAlias='\r\n", alias, "Blue"},
        {"[Set2]\r\nDirName=Sky\\Blue\r\nAlias=Deep 'blue\r\n", alias, "Deep"},
    };
    for (const Reading& reading : cases) {
        settings = CloudIniSettings();
        install(reading.lines);
        ASSERT_EQ(load(), LoadOutcome::Loaded) << reading.lines;
        EXPECT_EQ(reading.setting(settings), reading.expected) << reading.lines;
    }
    EXPECT_TRUE(fakes.messages.empty());
}

TEST_F(CloudIniTest, ANegativeSoundValueLeavesTheOldValue)
{
    install("[Sound]\r\nCh1Vol=-5\r\n");
    settings.SoundVol[0] = 33;
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_EQ(settings.SoundVol, (std::array<int, 3>{33, 50, 50}));
}

TEST_F(CloudIniTest, ANameInTheAnsiCodePageFindsItsFolderAndShowsRight)
{
    static char westernEurope[] = "VELLUMAR_CODEPAGE=1252";
    putenv(westernEurope);
    // Made through the program's own file operations, which name files in UTF-8 everywhere.
    ASSERT_TRUE(IsOK(MakeFolderPath(fakes.files, temp / "Texture/Clouds/Ciel \xC3\xA9t\xC3\xA9")));
    install("[Set2]\r\nDirName=Clouds\\Ciel \xE9t\xE9\r\nAlias=\xC9t\xE9 \xE0 Nice\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_TRUE(fakes.messages.empty());
    ASSERT_EQ(settings.Sets.size(), 2u);
    EXPECT_EQ(settings.Sets[1].name, "\xC3\x89t\xC3\xA9 \xC3\xA0 Nice");
}

TEST_F(CloudIniTest, LastInstalledLimitAndEntries)
{
    install("[LastInstalled]\r\nNumberOfDisp=0\r\n1=Summer haze,Cumulus\r\n2=broken\r\n"
            "3=,Cirrus\r\n4=Blue , Sky Color\r\n6=after a gap,Moon\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_EQ(settings.NumberOfDisp, 1);
    ASSERT_EQ(settings.LastInstalled.size(), 2u);
    EXPECT_EQ(settings.LastInstalled[0].setName, "Summer haze");
    EXPECT_EQ(settings.LastInstalled[1].setName, "Blue ");
    EXPECT_EQ(settings.LastInstalled[1].dataType, " Sky Color");

    install("[LastInstalled]\r\nNumberOfDisp=-2\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_EQ(settings.NumberOfDisp, 3);
    EXPECT_TRUE(settings.LastInstalled.empty());
}

TEST_F(CloudIniTest, AMissingAppNameEndsTheProgramAndAsksForAPathCheck)
{
    temp.write("cloud.ini",
               "[PathCheck]\r\nCheck=off\r\n[Set1]\r\nDirName=Clouds\\Summer haze\r\n");
    EXPECT_EQ(load(), LoadOutcome::EndProgram);
    EXPECT_EQ(fakes.messages.last().title, "ini read Error");
    EXPECT_EQ(fakes.messages.last().style, MessageStyle::OKOnly | MessageStyle::Critical);
    EXPECT_EQ(fakes.messages.last().text, "AppName,Name can't read from ini file.\n"
                                          "Path check will be done on next running.\n"
                                          "It may help your problem.");
    EXPECT_EQ(iniValue("PathCheck", "Check"), "on");
}

TEST_F(CloudIniTest, TheFirstSetIsRequiredAndTheFirstMissingDirNameEndsTheList)
{
    temp.write("cloud.ini", "[PathCheck]\r\nCheck=off\r\n[AppName]\r\nName=V\r\n"
                            "[Situation]\r\nCfgFile=fs9.cfg\r\n[Set2]\r\nDirName=Sky\\Blue\r\n");
    EXPECT_EQ(load(), LoadOutcome::EndProgram);
    EXPECT_EQ(fakes.messages.last().text.substr(0, 21), "Process was stopped.\n");

    install("[Set2]\r\nAlias=no folder\r\n[Set3]\r\nDirName=Sky\\Blue\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_EQ(settings.Sets.size(), 1u);
}

TEST_F(CloudIniTest, SetsWithAliasesSeriesRandomFlagsAndOrder)
{
    temp.write("Texture/Storms/t-storm  1/cldcn1.bmp");
    temp.write("Texture/Storms/t-storm  3/cldcn1.bmp");
    temp.write("Texture/Haze/Haze 2/cld02.bmp");
    install(
        "[Set2]\r\nDirName=Clouds\\Cirrus dawn\r\nAlias=Morning cirrus\r\nRandom=OFF\r\nOrder=2\r\n"
        "[Set3]\r\nDirName=Storms\\t-storm\r\nfrom=1\r\nto=3\r\n"
        "[Set4]\r\nDirName=Haze\\Haze\r\nfrom=2\r\nto=2\r\nAlias=Hazy\r\n"
        "[Set5]\r\nDirName=Sky\\Blue\r\nOrder=x\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_TRUE(fakes.messages.empty());
    ASSERT_EQ(settings.Sets.size(), 6u);
    EXPECT_EQ(settings.Sets[1].name, "Morning cirrus");
    EXPECT_FALSE(settings.Sets[1].random);
    EXPECT_EQ(settings.Sets[1].order, 2);
    EXPECT_EQ(settings.Sets[1].compatibility, 2);
    EXPECT_EQ(settings.Sets[2].name, "t-storm  1");
    EXPECT_EQ(settings.Sets[2].dirName, "Storms\\t-storm  1");
    EXPECT_EQ(settings.Sets[3].name, "t-storm  3");
    EXPECT_EQ(settings.Sets[4].name, "Hazy 2");
    EXPECT_EQ(settings.Sets[5].compatibility, 3);
    EXPECT_EQ(settings.Sets[5].order, std::nullopt);
    EXPECT_TRUE(settings.Sets[5].random);
}

TEST_F(CloudIniTest, AMissingSetFolderIsReportedAndSkipped)
{
    install("[Set2]\r\nDirName=Clouds\\Gone\r\n[Set3]\r\nDirName=Sky\\Blue\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    ASSERT_EQ(fakes.messages.shown().size(), 1u);
    EXPECT_NE(fakes.messages.last().text.find("\nData folder was not found."), std::string::npos);
    EXPECT_EQ(settings.Sets.size(), 2u);
}

TEST_F(CloudIniTest, SituationProblemsDisableSituationsButLoadingGoesOn)
{
    temp.write("cloud.ini", "[PathCheck]\r\nCheck=off\r\n[AppName]\r\nName=V\r\n"
                            "[Set1]\r\nDirName=Clouds\\Summer haze\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_FALSE(settings.SituationEnabled);
    EXPECT_EQ(fakes.messages.last().title, "Ini Error");
    EXPECT_EQ(fakes.messages.last().style, MessageStyle::Information);
    EXPECT_EQ(fakes.messages.last().text, "Can't read from [Situation] CfgFile= .\n"
                                          "Situation function will be disabled.\n"
                                          "Please confirm [Situation] section in cloud.ini.");

    temp.write("cloud.ini",
               "[PathCheck]\r\nCheck=off\r\n[AppName]\r\nName=V\r\n"
               "[Situation]\r\nCfgFile=other.cfg\r\n[Set1]\r\nDirName=Clouds\\Summer haze\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_FALSE(settings.SituationEnabled);
    EXPECT_EQ(fakes.messages.last().text, "Can't find other.cfg.\n"
                                          "Situation function will be disabled.\n"
                                          "Please confirm [Situation] section in cloud.ini.");
}

TEST_F(CloudIniTest, ToolTipsGoToTheirControls)
{
    install("[ToolTipsText]\r\nSky=Texture sets\r\nRandom=\r\nFilterOfList=Filter the list\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    ASSERT_EQ(settings.ToolTips.size(), 6u);
    EXPECT_EQ(settings.ToolTips[0],
              (std::pair<std::string, std::string>{"optSky", "Texture sets"}));
    EXPECT_EQ(settings.ToolTips[1].first, "lblFilter0");
    EXPECT_EQ(settings.ToolTips[5].first, "lblFilter5");
}

TEST_F(CloudIniTest, MusicFilesUntilTheFirstGapSkippingMissingFiles)
{
    temp.write("Music/one.mp3");
    temp.write("Music/three.mp3");
    install("[Sound]\r\nLastMusicPath=Music\r\nMusicFile1=Music\\one.mp3\r\nMusicFile2=Music\\two."
            "mp3\r\n"
            "MusicFile3=Music\\three.mp3\r\nMusicFile5=Music\\one.mp3\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_EQ(settings.LastMusicPath, temp / "Music");
    ASSERT_EQ(settings.MusicFiles.size(), 2u);
    EXPECT_NE(settings.MusicFiles[1].find("three.mp3"), std::string::npos);
}

TEST_F(CloudIniTest, TheBackupListAndTheSaveSelectionSwitch)
{
    install("[ToBeBackuped]\r\nbk=some\r\nbk1=cloud\r\nbk2=sky\r\nbk4=moon\r\n"
            "[LoadSaveSelection]\r\nSel=True\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_FALSE(settings.BackupAll);
    EXPECT_EQ(settings.BackupList, (TextList{"cloud", "sky"}));
    EXPECT_TRUE(settings.SaveSelection);

    install("[ToBeBackuped]\r\nbk=ALL\r\nbk1=cloud\r\n[LoadSaveSelection]\r\nSel=whatever\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_TRUE(settings.BackupAll);
    EXPECT_TRUE(settings.BackupList.empty());
    EXPECT_TRUE(settings.SaveSelection); // kept when it does not parse
}

TEST_F(CloudIniTest, TheSplashCounterIsReadFromStartSelOnlyWhenSplashesExist)
{
    temp.write("Splash Screen/dlgsplash1.bmp");
    install("[Splash Screen]\r\nSplash=on\r\nLastNo=7\r\n[StartSel]\r\nLastNo=4\r\nMode=ORDER\r\n");
    ASSERT_EQ(load(), LoadOutcome::Loaded);
    EXPECT_EQ(settings.SplashLastNo, 4);
    EXPECT_EQ(settings.SplashMode, "order");
}

TEST_F(CloudIniTest, AnEditByAnotherProgramIsCaughtBeforeTheProgramActsOnIt)
{
    install("");
    CloudIniFile ini(fakes.files, fakes.messages, temp / "cloud.ini");
    ini.RecordTimeStamp();
    ini.Write("Sound", "Ch1Vol", "70"); // the program's own write keeps the watch quiet
    EXPECT_FALSE(IniChangedDuringRun(fakes.messages, ini));
    EXPECT_TRUE(fakes.messages.empty());

    temp.write("cloud.ini", temp.read("cloud.ini") + "[Edited]\r\nBy=hand\r\n");
    EXPECT_TRUE(IniChangedDuringRun(fakes.messages, ini));
    EXPECT_EQ(fakes.messages.last().title, "Ini changed");
    EXPECT_EQ(fakes.messages.last().style, MessageStyle::Critical);
    EXPECT_EQ(fakes.messages.last().text, "Ini file was changed during run Vellumar.\n"
                                          "Don't change the Ini file on running Vellumar.\n"
                                          "Vellumar will be Stopped...");
}

TEST_F(CloudIniTest, ALoadReadsOneVersionOfTheFileAndTheProgramsOwnWritesShowAtOnce)
{
    install("[Sound]\r\nCh1Vol=10\r\n");
    CloudIniFile ini(fakes.files, fakes.messages, temp / "cloud.ini");
    {
        const CloudIniFile::ConsistentRead oneVersion(ini);
        EXPECT_EQ(ini.ReadIniValue("Sound", "Ch1Vol"), "10");
        // Saved by an editor in the middle of the load: the load goes on with what it began.
        temp.write("cloud.ini", "[Sound]\r\nCh1Vol=99\r\nCh2Vol=5\r\n");
        EXPECT_EQ(ini.ReadIniValue("Sound", "Ch1Vol"), "10");
        EXPECT_EQ(ini.ReadIniValue("Sound", "Ch2Vol"), "Error");
        ini.Write("Sound", "Ch3Vol", "30");
        EXPECT_EQ(ini.ReadIniValue("Sound", "Ch3Vol"), "30");
    }
    EXPECT_EQ(ini.ReadIniValue("Sound", "Ch1Vol"), "99");
}

} // namespace
} // namespace vellumar
