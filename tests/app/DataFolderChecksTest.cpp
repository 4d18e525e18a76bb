#include "app/DataFolderChecks.h"

#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/ProgramPaths.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

class DataFolderChecksTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    ProgramPaths paths;
    DataFolderSettings settings;
    TextList fonts{"Arial", "Courier New", "DejaVu Sans"};

    DataFolderChecksTest()
    {
        paths.ProgramPath = temp.path();
        paths.FsPath = temp.makeFolder("FS9");
    }

    void install(const std::string& ini) { temp.write("cloud.ini", ini); }

    void makeLibrary()
    {
        temp.write("Texture/Clouds/Summer/cld01.bmp");
        temp.makeFolder("Splash Screen");
        temp.makeFolder("Situation");
        for (const char* channel : {"Sound/Ch1", "Sound/Ch2", "Sound/Ch3"})
            temp.makeFolder(channel);
    }

    StartUpOutcome run()
    {
        CloudIniFile ini(fakes.files, fakes.messages, temp / "cloud.ini");
        return RunDataFolderChecks(fakes.services, ini, paths, fonts, settings);
    }

    std::string iniValue(const std::string& section, const std::string& key)
    {
        CloudIniFile ini(fakes.files, fakes.messages, temp / "cloud.ini");
        return ini.ReadIniValue(section, key);
    }
};

TEST_F(DataFolderChecksTest, AWellKeptInstallationPassesQuietlyAndSwitchesThePathCheckOff)
{
    makeLibrary();
    temp.write("Sound/click.wav");
    install("[PathCheck]\r\nCheck=on\r\n[ButtonSound]\r\nFile=Sound\\click.wav\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    EXPECT_TRUE(fakes.messages.empty());
    EXPECT_EQ(paths.DataFolder, temp.path());
    EXPECT_EQ(iniValue("PathCheck", "Check"), "off");
    EXPECT_EQ(settings.Sounds.ButtonSoundPath, temp.path() + kNativeSeparator + "Sound\\click.wav");
}

TEST_F(DataFolderChecksTest, AnOddPathCheckValueIsRewrittenToOnAndTheChecksRun)
{
    makeLibrary();
    install("[PathCheck]\r\nCheck=maybe\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    EXPECT_TRUE(settings.PathCheckRan);
    EXPECT_EQ(iniValue("PathCheck", "Check"), "off");
}

TEST_F(DataFolderChecksTest, ANewInstallationAsksOnceAndMakesTheFolders)
{
    install("[PathCheck]\r\nCheck=off\r\n");
    temp.write("Texture/Clouds/Summer/cld01.bmp");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    ASSERT_GE(fakes.messages.shown().size(), 1u);
    const auto& asked = fakes.messages.shown().front();
    EXPECT_EQ(asked.title, "No data Folder found");
    EXPECT_EQ(asked.style, MessageStyle::OKCancel | MessageStyle::Critical);
    EXPECT_EQ(asked.text, " Data should be located to your Vellumar directory.\n"
                          "Texture  : All texture should be in your Vellumar\\Texture.\n"
                          "Splash Screen : (dlgsplashN.bmp) should be set.\n"
                          "                 dlgsplashN.bmp N:Number from 1 to xx.\n"
                          "                 No bmp data is possible.\n"
                          "Weather  : Weather data will be saved in the weather folder.\n"
                          "Situation: WX/FLT files should be in Vellumar\\Situation.\n"
                          "            No data is possible.\n"
                          "\n"
                          "Data folders will be made automatically if not found.");
    EXPECT_EQ(FolderExists(fakes.files, temp / "Splash Screen"), "OK");
    EXPECT_EQ(FolderExists(fakes.files, temp / "Situation"), "OK");
}

TEST_F(DataFolderChecksTest, CancellingTheFolderQuestionEndsTheProgram)
{
    install("[PathCheck]\r\nCheck=off\r\n");
    fakes.messages.answerNext(MessageResult::Cancel);
    EXPECT_EQ(run(), StartUpOutcome::EndProgram);
    EXPECT_EQ(FolderExists(fakes.files, temp / "Texture"), "Error");
}

TEST_F(DataFolderChecksTest, AnEmptyTextureLibraryIsShownInTheFileManagerAndEndsTheProgram)
{
    temp.write("Texture/readme.txt");
    temp.makeFolder("Splash Screen");
    temp.makeFolder("Situation");
    install("[PathCheck]\r\nCheck=off\r\n");
    EXPECT_EQ(run(), StartUpOutcome::EndProgram);
    EXPECT_EQ(fakes.messages.last().title, "Texture Error");
    EXPECT_EQ(fakes.messages.last().text, "Data structure is wrong.\nPlease set Texture data "
                                          "correctly.\n" +
                                              temp / "Texture");
    EXPECT_EQ(fakes.launcher.opened, (TextList{temp / "Texture"}));
}

TEST_F(DataFolderChecksTest, TheDataFolderMayNotBeTheSimulatorFolder)
{
    install("[DataFolder]\r\nPath=FS9\r\n");
    EXPECT_EQ(run(), StartUpOutcome::EndProgram);
    EXPECT_EQ(fakes.messages.last().title, "Installation Error");
    EXPECT_EQ(fakes.messages.last().text,
              "Don't set Vellumar.exe to FS path.\nPlease locate Vellumar to other folder.");
}

TEST_F(DataFolderChecksTest, ADataFolderThatDoesNotExistFallsBackToTheProgramFolder)
{
    makeLibrary();
    install("[PathCheck]\r\nCheck=off\r\n[DataFolder]\r\nPath=Nowhere 'comment\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    EXPECT_EQ(paths.DataFolder, temp.path());
    temp.write("Library/Texture/Clouds/Set/cld01.bmp");
    temp.makeFolder("Library/Splash Screen");
    temp.makeFolder("Library/Situation");
    install("[PathCheck]\r\nCheck=off\r\n[DataFolder]\r\nPath=library\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    EXPECT_TRUE(EqualsIgnoreCase(fakes.files.resolve(paths.DataFolder), temp / "Library"));
}

TEST_F(DataFolderChecksTest, SoundFilesThatCannotBePlayedFallBackToTheBeep)
{
    makeLibrary();
    temp.write("click.mp3");
    install("[PathCheck]\r\nCheck=on\r\n[ButtonSound]\r\nFile=click.mp3\r\n"
            "[AutoRandomSound]\r\nBeep=on\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    EXPECT_EQ(settings.Sounds.ButtonSoundPath, "");
    EXPECT_EQ(settings.Sounds.AutoRandomSoundPath, "");
    ASSERT_EQ(fakes.messages.shown().size(), 2u);
    const auto& button = fakes.messages.shown()[0];
    EXPECT_EQ(button.title, "Not found ButtonSound file");
    EXPECT_EQ(button.style, MessageStyle::Information);
    EXPECT_EQ(button.text, "[ButtonSound] File = click.mp3\nFile path is \"" + temp / "click.mp3" +
                               "\"\nSound file should be WAV format.\n\n"
                               "ButtonSound will be changed to Windows normal beep sound.");
    EXPECT_EQ(fakes.messages.shown()[1].title, "Not found AutoRandomSound file");
    EXPECT_NE(fakes.messages.shown()[1].text.find("No Ini description."), std::string::npos);
}

TEST_F(DataFolderChecksTest, SoundProblemsAreOnlyReportedWhileThePathCheckRuns)
{
    makeLibrary();
    install("[PathCheck]\r\nCheck=off\r\n[ButtonSound]\r\nFile=missing.wav\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    EXPECT_EQ(settings.Sounds.ButtonSoundPath, "");
    EXPECT_TRUE(fakes.messages.empty());
}

TEST_F(DataFolderChecksTest, ButtonSoundOffAndAutoRandomSoundOnlyOnRequest)
{
    makeLibrary();
    temp.write("tick.wav");
    install("[PathCheck]\r\nCheck=on\r\n[ButtonSound]\r\nBeep=OFF\r\nFile=missing.wav\r\n"
            "[AutoRandomSound]\r\nFile=tick.wav\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    EXPECT_TRUE(fakes.messages.empty());
    EXPECT_EQ(settings.Sounds.ButtonSoundPath, "");
    EXPECT_EQ(settings.Sounds.AutoRandomSoundPath, "");
}

// Where the system names no sound for a message's icon, the program has its own, which the
// user may replace one by one; they are never reported, only left out when missing.
TEST_F(DataFolderChecksTest, MessageSoundsAreTheProgramsOwnUnlessNamed)
{
    makeLibrary();
    paths.SharedDataPath = temp.makeFolder("share");
    for (const char* shipped : {"critical.wav", "exclamation.wav", "information.wav"})
        temp.write(std::string("share/sounds/") + shipped);
    temp.write("ask.wav");
    install("[PathCheck]\r\nCheck=on\r\n[ButtonSound]\r\nBeep=off\r\n[MessageSound]\r\n"
            "Question=ask.wav\r\nInformation=gone.wav\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    EXPECT_TRUE(fakes.messages.empty());
    EXPECT_EQ(settings.Sounds.MessageSoundPaths,
              (std::array<std::string, 4>{temp / "share/sounds/critical.wav", temp / "ask.wav",
                                          temp / "share/sounds/exclamation.wav", ""}));
}

TEST_F(DataFolderChecksTest, MissingFontsAreReportedWithWhatIsInstalled)
{
    makeLibrary();
    install("[PathCheck]\r\nCheck=off\r\n[Font]\r\nProportional=Arial\r\nFix=Fixedsys\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    ASSERT_EQ(fakes.messages.shown().size(), 1u);
    EXPECT_EQ(fakes.messages.last().title, "Font Error");
    EXPECT_EQ(fakes.messages.last().text, "[Font] Fix=Fixedsys\nFix font was not found.\n\n"
                                          "=== Fix and True Tyep font list ===\n"
                                          "Arial\nCourier New\nDejaVu Sans");
    EXPECT_EQ(settings.ProportionalFont, "Arial");
    EXPECT_EQ(settings.FixFont, "Fixedsys");
}

TEST_F(DataFolderChecksTest, SplashPicturesAndAnUnusableSplashFolder)
{
    makeLibrary();
    temp.write("Splash Screen/DLGSPLASH1.BMP");
    install("[PathCheck]\r\nCheck=off\r\n[Splash Screen]\r\nSplash=on\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    EXPECT_TRUE(settings.SplashEnabled);

    install("[PathCheck]\r\nCheck=off\r\n[Splash Screen]\r\nSplash=on\r\nPath=Gone\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    EXPECT_FALSE(settings.SplashEnabled);
    EXPECT_EQ(fakes.messages.last().title, "No data for Splash Screen ");
    EXPECT_EQ(fakes.messages.last().text, "[Splash Screen] Path = Gone\nFile path is " +
                                              temp / "Gone" +
                                              "\nSplash Screen function will be not use.");
}

TEST_F(DataFolderChecksTest, MissingSituationAndChannelFoldersInOneMessage)
{
    makeLibrary();
    install("[PathCheck]\r\nCheck=on\r\n[ButtonSound]\r\nBeep=off\r\n[Situation]\r\nLoc=Flights\r\n"
            "[Sound]\r\nCh2Path=Music\r\n");
    EXPECT_EQ(run(), StartUpOutcome::Continue);
    ASSERT_EQ(fakes.messages.shown().size(), 1u);
    EXPECT_EQ(fakes.messages.last().title, "ini read Error");
    EXPECT_EQ(fakes.messages.last().text,
              "Please confirm a file that located at " + temp / "Flights" +
                  "\nPlease confirm a file that located at " + temp / "Music");
}

TEST_F(DataFolderChecksTest, ShowIniOpensTheFileOrSaysItIsMissing)
{
    mnuShowIni_Click(fakes.services, paths);
    EXPECT_EQ(fakes.messages.last().title, "No cloud.ini");
    EXPECT_EQ(fakes.messages.last().text, "Can't find CLOUD.INI.");
    install("[A]\r\n");
    mnuShowIni_Click(fakes.services, paths);
    EXPECT_EQ(fakes.launcher.opened, (TextList{temp / "cloud.ini"}));
}

} // namespace
} // namespace vellumar
