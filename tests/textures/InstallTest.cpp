#include "textures/Install.h"

#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"
#include "textures/LastInstalled.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <utility>
#include <vector>

namespace vellumar {
namespace {

class InstallTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    TextureServices services{fakes.messages, fakes.files, fakes.events, fakes.clock,
                             [this](const std::string& text) { status.push_back(text); }};
    TextureFolders folders;
    LastInstalledRecord record;
    TextList status;
    std::vector<std::pair<std::uint64_t, std::uint64_t>> progress;

    InstallTest()
    {
        services.showProgress = [this](std::uint64_t done, std::uint64_t total) {
            progress.emplace_back(done, total);
        };
        folders.FsPath = temp.makeFolder("FS9");
        folders.FsTexturePath = temp.makeFolder("FS9/texture");
        temp.makeFolder("FS9/weather/clouds");
        temp.makeFolder("FS9/effects/texture");
        folders.DataFolder = temp.path();
        folders.BackupFolder = temp / "BackUp";
    }

    std::string set(const std::string& name, std::initializer_list<const char*> files)
    {
        for (const char* file : files)
            temp.write("Texture/" + name + "/" + file, std::string("new ") + file);
        return temp / ("Texture/" + name);
    }

    static TickList AllTicked(std::initializer_list<const char*> files)
    {
        TickList list;
        for (const char* file : files)
            list.emplace_back(file, true);
        return list;
    }

    InstallRequest request(const std::string& folder, TickList cloudFiles)
    {
        InstallRequest request;
        request.setName = "Summer haze";
        request.cloudSetFolder = folder;
        request.optionSetFolder = temp / "Texture/Option/Trail";
        request.cloudFiles = std::move(cloudFiles);
        return request;
    }

    TextList filesUnder(const std::string& relative)
    {
        TextList list;
        ListFilesInTree(fakes.files, fakes.events, temp / relative, "*.*", list);
        return list;
    }
};

TEST_F(InstallTest, EachFileGoesWhereTheSimulatorReadsIt)
{
    const std::string folder =
        set("Clouds/Summer haze", {"clouds.cld", "cumulus01.bmp", "suneffect.cfg", "layer.xml"});
    // What a killed install left goes first (process 0 runs no program); a user's file stays.
    temp.write("FS9/texture/.vellumar-0-1.tmp", "half a bitmap");
    temp.write("FS9/weather/clouds/.vellumar-0-2.tmp", "half a cloud file");
    temp.write("FS9/texture/.vellumar-notes.tmp", "the user's");
    const auto outcome = InstallTextureSet(
        services, folders,
        request(folder, AllTicked({"clouds.cld", "cumulus01.bmp", "suneffect.cfg", "layer.xml"})),
        record);
    EXPECT_TRUE(outcome.installed);
    EXPECT_EQ(temp.read("FS9/weather/clouds/clouds.cld"), "new clouds.cld");
    EXPECT_EQ(temp.read("FS9/weather/clouds/layer.xml"), "new layer.xml");
    EXPECT_EQ(temp.read("FS9/texture/cumulus01.bmp"), "new cumulus01.bmp");
    EXPECT_EQ(temp.read("FS9/suneffect.cfg"), "new suneffect.cfg");
    ASSERT_EQ(record.entries().size(), 1u);
    EXPECT_EQ(record.entries()[0].setName, "Summer haze");
    EXPECT_EQ(record.entries()[0].dataType, "Cumulus");
    EXPECT_EQ(filesUnder("FS9/texture"), (TextList{temp / "FS9/texture/.vellumar-notes.tmp",
                                                   temp / "FS9/texture/cumulus01.bmp"}));
    EXPECT_EQ(filesUnder("FS9/weather").size(), 2u);
}

TEST_F(InstallTest, EachFileIsAnnouncedWithTheBytesBeforeItAndTheWindowStaysAlive)
{
    temp.write("Texture/Clouds/Sizes/a.bmp", std::string(1000, 'a'));
    temp.write("Texture/Clouds/Sizes/b.bmp", std::string(30, 'b'));
    temp.write("Texture/Clouds/Sizes/c.bmp", std::string(500, 'c'));
    const int pumpedBefore = fakes.events.calls;
    ASSERT_TRUE(InstallTextureSet(
                    services, folders,
                    request(temp / "Texture/Clouds/Sizes", AllTicked({"a.bmp", "b.bmp", "c.bmp"})),
                    record)
                    .installed);
    using Step = std::pair<std::uint64_t, std::uint64_t>;
    EXPECT_EQ(progress, (std::vector<Step>{{0, 1530}, {1000, 1530}, {1030, 1530}, {1530, 1530}}));
    EXPECT_EQ(status, (TextList{"Summer haze", "Copying a.bmp", "Copying b.bmp", "Copying c.bmp",
                                "Summer haze"}));
    EXPECT_GE(fakes.events.calls - pumpedBefore, 3);
}

TEST_F(InstallTest, OneEffectFileSendsEveryBitmapToTheEffectTextures)
{
    const std::string folder = set("Clouds/Fx", {"cumulus01.bmp", "sky.fx"});
    temp.write("Texture/Option/Trail/trail.bmp", "trail");
    InstallRequest fx = request(folder, AllTicked({"cumulus01.bmp", "sky.fx"}));
    fx.optionFiles = AllTicked({"trail.bmp"});
    ASSERT_TRUE(InstallTextureSet(services, folders, fx, record).installed);
    EXPECT_EQ(temp.read("FS9/effects/sky.fx"), "new sky.fx");
    EXPECT_EQ(temp.read("FS9/effects/texture/cumulus01.bmp"), "new cumulus01.bmp");
    EXPECT_EQ(temp.read("FS9/effects/texture/trail.bmp"), "trail");
    EXPECT_EQ(FileExists(fakes.files, temp / "FS9/texture/cumulus01.bmp"), "Error");
}

TEST_F(InstallTest, TheConfirmationSaysWhatWillHappen)
{
    const std::string folder = set("Clouds/Summer haze", {"cld01.bmp"});
    InstallTextureSet(services, folders, request(folder, AllTicked({"cld01.bmp"})), record);
    ASSERT_EQ(fakes.messages.shown().size(), 1u);
    EXPECT_EQ(fakes.messages.last().title, "Installation");
    EXPECT_EQ(fakes.messages.last().style, 65);
    EXPECT_EQ(fakes.messages.last().text,
              "*** Summer haze ***\n\nTexture set from above will be installed.");

    InstallTextureSet(services, folders,
                      request(folder, AllTicked({"cld01.bmp", "gone.bmp", "lost.cld"})), record);
    EXPECT_EQ(fakes.messages.last().style, 17);
    EXPECT_EQ(fakes.messages.last().text, "*** Summer haze ***\n\n"
                                          "Texture set from above will be installed.\n\n"
                                          "And following to be installed files not found.\n"
                                          " gone.bmp\n lost.cld");

    InstallTextureSet(services, folders, request(folder, AllTicked({"gone.bmp"})), record);
    EXPECT_EQ(fakes.messages.last().style, 17);
    EXPECT_EQ(fakes.messages.last().text,
              "*** Summer haze ***\n\nFollowing to be installed files not found.\n gone.bmp");
}

TEST_F(InstallTest, CancelCopiesNothingAndAHiddenPickKeepsItsName)
{
    const std::string folder = set("Clouds/Summer haze", {"cld01.bmp"});
    fakes.messages.answerNext(MessageResult::Cancel);
    InstallRequest hidden = request(folder, AllTicked({"cld01.bmp"}));
    hidden.hideSetName = true;
    EXPECT_FALSE(InstallTextureSet(services, folders, hidden, record).installed);
    EXPECT_EQ(fakes.messages.last().text.substr(0, 26), "*** Random Texture set ***");
    EXPECT_EQ(FileExists(fakes.files, temp / "FS9/texture/cld01.bmp"), "Error");
    EXPECT_TRUE(record.entries().empty());
    EXPECT_EQ(status.front(), ""); // the name is never shown

    EXPECT_TRUE(InstallTextureSet(services, folders, hidden, record).installed);
    EXPECT_EQ(status.back(), "Press Install Button.");
    EXPECT_EQ(record.entries().back().setName, "Random Texture set");
}

TEST_F(InstallTest, AutoRandomInstallsWithoutAsking)
{
    const std::string folder = set("Clouds/Summer haze", {"cld01.bmp"});
    InstallRequest automatic = request(folder, AllTicked({"cld01.bmp"}));
    automatic.autoRandomRunning = true;
    automatic.backupOriginals = true;
    const InstallOutcome outcome = InstallTextureSet(services, folders, automatic, record);
    EXPECT_TRUE(outcome.installed);
    EXPECT_TRUE(fakes.messages.empty());
    // The countdown restarts from the moment the install begins, also when the set offers
    // nothing to install.
    EXPECT_EQ(outcome.lastInstallTime, fakes.clock.now());
    fakes.clock.advance(std::chrono::minutes(5));
    automatic.cloudFiles.clear();
    EXPECT_EQ(InstallTextureSet(services, folders, automatic, record).lastInstallTime,
              fakes.clock.now());
    // Without AutoRandom there is no countdown to restart.
    EXPECT_FALSE(
        InstallTextureSet(services, folders, request(folder, AllTicked({"cld01.bmp"})), record)
            .lastInstallTime);
}

TEST_F(InstallTest, EmptyListsInstallNothingButTickedNothingStillRecords)
{
    const std::string folder = set("Clouds/Summer haze", {"cld01.bmp"});
    EXPECT_FALSE(InstallTextureSet(services, folders, request(folder, {}), record).installed);
    EXPECT_TRUE(fakes.messages.empty());
    EXPECT_TRUE(
        InstallTextureSet(services, folders, request(folder, {{"cld01.bmp", false}}), record)
            .installed);
    EXPECT_EQ(record.entries().size(), 1u);
}

TEST_F(InstallTest, AReadOnlyTargetCannotBeKilled)
{
    const std::string folder = set("Clouds/Summer haze", {"cld01.bmp"});
    const std::string target = temp.write("FS9/texture/cld01.bmp", "original");
    ASSERT_TRUE(fakes.files.setAttributes(target, FileAttribute::ReadOnly));
    const auto outcome =
        InstallTextureSet(services, folders, request(folder, AllTicked({"cld01.bmp"})), record);
    EXPECT_FALSE(outcome.installed);
    EXPECT_TRUE(outcome.stopAutoRandom);
    EXPECT_EQ(fakes.messages.last().title, "Install Error");
    EXPECT_EQ(fakes.messages.last().style, MessageStyle::Critical);
    EXPECT_EQ(fakes.messages.last().text,
              "Could not kill the using files.\n" + JoinPath(folders.FsTexturePath, "cld01.bmp") +
                  "\n\nBe sure your attribute on Msfs folder and texture folder is in Archive "
                  "attribute and not Read only.");
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original");
    EXPECT_TRUE(record.entries().empty());
}

TEST_F(InstallTest, AFileWhoseOriginalCannotBeKeptIsLeftAndTheMessageSaysWhy)
{
    const std::string folder = set("Clouds/Summer haze", {"cld01.bmp"});
    temp.write("FS9/texture/cld01.bmp", "original");
    // The simulator lies outside the data folder here, as it does for users.
    const std::string store = temp / "Vellumar/Originals";
    fakes.originals.protect({folders.FsPath}, temp / "Vellumar", store);
    fakes.files.failReplace = [](const std::string& path) {
        return path.find("Originals") != std::string::npos; // a full disk, say
    };
    TextureServices guarded{fakes.messages, fakes.originals, fakes.events, fakes.clock};
    const auto outcome =
        InstallTextureSet(guarded, folders, request(folder, AllTicked({"cld01.bmp"})), record);
    EXPECT_FALSE(outcome.installed);
    const std::string target = JoinPath(folders.FsTexturePath, "cld01.bmp");
    EXPECT_EQ(fakes.messages.last().title, "Install Error");
    EXPECT_EQ(fakes.messages.last().text,
              "Could not install " + target + ".\nThe simulator's original of " + target +
                  " could not be kept first in " + store +
                  ", so it was left as it is.\n\nIs the data folder's disk full, or not "
                  "writable?");
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original");
}

TEST_F(InstallTest, AReadOnlyFileOfTheSameNameInOtherLetterCaseIsNeverDeleted)
{
    const std::string folder = set("Clouds/Summer haze", {"cld01.bmp"});
    temp.write("FS9/texture/cld01.bmp", "original");
    const std::string variant = temp.write("FS9/texture/CLD01.BMP", "kept");
    if (filesUnder("FS9/texture").size() != 2)
        GTEST_SKIP() << "this file system cannot hold both names";
    ASSERT_TRUE(fakes.files.setAttributes(variant, FileAttribute::ReadOnly));
    EXPECT_FALSE(
        InstallTextureSet(services, folders, request(folder, AllTicked({"cld01.bmp"})), record)
            .installed);
    // The message (checked to the letter above) names the variant that stopped the install.
    EXPECT_NE(fakes.messages.last().text.find("\n" + variant + "\n"), std::string::npos);
    EXPECT_EQ(temp.read("FS9/texture/CLD01.BMP"), "kept");
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "original");
    EXPECT_EQ(filesUnder("FS9/texture").size(), 2u);
}

TEST_F(InstallTest, ACopyFailingHalfWayLeavesEveryTargetWholeAndNoTemporaryFile)
{
    const std::string folder =
        set("Clouds/Five", {"a1.bmp", "a2.bmp", "a3.bmp", "a4.bmp", "a5.bmp"});
    for (const char* name : {"a1.bmp", "a2.bmp", "a3.bmp", "a4.bmp", "a5.bmp"})
        temp.write(std::string("FS9/texture/") + name, std::string("original ") + name);
    // The third copy fills the disk.
    fakes.files.failCopyHalfway = [](const std::string& source, const std::string&) {
        return LastPathComponent(source) == "a3.bmp";
    };
    const auto outcome = InstallTextureSet(
        services, folders,
        request(folder, AllTicked({"a1.bmp", "a2.bmp", "a3.bmp", "a4.bmp", "a5.bmp"})), record);
    EXPECT_FALSE(outcome.installed);
    EXPECT_TRUE(outcome.stopAutoRandom);
    EXPECT_EQ(temp.read("FS9/texture/a1.bmp"), "new a1.bmp");
    EXPECT_EQ(temp.read("FS9/texture/a2.bmp"), "new a2.bmp");
    EXPECT_EQ(temp.read("FS9/texture/a3.bmp"), "original a3.bmp");
    EXPECT_EQ(temp.read("FS9/texture/a4.bmp"), "original a4.bmp");
    EXPECT_EQ(filesUnder("FS9/texture").size(), 5u); // nothing temporary left behind
    EXPECT_TRUE(record.entries().empty());
    // The progress ends with the run, so the window drops its bar.
    ASSERT_FALSE(progress.empty());
    EXPECT_EQ(progress.back().first, progress.back().second);
    const std::string target = JoinPath(folders.FsTexturePath, "a3.bmp");
    EXPECT_EQ(fakes.messages.last().text, "Could not copy the files.\nFrom: " +
                                              JoinPath(folder, "a3.bmp") + "\nTo  : " + target +
                                              "\n\nBe sure your attribute on Msfs folder and "
                                              "texture folder is in Archive attribute and not "
                                              "Read only.");
}

TEST_F(InstallTest, MissingBackupsAreOfferedAndTheUncopyableListed)
{
    const std::string folder = set("Clouds/Summer haze", {"cld01.bmp", "clouds.cld"});
    temp.write("FS9/texture/cld01.bmp", "original");
    InstallRequest withBackups = request(folder, AllTicked({"cld01.bmp", "clouds.cld"}));
    withBackups.backupOriginals = true;
    fakes.messages.answerNext(MessageResult::Yes);
    EXPECT_TRUE(InstallTextureSet(services, folders, withBackups, record).installed);
    ASSERT_EQ(fakes.messages.shown().size(), 2u);
    EXPECT_EQ(fakes.messages.shown()[0].title, "No Backup files");
    EXPECT_EQ(fakes.messages.shown()[0].style, 52);
    EXPECT_EQ(fakes.messages.shown()[0].text,
              "*** Summer haze ***\n\nFollowing backup files are not found.\n"
              "Try to backup these files again?\n cld01.bmp\n clouds.cld");
    EXPECT_EQ(temp.read("BackUp/cld01.bmp"), "original");
    EXPECT_EQ(fakes.messages.last().style, 49);
    EXPECT_EQ(fakes.messages.last().text, "*** Summer haze ***\n\n"
                                          "Texture set from above will be installed.\n\n"
                                          "And following files is not backuped.\n clouds.cld");
}

} // namespace
} // namespace vellumar
