// Install and start, situations and the watch, through the command line and the same core the
// window uses, on a whole installation in a temporary folder.

#include "app/StartUpSequence.h"
#include "cli/CommandSet.h"
#include "config/SimulatorSidePath.h"
#include "simulator/Situation.h"
#include "support/CliRun.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"
#include "textures/LastInstalled.h"
#include "textures/TextureFolders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace vellumar {
namespace {

class SimulatorCommandsTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    test::CliRun run{fakes};

    SimulatorCommandsTest()
    {
        temp.write("AppData/Microsoft/FS9/fs9.cfg",
                   "[MAIN]\r\nMaximized=1\r\n[STARTUP]\r\nSTARTUP_FLIGHT=old\r\n");
        temp.write("FS9/texture/cld01.bmp", "original cloud");
        temp.write("FS9/UIRES/dlgsplash.bmp", "the simulator's own splash");
        temp.write("Vellumar/Splash Screen/dlgsplash1.bmp", "splash 1");
        temp.write("Vellumar/Splash Screen/dlgsplash2.bmp", "splash 2");
        temp.write("Vellumar/Texture/Sky/Dusk/sky_dusk.bmp", "dusk");
        temp.write("Vellumar/Texture/Notes/readme.txt", "no bitmap here");
        temp.write(
            "Vellumar/Situation/Dusk flight.FLT",
            "[Main]\r\nTitle=Dusk\r\n[Vellumar]\r\nShownText=Flying\tinto the dusk\r\n"
            "SkyFolder1=Sky\\Dusk\r\nSkyFolder2=Notes\r\nSkyFolder3=Clouds\\Summer haze\r\n");
        temp.write("Vellumar/Situation/Dusk flight.jpg", "jpeg");
        temp.write("Vellumar/Situation/Gap.FLT",
                   "[Vellumar]\r\nSkyFolder1=Sky\\Dusk\r\nSkyFolder3=Clouds\\Summer haze\r\n");
        temp.write("Vellumar/Situation/Gap.txt", "   \r\n  ");
        temp.write("Vellumar/Situation/Storm.WX", "[Vellumar]\r\nShownText=Not shown\r\n");
        temp.write("Vellumar/Situation/Storm.txt", "Line one\r\nLine two\r\n");
        // The [Situation] of the basics would hide a second one: this cloud.ini is whole.
        temp.write(
            "Vellumar/cloud.ini",
            "[PathCheck]\r\nCheck=off\r\n[ButtonSound]\r\nBeep=off\r\n[AppName]\r\nName=V\r\n"
            "[Situation]\r\nCfgFile=fs9.cfg\r\nSection=STARTUP\r\nKey=STARTUP_FLIGHT\r\n"
            "[Set1]\r\nDirName=Clouds\\Summer haze\r\n"
            "[Splash Screen]\r\nSplash=on\r\n"
            "[StartSel]\r\nMode=order\r\nLastNo=2\r\n"
            "[Set2]\r\nDirName=Sky\\Dusk\r\n");
    }

    std::string cfg() const { return temp.read("AppData/Microsoft/FS9/fs9.cfg"); }
};

TEST_F(SimulatorCommandsTest, SituationsListsEachFileWithItsDescriptionAndSets)
{
    EXPECT_EQ(run({"situations"}), CliExit::Success);
    // *.FLT before *.WX; a .txt wins over ShownText even when it holds only blanks; tabs and
    // line breaks of a description become blanks; the folders stop at the first missing number.
    EXPECT_EQ(run.out.str(),
              "Dusk flight.FLT\tFlying into the dusk\tSky\\Dusk;Notes;Clouds\\Summer "
              "haze\nGap.FLT\t\tSky\\Dusk\nStorm.WX\tLine one Line two\t\n");
}

TEST_F(SimulatorCommandsTest, StartInstallsRotatesTheSplashAndStartsTheSimulatorOnce)
{
    ASSERT_EQ(run({"start", "dusk", "--yes"}), CliExit::Success) << run.err.str();
    EXPECT_EQ(temp.read("FS9/texture/sky_dusk.bmp"), "dusk");
    // Order mode after the last picture starts again at 1; the number goes to [Splash Screen].
    EXPECT_EQ(temp.read("FS9/UIRES/dlgsplash.bmp"), "splash 1");
    EXPECT_EQ(temp.read("FS9/UIRES/dlgsplash(org).bmp"), "the simulator's own splash");
    EXPECT_NE(temp.read("Vellumar/cloud.ini").find("[Splash Screen]\r\nSplash=on\r\nLastNo=1"),
              std::string::npos);
    ASSERT_EQ(fakes.simulator.starts.size(), 1u);
    EXPECT_EQ(fakes.simulator.starts[0], temp / "FS9" + "|fs9.exe");
    EXPECT_EQ(run.out.str(), "started fs9.exe\n");

    // Running already: installed and rotated again, not started twice; the kept original stays.
    ASSERT_EQ(run({"start", "Summer haze", "--yes"}), CliExit::Success);
    EXPECT_EQ(fakes.simulator.starts.size(), 1u);
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "summer cloud");
    EXPECT_EQ(temp.read("FS9/UIRES/dlgsplash(org).bmp"), "the simulator's own splash");
    EXPECT_EQ(run.out.str(), "fs9.exe is running already\n");
    EXPECT_EQ(run({"running"}), CliExit::Success);
    EXPECT_EQ(run.out.str(), "running 4242\n");

    fakes.simulator.quit();
    EXPECT_EQ(run({"running"}), CliExit::Failed);
    EXPECT_EQ(run.out.str(), "not running\n");
}

TEST_F(SimulatorCommandsTest, AFailedStartOrInstallIsExitOneAndUsageMistakesExitTwo)
{
    fakes.simulator.failStart = true;
    EXPECT_EQ(run({"start", "--yes"}), CliExit::Failed);
    EXPECT_EQ(fakes.messages.last().title, "FS Opening Error");
    EXPECT_EQ(fakes.messages.last().text, "fs9.exe can't be opened.");

    fakes.simulator.failStart = false;
    EXPECT_EQ(run({"start", "Summer haze"}), CliExit::Failed); // the question answered No
    EXPECT_TRUE(fakes.simulator.starts.size() == 1);           // only the failed attempt
    EXPECT_EQ(run({"start", "Summer haze", "--situation", "Gap.FLT"}), CliExit::UsageError);
    EXPECT_EQ(run({"start", "--situation", "None.FLT", "--yes"}), CliExit::Failed);
    EXPECT_NE(run.err.str().find("there is no situation called \"None.FLT\""), std::string::npos);
}

TEST_F(SimulatorCommandsTest, ASituationInstallsItsSetsAndBecomesTheStartSituation)
{
    ASSERT_EQ(run({"start", "--situation", "dusk flight.flt", "--yes", "--no-start"}),
              CliExit::Success)
        << run.err.str();
    EXPECT_TRUE(fakes.simulator.starts.empty());
    // Sky\Dusk and Clouds\Summer haze; Notes holds no bitmap and is passed over.
    EXPECT_EQ(temp.read("FS9/texture/sky_dusk.bmp"), "dusk");
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "summer cloud");
    EXPECT_EQ(cfg(), "[MAIN]\r\nMaximized=1\r\n[STARTUP]\r\nSTARTUP_FLIGHT=" +
                         SimulatorSidePath(temp / "Vellumar/Situation/Dusk flight.FLT") + "\r\n");

    // SkyFolder2 is missing: SkyFolder3 is never read.
    temp.write("FS9/texture/cld01.bmp", "original cloud");
    ASSERT_EQ(run({"start", "--situation", "Gap.FLT", "--yes", "--no-start"}), CliExit::Success);
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original cloud");

    // Cleared: the key stays, empty.
    EXPECT_EQ(run({"clear-situation"}), CliExit::Success);
    EXPECT_EQ(cfg(), "[MAIN]\r\nMaximized=1\r\n[STARTUP]\r\nSTARTUP_FLIGHT=\r\n");
}

TEST_F(SimulatorCommandsTest, ASituationNamingAFolderOutsideTheLibraryInstallsNothing)
{
    namespace fs = std::filesystem;
    temp.write("Secrets/sky_day.bmp", "not a library set");
    std::vector<std::string> values = {"..\\..\\Secrets", temp / "Secrets"};
    // A link out of the library, where the system lets a test make one.
    std::error_code noLinks;
    fs::create_directory_symlink(temp / "Secrets", temp / "Vellumar/Texture/Sky/Link", noLinks);
    if (!noLinks)
        values.push_back("Sky\\Link");
    const std::string before = cfg();
    for (const std::string& value : values) {
        temp.write("Vellumar/Situation/Bad.FLT",
                   "[Vellumar]\r\nSkyFolder1=Sky\\Dusk\r\nSkyFolder2=" + value + "\r\n");
        EXPECT_EQ(run({"start", "--situation", "Bad.FLT", "--yes"}), CliExit::Failed) << value;
        EXPECT_EQ(fakes.messages.last().title, "Situation Refused");
        EXPECT_NE(fakes.messages.last().text.find(value), std::string::npos);
        EXPECT_FALSE(fs::exists(temp / "FS9/texture/sky_dusk.bmp")) << value;
        EXPECT_FALSE(fs::exists(temp / "FS9/texture/sky_day.bmp")) << value;
        EXPECT_EQ(cfg(), before);
        EXPECT_TRUE(fakes.simulator.starts.empty());
    }
}

TEST_F(SimulatorCommandsTest, MissingSimulatorConfigurationIsToldToTheLetter)
{
    std::filesystem::remove(temp / "AppData/Microsoft/FS9/fs9.cfg");
    // The start-up switches situations off when the file is missing at load: this is the file
    // vanishing while the program runs, as the core sees it.
    ProgramState state;
    state.paths.FsUserFolder = temp / "AppData/Microsoft/FS9";
    state.settings.SituationCfgFile = "fs9.cfg";
    const std::string path = temp / "AppData/Microsoft/FS9/fs9.cfg";
    bool beeped = false;
    EXPECT_FALSE(ClearSituation(fakes.files, fakes.messages, state, [&] { beeped = true; }));
    EXPECT_EQ(fakes.messages.last().title, "Not found " + path);
    EXPECT_EQ(fakes.messages.last().text, path + " not found. Clear Situation not be done.");
    EXPECT_FALSE(beeped);
    EXPECT_FALSE(std::filesystem::exists(path));

    TextureServices textures{fakes.messages, fakes.files, fakes.events, fakes.clock};
    LastInstalledRecord record({}, 5);
    EXPECT_FALSE(InstallSituation(textures, fakes.registry, state, {}, record, [] {}).ok);
    EXPECT_EQ(fakes.messages.last().title, "No Slection");
    EXPECT_EQ(fakes.messages.last().text, "No situation file is selected.");
    EXPECT_EQ(fakes.messages.last().style, 64);
    EXPECT_FALSE(InstallSituation(textures, fakes.registry, state, {"Gap.FLT"}, record, [] {}).ok);
    EXPECT_EQ(fakes.messages.last().title, "File Not Found");
    EXPECT_EQ(fakes.messages.last().text, "Not found " + path);
    EXPECT_EQ(fakes.messages.last().style, 48);
}

} // namespace
} // namespace vellumar
