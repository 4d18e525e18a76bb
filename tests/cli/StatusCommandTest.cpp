#include "cli/StatusCommand.h"

#include "cli/CommandSet.h"
#include "common/TextList.h"
#include "support/CliRun.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace vellumar {
namespace {

class StatusCommandTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    test::CliRun run{fakes};

    void SetUp() override
    {
        temp.write("Vellumar/Texture/Clouds/Summer haze/cld02.bmp", "summer two");
        temp.write("Vellumar/Texture/Clouds/Summer haze/clouds.cld", "summer cld");
        temp.write("Vellumar/Texture/Clouds/Winter/cld01.bmp", "winter cloud");
        temp.write("Vellumar/Texture/Clouds/Haze copy/cld02.bmp", "summer two");
        temp.write("Vellumar/Texture/Clouds/Haze copy/cld03.bmp", "copy three");
        installation.writeCloudIni("[Set2]\r\nDirName=Clouds\\Winter\r\n"
                                   "[Set3]\r\nDirName=Clouds\\Haze copy\r\n");
        temp.write("FS9/texture/cld01.bmp", "original cloud");
        temp.write("FS9/texture/cld03.bmp", "stock three");
    }

    std::string status()
    {
        EXPECT_EQ(run({"status"}), CliExit::Success) << run.err.str();
        return run.out.str();
    }
};

TEST_F(StatusCommandTest, SaysByContentWhichSetsAndOriginalsTheSimulatorHolds)
{
    ASSERT_EQ(run({"install", "Summer haze", "--yes"}), CliExit::Success);
    const std::string cld01 = temp / "FS9/texture/cld01.bmp";
    const std::string cld02 = temp / "FS9/texture/cld02.bmp";
    const std::string cld03 = temp / "FS9/texture/cld03.bmp";
    const std::string clouds = temp / "FS9/weather/clouds/clouds.cld";
    // Identical bytes in two sets name both; a file no set has and the program never kept is
    // "other", even untouched.
    EXPECT_EQ(status(), "Summer haze\tall\t3/3\nWinter\tnone\t0/1\nHaze copy\tsome\t1/2\n\n" +
                            cld01 + "\tSummer haze\n" + cld02 + "\tSummer haze\tHaze copy\n" +
                            cld03 + "\tother\n" + clouds + "\tSummer haze\n");

    // Changed by hand, removed by hand, and given back its original by the program.
    temp.write("FS9/texture/cld02.bmp", "edited");
    std::filesystem::remove(test::Utf8Path(clouds));
    ASSERT_EQ(run({"originals", "restore", cld01, "--yes"}), CliExit::Success);
    EXPECT_EQ(status(), "Summer haze\tnone\t0/3\nWinter\tnone\t0/1\nHaze copy\tnone\t0/2\n\n" +
                            cld01 + "\toriginal\n" + cld02 + "\tother\n" + cld03 + "\tother\n" +
                            clouds + "\tabsent\n");
}

TEST_F(StatusCommandTest, ASecondRunReadsNoSetOrSimulatorFileThatHasNotChanged)
{
    ASSERT_EQ(run({"install", "Winter", "--yes"}), CliExit::Success);
    const std::string first = status();
    TextList read;
    fakes.files.beforeRead = [&](const std::string& path) {
        const std::string ending = path.substr(path.size() - std::min<std::size_t>(4, path.size()));
        if (ending == ".bmp" || ending == ".cld")
            read.push_back(path);
    };
    EXPECT_EQ(status(), first);
    EXPECT_EQ(read, TextList{}) << "the hash cache was not used";

    // A file installed since is read again, and only it (its source is still known).
    ASSERT_EQ(run({"install", "Summer haze", "--yes", "--only", "cld01.bmp"}), CliExit::Success);
    read.clear();
    EXPECT_NE(status(), first);
    EXPECT_EQ(read, TextList{temp / "FS9/texture/cld01.bmp"});
    EXPECT_NE(run.out.str().find("Summer haze\tsome\t1/3\nWinter\tnone\t0/1\n"), std::string::npos)
        << run.out.str();
}

} // namespace
} // namespace vellumar
