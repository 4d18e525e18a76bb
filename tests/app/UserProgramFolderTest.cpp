// The first start of an installed copy: the user's own program folder is made from what the
// program ships, and the start-up then passes every check.

#include "app/UserProgramFolder.h"

#include "app/StartUpSequence.h"
#include "common/FileHelpers.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vellumar {
namespace {

class UserProgramFolderTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    Services& services = fakes.services;
    ScreenFacts screen;
    std::string folder = temp / "data/vellumar";

    UserProgramFolderTest()
    {
        // What an installation ships: the commented default cloud.ini, and a starter with the
        // button sound and the set the default cloud.ini names.
        test::WriteWholeFile(temp.write("share/cloud.ini"),
                             test::ReadWholeFile(VELLUMAR_EXAMPLE_CLOUD_INI));
        temp.write("share/starter/button.wav", "RIFF click");
        temp.write("share/starter/Texture/Clouds/My first set/cld01.bmp", "first cloud");
        fakes.systemFolders.shared = temp / "share";
        fakes.systemFolders.program = folder;
        fakes.systemFolders.programRule = ProgramFolderRule::UserDataFolder;
    }

    StartUpOutcome start(ProgramState& state)
    {
        return RunStartUpSequence(services, screen, state);
    }

    std::size_t entriesBesideTheFolder() const
    {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry :
             std::filesystem::directory_iterator(temp / "data"))
            ++count;
        return count;
    }
};

TEST_F(UserProgramFolderTest, TheFirstStartMakesAFolderThatPassesEveryCheckAndSaysSoOnce)
{
    ProgramState first;
    ASSERT_EQ(start(first), StartUpOutcome::Continue);
    ASSERT_EQ(fakes.messages.shown().size(), 1u) << fakes.messages.last().text;
    EXPECT_EQ(fakes.messages.last().title, "Vellumar");
    EXPECT_NE(fakes.messages.last().text.find(folder + "\n"), std::string::npos);
    EXPECT_NE(fakes.messages.last().text.find("vellumar-cli import SOURCE"), std::string::npos);
    ASSERT_EQ(first.settings.Sets.size(), 1u);
    EXPECT_EQ(first.settings.Sets[0].name, "My first set");
    EXPECT_EQ(first.paths.DataFolder, folder);
    EXPECT_EQ(entriesBesideTheFolder(), 1u); // no half-built folder left behind

    ProgramState second;
    ASSERT_EQ(start(second), StartUpOutcome::Continue);
    EXPECT_EQ(fakes.messages.shown().size(), 1u);
}

TEST_F(UserProgramFolderTest, AFirstStartKilledHalfWayLeavesNothingForLong)
{
    // Process 0 runs no program; a folder of the user's that merely starts alike stays.
    temp.write("data/.vellumar-new-0-1/Texture/Clouds/My first set/cld01.bmp", "half");
    temp.write("data/.vellumar-new-notes/mine.txt", "mine");
    ProgramState state;
    ASSERT_EQ(start(state), StartUpOutcome::Continue);
    EXPECT_FALSE(std::filesystem::exists(temp / "data/.vellumar-new-0-1"));
    EXPECT_EQ(temp.read("data/.vellumar-new-notes/mine.txt"), "mine");
    EXPECT_EQ(entriesBesideTheFolder(), 2u); // the folder and the user's own
}

TEST_F(UserProgramFolderTest, AFolderOfTheUsersGetsOnlyWhatIsMissing)
{
    temp.write("data/vellumar/button.wav", "RIFF my own click");
    temp.write("data/vellumar/Texture/Sky/Mine/sky_day.bmp", "my sky");
    ProgramState state;
    ASSERT_EQ(start(state), StartUpOutcome::Continue);
    EXPECT_EQ(fakes.messages.last().title, "Vellumar");
    EXPECT_EQ(temp.read("data/vellumar/button.wav"), "RIFF my own click");
    EXPECT_EQ(temp.read("data/vellumar/Texture/Sky/Mine/sky_day.bmp"), "my sky");
    EXPECT_EQ(temp.read("data/vellumar/Texture/Clouds/My first set/cld01.bmp"), "first cloud");
}

TEST_F(UserProgramFolderTest, AFolderThatCannotBeMadeEndsWithTheReasonAndLeavesNothing)
{
    fakes.files.failCopy = [](const std::string&, const std::string& target) {
        return target.ends_with("cloud.ini");
    };
    ProgramState state;
    EXPECT_EQ(start(state), StartUpOutcome::EndProgram);
    EXPECT_EQ(fakes.messages.last().title, "No ini File");
    EXPECT_NE(fakes.messages.last().text.find("could not write"), std::string::npos);
    EXPECT_EQ(entriesBesideTheFolder(), 0u);

    // Without the shipped files (a copy run from somewhere odd) the reason names them.
    fakes.files.failCopy = nullptr;
    std::filesystem::remove_all(temp / "share/starter");
    EXPECT_EQ(start(state), StartUpOutcome::EndProgram);
    EXPECT_NE(fakes.messages.last().text.find("starter files are missing"), std::string::npos);
}

TEST_F(UserProgramFolderTest, OnlyTheUsersDataFolderIsEverMade)
{
    fakes.systemFolders.programRule = ProgramFolderRule::Environment;
    ProgramState state;
    EXPECT_EQ(start(state), StartUpOutcome::EndProgram);
    EXPECT_EQ(fakes.messages.last().text, "No Cloud.ini file is found in this application folder.");
    EXPECT_EQ(FolderExists(fakes.files, folder), "Error");
}

} // namespace
} // namespace vellumar
