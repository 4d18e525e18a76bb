#include "cli/CliCommands.h"

#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <algorithm>
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
    // Something there that is no file says what it is (a named pipe would hang a reader).
    EXPECT_EQ(run({"ini", "get", temp.path(), "Main", "x"}), CliExit::Failed);
    EXPECT_NE(err.str().find("is a folder, not a file."), std::string::npos) << err.str();
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
}

TEST_F(CliTest, WhereListsTheFolders)
{
    folders.program = "/opt/vellumar";
    folders.windows = "/prefix/drive_c/windows/";
    folders.documents = "/prefix/drive_c/users/pilot/Documents";
    folders.appData = "/prefix/drive_c/users/pilot/AppData/Roaming";
    EXPECT_EQ(run({"where"}), CliExit::Success);
    EXPECT_EQ(out.str(), "ProgramPath: /opt/vellumar\n"
                         "ProgramPathRule: VELLUMAR_HOME\n"
                         "WindowsPath: /prefix/drive_c/windows\n"
                         "MyDocumentsPath: /prefix/drive_c/users/pilot/Documents\n"
                         "AppDataPath: /prefix/drive_c/users/pilot/AppData/Roaming\n");
    folders.appData = "";
    EXPECT_EQ(run({"where"}), CliExit::Failed);
    EXPECT_EQ(messages.last().title, "Path Error");
}

// A mistake on the command line is named on one line of standard error, and nothing runs.
TEST_F(CliTest, AMistakeIsNamedInOneLine)
{
    const std::string ini = temp.write("cloud.ini", "[A]\r\nk=1\r\n");
    const std::vector<std::pair<std::vector<std::string>, std::string>> mistakes = {
        {{}, "vellumar-cli: no command given"},
        {{"frobnicate"}, "vellumar-cli: unknown command \"frobnicate\""},
        {{"ini", "get", ini, "A"}, "vellumar-cli ini get: KEY is required"},
        {{"ini", "set", ini, "A", "k", "2", "--frob"}, "unknown option \"--frob\""},
        {{"install", "Set", "--option-only", "x.bmp"}, "--option-only requires --option"},
        {{"reg", "get", "HKEY_NOWHERE", "a", "b", "c"}, "unknown hive HKEY_NOWHERE"},
        {{"where", "extra"}, "unexpected argument \"extra\""},
    };
    for (const auto& [arguments, named] : mistakes) {
        EXPECT_EQ(run(arguments), CliExit::UsageError);
        const std::string said = err.str();
        EXPECT_NE(said.find(named), std::string::npos) << said;
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
        EXPECT_EQ(out.str(), "");
    }
    EXPECT_EQ(temp.read("cloud.ini"), "[A]\r\nk=1\r\n");
}

TEST_F(CliTest, EachCommandHasItsHelpOnStandardOutput)
{
    EXPECT_EQ(run({"help", "install"}), CliExit::Success);
    EXPECT_NE(out.str().find("Usage: vellumar-cli install [OPTIONS] SET"), std::string::npos);
    EXPECT_NE(out.str().find("--only FILE"), std::string::npos);
    EXPECT_EQ(run({"ini", "get", "--help"}), CliExit::Success);
    EXPECT_NE(out.str().find("Usage: vellumar-cli ini get [OPTIONS] FILE SECTION KEY"),
              std::string::npos);
    EXPECT_EQ(err.str(), "");
}

} // namespace
} // namespace vellumar
