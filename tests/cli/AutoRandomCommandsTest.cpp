#include "cli/CommandSet.h"
#include "support/CliRun.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vellumar {
namespace {

// Summer haze, Dusk and a series of three storms that shares one section.
class AutoRandomCommandsTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    test::CliRun run{fakes};

    AutoRandomCommandsTest()
    {
        temp.write("Vellumar/Texture/Sky/Dusk/sky_dusk.bmp", "dusk");
        for (int i = 1; i <= 3; ++i)
            temp.write("Vellumar/Texture/Clouds/t-storm  " + std::to_string(i) + "/cldcn01.bmp",
                       "storm " + std::to_string(i));
        installation.writeCloudIni("[Set2]\r\nDirName=Sky\\Dusk\r\n"
                                   "[Set3]\r\nDirName=Clouds\\t-storm\r\nfrom=1\r\nto=3\r\n");
    }

    std::vector<std::string> installed()
    {
        std::vector<std::string> lines;
        std::istringstream text(run.out.str());
        for (std::string line; std::getline(text, line);)
            if (line.starts_with("installed ") || line.starts_with("failed "))
                lines.push_back(line);
        return lines;
    }
};

TEST_F(AutoRandomCommandsTest, OrderModeInstallsTheNamedSetsInTurnAndSurvivesARestart)
{
    ASSERT_EQ(run({"select", "--order", "t-storm  2", "summer haze"}), CliExit::Success)
        << run.err.str();
    ASSERT_EQ(run({"autorandom", "--interval", "0.1", "--count", "3"}), CliExit::Success)
        << run.err.str();
    EXPECT_EQ(installed(),
              (std::vector<std::string>{"installed 1: t-storm  2", "installed 2: Summer haze",
                                        "installed 3: t-storm  2"}));
    // Not a terminal: one line per new status text, as the window shows it.
    EXPECT_NE(run.out.str().find("\nt-storm  2    Time Remain  00:05\n"), std::string::npos);
    EXPECT_EQ(temp.read("FS9/texture/cldcn01.bmp"), "storm 2");
    // The other storms of the series stay out, though they share t-storm's Random key.
    const std::string ini = temp.read("Vellumar/cloud.ini");
    EXPECT_NE(ini.find("LeftOut1=Clouds\\t-storm  1"), std::string::npos);
    EXPECT_NE(ini.find("LeftOut2=Clouds\\t-storm  3"), std::string::npos);
    EXPECT_EQ(run({"last"}), CliExit::Success);
    EXPECT_NE(run.out.str().find("t-storm  2"), std::string::npos);
}

TEST_F(AutoRandomCommandsTest, RandomModeNeverRepeatsAndNothingSelectedIsExitOne)
{
    ASSERT_EQ(run({"select", "Dusk", "t-storm  1", "t-storm  3"}), CliExit::Success);
    ASSERT_EQ(run({"autorandom", "--interval", "0.1", "--count", "12"}), CliExit::Success);
    const std::vector<std::string> lines = installed();
    ASSERT_EQ(lines.size(), 12u);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].find("Summer haze"), std::string::npos) << lines[i];
        if (i > 0) {
            EXPECT_NE(lines[i].substr(lines[i].find(':')),
                      lines[i - 1].substr(lines[i - 1].find(':')));
        }
    }

    EXPECT_EQ(run({"select"}), CliExit::Failed);
    EXPECT_EQ(fakes.messages.last().title, "No selected data");
    EXPECT_EQ(run({"select", "Nowhere"}), CliExit::Failed);
    EXPECT_EQ(run({"autorandom", "--interval", "0.05"}), CliExit::UsageError);
}

} // namespace
} // namespace vellumar
