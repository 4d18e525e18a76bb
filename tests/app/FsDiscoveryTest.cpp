#include "app/FsDiscovery.h"

#include "common/PathText.h"
#include "config/CloudIniFile.h"
#include "config/ProgramPaths.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

class FsDiscoveryTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    Services& services = fakes.services;
    ProgramPaths paths;

    FsDiscoveryTest()
    {
        fakes.registry.hostPathsAsGiven = true;
        paths.ProgramPath = temp.path();
        paths.AppDataPath = "/appdata";
        paths.MyDocumentsPath = "/documents";
    }

    std::string simulator(const std::string& name)
    {
        temp.write(name + "/fs9.exe", "MZ");
        return temp / name;
    }

    DiscoveryOutcome find()
    {
        CloudIniFile ini(fakes.files, fakes.messages, temp / "cloud.ini");
        return FindFsFolder(services, ini, paths);
    }

    std::string kept()
    {
        CloudIniFile ini(fakes.files, fakes.messages, temp / "cloud.ini");
        return ini.ReadIniValue("FS2004Path", "Path");
    }
};

TEST_F(FsDiscoveryTest, TheRegistryWinsAndTheKeptPathIsLeftAlone)
{
    fakes.registry.setSimulatorFolder(simulator("FS9") + kNativeSeparator);
    temp.write("cloud.ini", "[FS2004Path]\r\nPath=" + simulator("Other") + "\r\n");
    ASSERT_EQ(find(), DiscoveryOutcome::Found);
    EXPECT_EQ(paths.FsRegPath, temp / "FS9");
    EXPECT_EQ(paths.FsPaths[0], temp / "FS9");
    EXPECT_EQ(paths.FsExeNames[0], "fs9.exe");
    EXPECT_EQ(paths.FsIndex, 0);
    EXPECT_EQ(paths.FsUserFolder, JoinPath(JoinPath("/appdata", "Microsoft"), "FS9"));
    EXPECT_EQ(paths.FsFilesFolder, JoinPath("/documents", "Flight Simulator Files"));
    EXPECT_EQ(kept(), temp / "Other");
    EXPECT_TRUE(fakes.folderBrowser.prompts.empty());
}

TEST_F(FsDiscoveryTest, AKeptPathWithoutTheSimulatorAsksUntilAFolderHoldsIt)
{
    temp.write("cloud.ini", "[FS2004Path]\r\nPath=" + temp.makeFolder("Old") + "\r\n");
    fakes.folderBrowser.answers = {temp.makeFolder("Empty"), simulator("New") + kNativeSeparator};
    ASSERT_EQ(find(), DiscoveryOutcome::Found);
    EXPECT_EQ(paths.FsRegPath, temp / "New");
    EXPECT_EQ(kept(), temp / "New");
    ASSERT_EQ(fakes.folderBrowser.prompts.size(), 2u);
    EXPECT_EQ(fakes.folderBrowser.prompts[0],
              "Vellumar can't get FS2004 Path.\nPlease select FS2004 Path.");
    EXPECT_TRUE(fakes.messages.empty()); // a wrong folder just asks again
}

TEST_F(FsDiscoveryTest, WithoutAUsableRegistryEntryTheKeptPathServes)
{
    // The registry names a simulator that was uninstalled since: as good as no entry.
    fakes.registry.setSimulatorFolder(temp / "Removed");
    temp.write("cloud.ini", "[FS2004Path]\r\nPath=  " + simulator("FS9") + "  \r\n");
    ASSERT_EQ(find(), DiscoveryOutcome::Found);
    EXPECT_EQ(paths.FsRegPath, temp / "FS9");
    EXPECT_TRUE(fakes.folderBrowser.prompts.empty());
}

TEST_F(FsDiscoveryTest, CancellingTheBrowserEndsTheProgram)
{
    temp.write("cloud.ini", "[AppName]\r\nName=V\r\n");
    EXPECT_EQ(find(), DiscoveryOutcome::EndProgram);
    ASSERT_EQ(fakes.messages.shown().size(), 1u);
    EXPECT_EQ(fakes.messages.last().title, "No FS");
    EXPECT_EQ(fakes.messages.last().text, "No FS2004 is installed.");
    EXPECT_EQ(kept(), "Error");
}

} // namespace
} // namespace vellumar
