// cloud.ini as Linux can make it: a link, a dangling link, a named pipe.

#include "app/StartUpSequence.h"
#include "common/FileHelpers.h"
#include "config/CloudIniFile.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

namespace vellumar {
namespace {

class CloudIniKindTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    ProgramState state;
    const std::string ini = temp / "Vellumar/cloud.ini";

    StartUpOutcome start() { return RunStartUpSequence(fakes.services, ScreenFacts{}, state); }
};

TEST_F(CloudIniKindTest, ALinkStaysALinkAndWhatItPointsToGetsTheWrites)
{
    installation.writeCloudIni("[PathCheck]\r\nCheck=on\r\n");
    std::filesystem::create_directory(temp / "dotfiles");
    std::filesystem::rename(ini, temp / "dotfiles/cloud.ini");
    std::filesystem::create_symlink(temp / "dotfiles/cloud.ini", ini);
    ASSERT_EQ(start(), StartUpOutcome::Continue);
    state.ini->Write("Main", "Written", "yes");
    EXPECT_TRUE(std::filesystem::is_symlink(ini));
    EXPECT_EQ(state.ini->ReadIniValue("Main", "Written"), "yes");
    EXPECT_NE(temp.read("dotfiles/cloud.ini").find("Written=yes"), std::string::npos);
    TextList beside;
    ListFiles(fakes.files, fakes.events, temp / "dotfiles", "*.*", beside);
    EXPECT_EQ(beside, TextList{temp / "dotfiles/cloud.ini"}); // no temporary file left
}

TEST_F(CloudIniKindTest, ADanglingLinkOrANamedPipeEndsTheStartUpWithWhatIsWrong)
{
    std::filesystem::remove(ini);
    std::filesystem::create_symlink(temp / "gone/cloud.ini", ini);
    EXPECT_EQ(start(), StartUpOutcome::EndProgram);
    EXPECT_EQ(fakes.messages.last().title, "No ini File");
    EXPECT_EQ(fakes.messages.last().text,
              "Cloud.ini in this application folder is a link to a file that does not exist.\n" +
                  ini);
    EXPECT_TRUE(std::filesystem::is_symlink(ini));
    EXPECT_FALSE(std::filesystem::exists(temp / "gone"));

    // Reading a pipe would wait for a writer for ever.
    std::filesystem::remove(ini);
    ASSERT_EQ(mkfifo(ini.c_str(), 0600), 0);
    EXPECT_EQ(start(), StartUpOutcome::EndProgram);
    EXPECT_EQ(fakes.messages.last().text,
              "Cloud.ini in this application folder is not a plain file (a named pipe, a device "
              "or a socket), so it cannot be read.\n" +
                  ini);
}

} // namespace
} // namespace vellumar
