#include "cli/TextureCommands.h"

#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "support/CliRun.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vellumar {
namespace {

// A whole installation with a library of two sets, an option set and a backup.
class TextureCommandsTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    test::CliRun run{fakes};

    TextureCommandsTest()
    {
        temp.write("FS9/texture/cld01.bmp", "original cloud");
        temp.write("Vellumar/Texture/Clouds/Summer haze/clouds.cld", "summer cld");
        temp.write("Vellumar/Texture/Clouds/Summer haze/notes.txt");
        temp.write("Vellumar/Texture/Sky/Blue/sky_1.bmp", "blue");
        temp.write("Vellumar/Texture/Option/Trail/trail.bmp", "trail");
        temp.write("Vellumar/BackUp/cld01.bmp", "original cloud");
        installation.writeCloudIni("[LastInstalled]\r\nNumberOfDisp=2\r\n1=Blue,Sky Color\r\n"
                                   "[Set2]\r\nDirName=Sky\\Blue\r\n");
    }
};

TEST_F(TextureCommandsTest, SetsAndFilesInCatalogueOrder)
{
    EXPECT_EQ(run({"sets"}), CliExit::Success);
    EXPECT_EQ(run.out.str(),
              "Summer haze\tCumulus\t1\t" + temp / "Vellumar/Texture/Clouds/Summer haze" +
                  "\nBlue\tSky Color\t3\t" + temp / "Vellumar/Texture/Sky/Blue" + "\n");
    EXPECT_EQ(run({"files", "summer haze"}), CliExit::Success);
    EXPECT_EQ(run.out.str(), "cld01.bmp\nclouds.cld\n");
    EXPECT_EQ(run({"files", "Nothing"}), CliExit::Failed);
    EXPECT_NE(run.err.str().find("there is no texture set called \"Nothing\""), std::string::npos);
}

TEST_F(TextureCommandsTest, InstallAsksAndOnlyWithYesPlacesTheFilesAndRecordsTheSet)
{
    EXPECT_EQ(run({"install", "Summer haze"}), CliExit::Failed);
    EXPECT_EQ(fakes.messages.last().title, "Installation");
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original cloud");
    EXPECT_EQ(run({"install", "Summer haze", "--option", "Trail", "--yes"}), CliExit::Success);
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "summer cloud");
    EXPECT_EQ(temp.read("FS9/weather/clouds/clouds.cld"), "summer cld");
    EXPECT_EQ(temp.read("FS9/texture/trail.bmp"), "trail");
    EXPECT_EQ(run({"last"}), CliExit::Success);
    EXPECT_NE(run.out.str().find("1     Sky Color    Blue\n2     Cumulus      Summer haze\n"),
              std::string::npos);
}

// Only what the window could tick can be named: a file of the set folder that the set does not
// offer, or a path out of the set folder, stops the command before anything is copied.
TEST_F(TextureCommandsTest, OnlyFilesTheSetOffersCanBeNamed)
{
    EXPECT_EQ(run({"install", "Summer haze", "--only", "CLOUDS.CLD", "--yes"}), CliExit::Success);
    EXPECT_EQ(temp.read("FS9/weather/clouds/clouds.cld"), "summer cld");
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original cloud");

    for (const std::string name : {"notes.txt", "..\\..\\..\\cloud.ini"}) {
        for (const char* command : {"install", "restore"}) {
            EXPECT_EQ(run({command, "Summer haze", "--only", "cld01.bmp", "--only", name, "--yes"}),
                      CliExit::Failed);
            EXPECT_EQ(run.err.str(),
                      "vellumar-cli: the set \"Summer haze\" does not offer \"" + name + "\"\n");
        }
        EXPECT_EQ(run({"install", "Summer haze", "--option", "Trail", "--option-only", name}),
                  CliExit::Failed);
        EXPECT_EQ(run.err.str(),
                  "vellumar-cli: the option set \"Trail\" does not offer \"" + name + "\"\n");
    }
    // An option set is one the library lists, never a path out of it.
    EXPECT_EQ(run({"install", "Summer haze", "--option", "..\\..\\Clouds\\Summer haze"}),
              CliExit::Failed);
    EXPECT_EQ(run.err.str(),
              "vellumar-cli: there is no option set \"..\\..\\Clouds\\Summer haze\"\n");
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original cloud");
    EXPECT_FALSE(fakes.files.attributes(temp / "FS9/texture/notes.txt"));
}

TEST_F(TextureCommandsTest, RestorePutsTheOriginalBack)
{
    ASSERT_EQ(run({"install", "Summer haze", "--yes"}), CliExit::Success);
    EXPECT_EQ(run({"restore", "Summer haze"}), CliExit::Failed); // cancelled without --yes
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "summer cloud");
    EXPECT_EQ(run({"restore", "Summer haze", "--only", "cld01.bmp", "--yes"}), CliExit::Success);
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original cloud");
}

TEST_F(TextureCommandsTest, AFailedStartUpStopsTheCommand)
{
    fakes.files.deleteFile(temp / "Vellumar/cloud.ini");
    EXPECT_EQ(run({"sets"}), CliExit::Failed);
    EXPECT_EQ(fakes.messages.last().title, "No ini File");
}

} // namespace
} // namespace vellumar
