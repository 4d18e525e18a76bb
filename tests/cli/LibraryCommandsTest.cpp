#include "app/TextureSetLibrary.h"
#include "cli/CommandSet.h"
#include "support/CliRun.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vellumar {
namespace {

class LibraryCommandsTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    test::CliRun run{fakes};

    bool contains(const std::string& text, const std::string& part)
    {
        return text.find(part) != std::string::npos;
    }
};

// A folder someone unpacked by hand: the folder inside it is the set, and only the kinds of
// file a set holds go in, each left-out one named.
TEST_F(LibraryCommandsTest, AFolderIsAddedOnlyWithYesFromItsSingleTopFolder)
{
    temp.write("Downloads/Storm pack/Storm pack/cldcn01.bmp", "thunder");
    temp.write("Downloads/Storm pack/Storm pack/clouds.cld", "cld");
    temp.write("Downloads/Storm pack/Storm pack/preview.jpg", "jpg");
    temp.write("Downloads/Storm pack/Storm pack/readme.txt");
    temp.write("Downloads/Storm pack/Storm pack/extras/cld99.bmp");
    const std::string before = temp.read("Vellumar/cloud.ini");

    EXPECT_EQ(run({"import", temp / "Downloads/Storm pack"}), CliExit::Failed);
    EXPECT_TRUE(contains(fakes.messages.last().text, "\"Storm pack\""));
    EXPECT_TRUE(contains(fakes.messages.last().text, "Data type: Thunder\nFiles: 3"));
    EXPECT_EQ(temp.read("Vellumar/cloud.ini"), before);
    EXPECT_FALSE(std::filesystem::exists(temp / "Vellumar/Texture/Storm pack"));

    EXPECT_EQ(run({"import", temp / "Downloads/Storm pack", "--yes"}), CliExit::Success);
    EXPECT_EQ(run.out.str(), "added [Set2] Storm pack\tThunder\t3 files\n");
    EXPECT_TRUE(contains(run.err.str(), "left out \"Storm pack/readme.txt\": not a kind of file"));
    EXPECT_TRUE(
        contains(run.err.str(), "left out \"Storm pack/extras/cld99.bmp\": in a sub-folder"));
    EXPECT_EQ(temp.read("Vellumar/Texture/Storm pack/cldcn01.bmp"), "thunder");
    EXPECT_EQ(temp.read("Vellumar/Texture/Storm pack/preview.jpg"), "jpg");
    EXPECT_FALSE(std::filesystem::exists(temp / "Vellumar/Texture/Storm pack/readme.txt"));
    EXPECT_EQ(temp.read("Vellumar/cloud.ini"), before + "[Set2]\r\nDirName=Storm pack\r\n");
    EXPECT_EQ(run({"sets"}), CliExit::Success);
    EXPECT_TRUE(contains(run.out.str(), "\nStorm pack\tThunder\t1\t"));
}

TEST_F(LibraryCommandsTest, ANameOrFolderThatExistsOrAnEmptySourceChangesNothing)
{
    temp.write("Downloads/Summer haze/cld05.bmp");
    temp.write("Downloads/Loose/readme.txt");
    temp.makeFolder("Vellumar/Texture/Taken");
    const std::string before = temp.read("Vellumar/cloud.ini");
    const struct {
        std::vector<std::string> arguments;
        std::string message;
    } cases[] = {
        {{"import", temp / "Downloads/Summer haze", "--yes"},
         "there is already a texture set called \"Summer haze\""},
        {{"import", temp / "Downloads/Summer haze", "--name", "TAKEN", "--yes"},
         "the texture library already has a folder \"TAKEN\""},
        {{"import", temp / "Downloads/Summer haze", "--name", "Bob's", "--yes"}, "apostrophe"},
        {{"import", temp / "Downloads/Loose", "--yes"}, "holds no texture set files"},
        {{"import", temp / "Downloads/Nothing", "--yes"}, "there is no archive or folder"},
    };
    for (const auto& [arguments, message] : cases) {
        EXPECT_EQ(run(arguments), CliExit::Failed) << message;
        EXPECT_TRUE(contains(run.err.str(), message)) << run.err.str();
        EXPECT_TRUE(contains(run.err.str(), "; nothing changed\n")) << run.err.str();
    }
    EXPECT_EQ(temp.read("Vellumar/cloud.ini"), before);
}

TEST_F(LibraryCommandsTest, TheLastSetAndAMemberOfASeriesAreNotRemoved)
{
    const std::string before = temp.read("Vellumar/cloud.ini");
    EXPECT_EQ(run({"remove", "Summer haze", "--yes"}), CliExit::Failed);
    EXPECT_TRUE(contains(run.err.str(), "\"Summer haze\" is the only texture set"));
    EXPECT_EQ(temp.read("Vellumar/cloud.ini"), before);
    EXPECT_EQ(temp.read("Vellumar/Texture/Clouds/Summer haze/cld01.bmp"), "summer cloud");

    temp.write("Vellumar/Texture/t-storm  1/cldcn01.bmp");
    installation.writeCloudIni("[Set2]\r\nDirName=t-storm\r\nfrom=1\r\nto=2\r\n");
    EXPECT_EQ(run({"remove", "t-storm  1", "--yes"}), CliExit::Failed);
    EXPECT_TRUE(contains(run.err.str(), "one of the numbered series of [Set2]"));
}

// Removing a section renumbers those after it (the loader stops at the first gap) and keeps
// every other byte; the AutoRandom lists name folders, so only the removed set's entries go.
TEST(RemoveSetSection, RenumbersTheSectionsAfterItAndClosesTheAutoRandomLists)
{
    const std::string contents = "; my sets\r\n[Set1]\r\nDirName=A\r\n\r\n"
                                 "[set2] ; the storm\r\nDirName=Storm\r\nOrder=1\r\n\r\n"
                                 "[ Set3 ]\r\nDirName=C\r\n[Set4]\r\nDirName=D\r\nAlias=Dee\r\n"
                                 "[AutoRandom]\r\nMode=order\r\nOrder1=D\r\nOrder2=storm\r\n"
                                 "Order3=A ' first\r\nLeftOut1=Storm\r\n[Set6]\r\nDirName=F\r\n";
    const std::optional<std::string> edited = RemoveSetSection(contents, 2, 4, {"Storm"});
    ASSERT_TRUE(edited);
    EXPECT_EQ(*edited, "; my sets\r\n[Set1]\r\nDirName=A\r\n\r\n"
                       "[ Set2 ]\r\nDirName=C\r\n[Set3]\r\nDirName=D\r\nAlias=Dee\r\n"
                       "[AutoRandom]\r\nMode=order\r\nOrder1=D\r\nOrder2=A ' first\r\n"
                       "[Set6]\r\nDirName=F\r\n");
    EXPECT_FALSE(RemoveSetSection(contents, 5, 4, {}));
}

} // namespace
} // namespace vellumar
