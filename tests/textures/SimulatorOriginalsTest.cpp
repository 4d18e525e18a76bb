// Putting the simulator's originals back, and an install that was cut off.

#include "textures/SimulatorOriginals.h"

#include "common/MessageService.h"
#include "common/OriginalsGuard.h"
#include "common/ReplaceFile.h"
#include "common/Sha256.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"
#include "textures/InstallJournal.h"
#include "textures/InterruptedInstall.h"
#include "textures/TextureFolders.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vellumar {
namespace {

class SimulatorOriginalsTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    TextureServices textures{fakes.messages, fakes.services.files, fakes.events, fakes.clock};
    std::string data = temp.makeFolder("Data");

    void SetUp() override
    {
        temp.write("FS9/texture/cld01.bmp", "stock cloud");
        temp.write("FS9/texture/sky01.bmp", "stock sky");
        fakes.originals.protect({temp / "FS9"}, data, OriginalsStore::FolderIn(data));
    }

    OriginalsStore& store() { return *fakes.originals.store(); }

    void place(const std::string& relative, const std::string& bytes)
    {
        const std::string source = temp.write("Data/Texture/Storm/" + bytes, bytes);
        ASSERT_EQ(ReplaceFileWith(fakes.services.files, source, temp / ("FS9/" + relative)),
                  ReplaceResult::Replaced);
    }
};

TEST_F(SimulatorOriginalsTest, RestoreAsksWithTheCountThenPutsBackAndRemovesWhatWasAdded)
{
    place("texture/cld01.bmp", "storm cloud");
    place("texture/sky01.bmp", "storm sky");
    place("texture/rain.bmp", "storm rain");
    place("texture/sky01.bmp", "dusk sky");

    // Answered No (what vellumar-cli answers without --yes), nothing changes.
    fakes.messages.answerNext(MessageResult::No);
    EXPECT_FALSE(RestoreSimulatorOriginals(textures, store()));
    EXPECT_NE(fakes.messages.last().text.find("3 files of the simulator will change"),
              std::string::npos)
        << fakes.messages.last().text;
    EXPECT_EQ(temp.read("FS9/texture/rain.bmp"), "storm rain");

    fakes.messages.answerNext(MessageResult::Yes);
    EXPECT_TRUE(RestoreSimulatorOriginals(textures, store()));
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "stock cloud");
    EXPECT_EQ(temp.read("FS9/texture/sky01.bmp"), "stock sky");
    EXPECT_FALSE(std::filesystem::exists(temp / "FS9/texture/rain.bmp"));
    EXPECT_EQ(fakes.messages.last().text, "2 files restored, 1 file added by Vellumar removed.");

    // Everything is as first found: a second restore has nothing to do and changes nothing.
    for (const OriginalNow& now : CompareOriginals(fakes.services.files, store()))
        EXPECT_FALSE(now.differs) << now.original.path;
}

TEST_F(SimulatorOriginalsTest, ADamagedKeptCopyIsReportedAndNotUsed)
{
    place("texture/cld01.bmp", "storm cloud");
    place("texture/sky01.bmp", "storm sky");
    test::WriteWholeFile(store().contentPath(Sha256Hex("stock sky")), "stock skx");

    fakes.messages.answerNext(MessageResult::Yes);
    EXPECT_FALSE(RestoreSimulatorOriginals(textures, store()));
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "stock cloud");
    EXPECT_EQ(temp.read("FS9/texture/sky01.bmp"), "storm sky");
    const auto& report = fakes.messages.last();
    EXPECT_NE(report.text.find("damaged and were not used:\n " + (temp / "FS9/texture/sky01.bmp")),
              std::string::npos)
        << report.text;
    EXPECT_EQ(report.style & MessageStyle::IconMask, MessageStyle::Critical);
}

class InterruptedInstallTest : public SimulatorOriginalsTest {
protected:
    // An install of two files that was killed after the first.
    void cutOff()
    {
        InstallJournal journal{"Storm approach", {}};
        journal.files = {{temp.write("Data/Texture/Storm/cld01.bmp", "storm cloud"),
                          temp / "FS9/texture/cld01.bmp"},
                         {temp.write("Data/Texture/Storm/sky01.bmp", "storm sky"),
                          temp / "FS9/texture/sky01.bmp"}};
        ASSERT_TRUE(WriteInstallJournal(fakes.services.files, InstallJournalPath(data), journal));
        place("texture/cld01.bmp", "storm cloud");
    }

    InterruptedInstallChoice offer(int answer)
    {
        fakes.messages.answerNext(answer);
        return OfferInterruptedInstall(textures, store(), data);
    }
};

TEST_F(InterruptedInstallTest, NamesTheSetAndHowFarItGotAndLeavesItForLaterByDefault)
{
    EXPECT_EQ(OfferInterruptedInstall(textures, store(), data), InterruptedInstallChoice::None);
    EXPECT_TRUE(fakes.messages.empty());
    cutOff();

    EXPECT_EQ(offer(DefaultAnswer(MessageStyle::YesNoCancel | MessageStyle::DefaultButton3)),
              InterruptedInstallChoice::Left);
    const auto& asked = fakes.messages.last();
    EXPECT_EQ(asked.title, "Interrupted Install");
    EXPECT_NE(asked.text.find("*** Storm approach ***"), std::string::npos);
    EXPECT_NE(asked.text.find("1 of 2 files were placed"), std::string::npos) << asked.text;
    EXPECT_EQ(DefaultAnswer(asked.style), MessageResult::Cancel);
    EXPECT_EQ(temp.read("FS9/texture/sky01.bmp"), "stock sky");
    // Asked again at the next start.
    EXPECT_EQ(offer(MessageResult::Cancel), InterruptedInstallChoice::Left);
}

TEST_F(InterruptedInstallTest, YesCompletesTheInstall)
{
    cutOff();
    EXPECT_EQ(offer(MessageResult::Yes), InterruptedInstallChoice::Completed);
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "storm cloud");
    EXPECT_EQ(temp.read("FS9/texture/sky01.bmp"), "storm sky");
    EXPECT_FALSE(std::filesystem::exists(InstallJournalPath(data)));
}

TEST_F(InterruptedInstallTest, NoPutsThePlacedFilesOriginalsBack)
{
    cutOff();
    EXPECT_EQ(offer(MessageResult::No), InterruptedInstallChoice::PutBack);
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "stock cloud");
    EXPECT_EQ(temp.read("FS9/texture/sky01.bmp"), "stock sky");
    EXPECT_FALSE(std::filesystem::exists(InstallJournalPath(data)));
    EXPECT_EQ(OfferInterruptedInstall(textures, store(), data), InterruptedInstallChoice::None);
}

} // namespace
} // namespace vellumar
