#include "cli/CliCommands.h"

#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vellumar {
namespace {

class CliTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::FakeMessageService& messages = fakes.messages;
    test::FaultyFileOperations& files = fakes.files;
    test::FakeRegistry& registry = fakes.registry;
    test::FakeSystemFolders& folders = fakes.systemFolders;
    Services& services = fakes.services;
    std::ostringstream out, err;

    int run(std::vector<std::string> arguments)
    {
        out.str("");
        err.str("");
        return RunCliCommand(arguments, services, out, err);
    }
};

TEST_F(CliTest, IniGetPrintsValuesAndListsOnePerLine)
{
    const std::string ini = temp.write("cloud.ini", "[Main]\r\nA=1\r\nEmpty=\r\n[Other]\r\n");
    EXPECT_EQ(run({"ini", "get", ini, "main", "a"}), CliExit::Success);
    EXPECT_EQ(out.str(), "1\n");
    EXPECT_EQ(run({"ini", "get", ini, "Main", "Empty"}), CliExit::Success);
    EXPECT_EQ(out.str(), "\n");
    EXPECT_EQ(run({"ini", "get", ini, "Main", ""}), CliExit::Success);
    EXPECT_EQ(out.str(), "A\nEmpty\n");
    EXPECT_EQ(run({"ini", "get", ini, "", ""}), CliExit::Success);
    EXPECT_EQ(out.str(), "Main\nOther\n");
}

TEST_F(CliTest, IniGetOfNothingFails)
{
    const std::string ini = temp.write("cloud.ini", "[Main]\r\n");
    EXPECT_EQ(run({"ini", "get", ini, "Main", "Missing"}), CliExit::Failed);
    EXPECT_EQ(out.str(), "Error\n");
    EXPECT_EQ(run({"ini", "get", ini, "Main", ""}), CliExit::Failed);
    EXPECT_EQ(run({"ini", "get", temp / "missing.ini", "Main", "x"}), CliExit::Failed);
    EXPECT_EQ(messages.last().title, "Class cfgRead");
}

TEST_F(CliTest, IniSetWritesAndAnEmptyValueDeletes)
{
    const std::string ini = temp / "cloud.ini";
    EXPECT_EQ(run({"ini", "set", ini, "PathCheck", "Check", "on"}), CliExit::Success);
    EXPECT_EQ(temp.read("cloud.ini"), "[PathCheck]\r\nCheck=on\r\n");
    EXPECT_EQ(run({"ini", "set", ini, "PathCheck", "Check", "\"quoted\""}), CliExit::Success);
    EXPECT_EQ(run({"ini", "set", ini, "PathCheck", "Check", ""}), CliExit::Success);
    EXPECT_EQ(temp.read("cloud.ini"), "[PathCheck]\r\n");
}

TEST_F(CliTest, IniSetThatCannotWriteSaysSo)
{
    EXPECT_EQ(run({"ini", "set", temp / "no/such/folder.ini", "A", "k", "1"}), CliExit::Failed);
    EXPECT_NE(err.str().find("could not write"), std::string::npos);
    const std::string ini = temp.write("cloud.ini", "[A]\r\n");
    EXPECT_EQ(run({"ini", "set", ini, "A", "bad=key", "1"}), CliExit::Failed);
    EXPECT_EQ(temp.read("cloud.ini"), "[A]\r\n");
}

TEST_F(CliTest, RegGetPrintsTheValueOrFails)
{
    registry.set(RegistryHive::LocalMachine,
                 "Software\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0", "EXE Path",
                 "C:\\FS9");
    EXPECT_EQ(run({"reg", "get", "HKEY_LOCAL_MACHINE",
                   "Software\\Microsoft\\Microsoft Games\\Flight Simulator", "9.0", "EXE Path"}),
              CliExit::Success);
    EXPECT_EQ(out.str(), "C:\\FS9\n");
    EXPECT_EQ(run({"reg", "get", "HKEY_USERS", ".DEFAULT", "x", "y"}), CliExit::Failed);
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(run({"reg", "get", "HKEY_NOWHERE", "a", "b", "c"}), CliExit::UsageError);
    EXPECT_NE(err.str().find("Usage:"), std::string::npos);
}

TEST_F(CliTest, WhereListsTheFolders)
{
    folders.program = "/opt/vellumar";
    folders.windows = "/prefix/drive_c/windows/";
    folders.documents = "/prefix/drive_c/users/pilot/Documents";
    folders.appData = "/prefix/drive_c/users/pilot/AppData/Roaming";
    EXPECT_EQ(run({"where"}), CliExit::Success);
    EXPECT_EQ(out.str(), "ProgramPath: /opt/vellumar\n"
                         "WindowsPath: /prefix/drive_c/windows\n"
                         "MyDocumentsPath: /prefix/drive_c/users/pilot/Documents\n"
                         "AppDataPath: /prefix/drive_c/users/pilot/AppData/Roaming\n");
    folders.appData = "";
    EXPECT_EQ(run({"where"}), CliExit::Failed);
    EXPECT_EQ(messages.last().title, "Path Error");
}

TEST_F(CliTest, UsageErrors)
{
    EXPECT_EQ(run({}), CliExit::UsageError);
    EXPECT_EQ(run({"ini", "get", "file", "section"}), CliExit::UsageError);
    EXPECT_EQ(run({"frobnicate"}), CliExit::UsageError);
    EXPECT_NE(err.str().find("Usage: vellumar-cli"), std::string::npos);
    EXPECT_EQ(run({"--help"}), CliExit::Success);
    EXPECT_NE(out.str().find("ini get FILE SECTION KEY"), std::string::npos);
}

} // namespace
} // namespace vellumar
