#include "cli/OriginalsCommands.h"

#include "cli/CommandSet.h"
#include "support/CliRun.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"
#include "textures/InstallJournal.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vellumar {
namespace {

class OriginalsCommandsTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    test::CliRun run{fakes};
};

TEST_F(OriginalsCommandsTest, ListsWhatAnInstallChangedAndRestoresOnlyWithYes)
{
    temp.write("FS9/texture/cld01.bmp", "original cloud");
    temp.write("Vellumar/Texture/Clouds/Summer haze/clouds.cld", "summer cld");
    ASSERT_EQ(run({"install", "Summer haze", "--yes"}), CliExit::Success);

    EXPECT_EQ(run({"originals"}), CliExit::Success);
    EXPECT_EQ(run.out.str(), temp / "FS9/texture/cld01.bmp" + "\t14\tdiffers\n" +
                                 temp / "FS9/weather/clouds/clouds.cld" + "\tabsent\tdiffers\n");

    EXPECT_EQ(run({"originals", "restore", temp / "FS9/nothing.bmp", "--yes"}), CliExit::Failed);
    EXPECT_NE(run.err.str().find("no original of \"" + temp / "FS9/nothing.bmp" + "\" is kept"),
              std::string::npos);
    EXPECT_EQ(run({"originals", "restore"}), CliExit::Failed);
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "summer cloud");

    // One path, named in another letter case.
    EXPECT_EQ(run({"originals", "restore", temp / "FS9/TEXTURE/CLD01.BMP", "--yes"}),
              CliExit::Success);
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original cloud");
    EXPECT_TRUE(std::filesystem::exists(temp / "FS9/weather/clouds/clouds.cld"));
    EXPECT_EQ(run({"originals", "restore", "--yes"}), CliExit::Success);
    EXPECT_FALSE(std::filesystem::exists(temp / "FS9/weather/clouds/clouds.cld"));
    EXPECT_EQ(run({"originals"}), CliExit::Success);
    EXPECT_EQ(run.out.str().find("differs"), std::string::npos) << run.out.str();
}

TEST_F(OriginalsCommandsTest, AnInterruptedInstallIsLeftByDefaultAndCompletedWithYes)
{
    temp.write("FS9/texture/cld01.bmp", "original cloud");
    const std::string source = temp / "Vellumar/Texture/Clouds/Summer haze/cld01.bmp";
    ASSERT_TRUE(WriteInstallJournal(fakes.files, InstallJournalPath(temp / "Vellumar"),
                                    {"Summer haze", {{source, temp / "FS9/texture/cld01.bmp"}}}));

    EXPECT_EQ(run({"originals"}), CliExit::Success);
    EXPECT_EQ(fakes.messages.last().title, "Interrupted Install");
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original cloud");
    // --yes answers the question too: the install is completed before the command runs.
    EXPECT_EQ(run({"originals", "restore", temp / "FS9/other.bmp", "--yes"}), CliExit::Failed);
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "summer cloud");
    EXPECT_FALSE(std::filesystem::exists(InstallJournalPath(temp / "Vellumar")));
}

} // namespace
} // namespace vellumar
