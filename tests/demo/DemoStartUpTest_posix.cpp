// The promise of the demo: pointed at it through WINEPREFIX and VELLUMAR_HOME, the program
// starts with the platform's own registry, system folders and file operations, and shows no
// message at all.

#include "app/StartUpSequence.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "config/Registry.h"
#include "config/SystemFolders.h"
#include "config/WinePrefix.h"
#include "demo/DemoEnvironment.h"
#include "sound/CdioDrive.h"
#include "sound/CreatePlatformMediaControl.h"
#include "sound/MediaControl.h"
#include "sound/MusicList.h"
#include "support/FakeClock.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"
#include "textures/SetCatalogue.h"

#include <QImage>
#include <QString>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <set>

namespace vellumar {
namespace {

namespace fs = std::filesystem;

// Sets environment variables for one test and puts the old values back afterwards.
class ScopedEnvironment {
public:
    void set(const std::string& name, const std::string& value)
    {
        if (!saved_.contains(name)) {
            const char* old = std::getenv(name.c_str());
            saved_[name] = old ? std::optional<std::string>(old) : std::nullopt;
        }
        ::setenv(name.c_str(), value.c_str(), 1);
    }
    ~ScopedEnvironment()
    {
        for (const auto& [name, value] : saved_)
            if (value)
                ::setenv(name.c_str(), value->c_str(), 1);
            else
                ::unsetenv(name.c_str());
    }

private:
    std::map<std::string, std::optional<std::string>> saved_;
};

class DemoStartUpTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    ScopedEnvironment environment;
    test::TestServices fakes;
    std::unique_ptr<Registry> registry = CreatePlatformRegistry();
    std::unique_ptr<SystemFolders> systemFolders = CreatePlatformSystemFolders();
    std::unique_ptr<FileOperations> files = CreatePlatformFileOperations();
    OriginalsGuard originals{*files};
    Services services{fakes.messages, fakes.events,   originals,       *registry,
                      *systemFolders, fakes.launcher, fakes.simulator, fakes.folderBrowser,
                      fakes.sounds,   fakes.clock,    originals};
    DemoOutcome demo;

    void SetUp() override
    {
        demo = BuildDemoEnvironment(*files, {temp / "demo", false, "pilot", ""});
        ASSERT_TRUE(demo.built) << demo.error;
        environment.set("WINEPREFIX", demo.prefix);
        environment.set("VELLUMAR_HOME", demo.home);
        environment.set("USER", "pilot");
    }

    std::string shownMessages() const
    {
        std::string text;
        for (const auto& shown : fakes.messages.shown())
            text += "[" + shown.title + "] " + shown.text + "\n";
        return text;
    }
};

TEST_F(DemoStartUpTest, TheProgramStartsOnTheDemoWithoutASingleMessage)
{
    ProgramState state;
    ScreenFacts screen;
    ASSERT_EQ(RunStartUpSequence(services, screen, state), StartUpOutcome::Continue)
        << shownMessages();
    EXPECT_TRUE(fakes.messages.empty()) << shownMessages();

    // The simulator comes from the prefix's registry, through drive C:.
    EXPECT_TRUE(fs::equivalent(state.paths.FsPath,
                               temp / "demo/prefix/drive_c/Program Files (x86)/Microsoft Games/"
                                      "Flight Simulator 9"));
    EXPECT_TRUE(fs::equivalent(state.paths.ProgramPath, demo.home));
    EXPECT_TRUE(fs::equivalent(state.paths.DataFolder, demo.home));
    EXPECT_TRUE(fs::is_directory(state.paths.FsFilesFolder));

    // Every feature is on: situations, splash rotation, both sounds, the editor.
    EXPECT_TRUE(state.settings.SituationEnabled);
    EXPECT_TRUE(state.checks.SplashEnabled);
    EXPECT_FALSE(state.checks.Sounds.ButtonSoundPath.empty());
    EXPECT_FALSE(state.checks.Sounds.AutoRandomSoundPath.empty());
    EXPECT_TRUE(fs::is_regular_file(state.checks.EditorPath));
    EXPECT_EQ(state.settings.SplashMode, "order");
    // The music list as channel 3 plays it: the playlist's entries in its place.
    EXPECT_EQ(state.settings.MusicFiles.size(), 3u);
    std::vector<std::string> music;
    for (const std::string& piece : ExpandMusicList(*files, *registry, state.settings.MusicFiles))
        music.push_back(fs::path(piece).filename().string());
    EXPECT_EQ(music, (std::vector<std::string>{"engine-drone.wav", "little-waltz.wav",
                                               "tower-chime.wav", "wind.wav"}));

    // The library: every set loaded with a preview the window can show, the numbered series
    // as three, every category and every data type the program knows present.
    std::set<int> categories;
    std::set<std::string> types;
    bool series = false, outOfAutoRandom = false;
    for (const TextureSetEntry& set : state.settings.Sets) {
        const SetFolderFiles contents = ScanSetFolder(*files, fakes.events, set.folder);
        const std::string preview = PreviewPictureOf(contents);
        EXPECT_FALSE(QImage(QString::fromStdString(JoinPath(set.folder, preview))).isNull())
            << set.folder << " has no preview the window can show";
        categories.insert(set.compatibility);
        types.insert(DataTypeOf(contents));
        series |= set.name == "t-storm  3";
        outOfAutoRandom |= !set.random;
    }
    EXPECT_EQ(state.settings.Sets.size(), 19u);
    EXPECT_EQ(categories, (std::set<int>{1, 2, 3, 5}));
    EXPECT_EQ(types, (std::set<std::string>{"Thunder", "Cumulus", "Stratus", "Cirrus", "Sky Color",
                                            "Earth", "Sun flare", "Sun", "Runway", "Moon", "Rain",
                                            "VC Rain", "Snow", "Autogen", "Unknown"}));
    EXPECT_TRUE(series);
    EXPECT_TRUE(outOfAutoRandom);
}

// The CD player on the disc that VELLUMAR_CD names, as the demo tells the user to set it.
TEST_F(DemoStartUpTest, TheCdPlayerFindsTheDemosDiscOfThreeShortTunes)
{
    environment.set("VELLUMAR_CD", demo.cd);
    test::FakeClock clock;
    const std::unique_ptr<MediaControl> cd = CreatePlatformMediaControl(clock);
    const auto send = [&cd](const std::string& command) {
        std::string reply;
        const std::uint32_t error = cd->SendString(command, reply);
        return error ? "error " + std::to_string(error) + ": " + cd->ErrorText(error) : reply;
    };
    ASSERT_EQ(send("open cdaudio alias cd wait shareable"), "");
    EXPECT_EQ(send("status cd media present wait"), "true");
    EXPECT_EQ(send("status cd number of tracks wait"), "3");
    EXPECT_EQ(send("set cd time format milliseconds wait"), "");
    for (int track = 1; track <= 3; ++track) {
        EXPECT_EQ(send("status cd type track " + std::to_string(track)), "audio");
        const std::string length = send("status cd length track " + std::to_string(track));
        EXPECT_TRUE(std::atoi(length.c_str()) >= 4000 && std::atoi(length.c_str()) <= 6000)
            << "track " << track << ": " << length;
    }
    EXPECT_EQ(send("close cd wait"), "");

    // What the player would hear: every track is a tune, not silence, and no two are the same.
    const std::unique_ptr<CdDrive> drive = CreateCdioDrive(demo.cd);
    drive->Refresh();
    ASSERT_NE(drive->disc(), nullptr);
    std::vector<std::vector<std::uint8_t>> tracks;
    for (const CdDisc::Track& track : drive->disc()->tracks) {
        std::vector<std::uint8_t>& audio = tracks.emplace_back(
            static_cast<std::size_t>(track.sectorCount) * CdDisc::BytesPerSector);
        ASSERT_TRUE(drive->ReadAudio(track.firstSector, track.sectorCount, audio.data()));
        int loudest = 0;
        for (std::size_t i = 0; i + 1 < audio.size(); i += 2)
            loudest = std::max(loudest,
                               std::abs(static_cast<std::int16_t>(audio[i] | audio[i + 1] << 8)));
        EXPECT_GT(loudest, 16000) << "track " << tracks.size();
    }
    ASSERT_EQ(tracks.size(), 3u);
    const auto opening = [&tracks](std::size_t track) {
        return std::vector<std::uint8_t>(tracks[track].begin(),
                                         tracks[track].begin() + 75 * CdDisc::BytesPerSector);
    };
    EXPECT_NE(opening(0), opening(1));
    EXPECT_NE(opening(1), opening(2));
    EXPECT_NE(opening(0), opening(2));
}

TEST_F(DemoStartUpTest, WineFindsDriveCAndTheUsersFolders)
{
    EXPECT_TRUE(demo.notes.empty());
    // dosdevices/c: links to drive_c, as in every prefix Wine makes.
    const fs::path link = temp / "demo/prefix/dosdevices/c:";
    ASSERT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::read_symlink(link), "../drive_c");
    EXPECT_TRUE(fs::equivalent(WinePrefix::HostPath(demo.prefix, "C:\\windows\\notepad.exe"),
                               temp / "demo/prefix/drive_c/windows/notepad.exe"));
    EXPECT_TRUE(fs::equivalent(WinePrefix::UserProfileFolder(demo.prefix),
                               temp / "demo/prefix/drive_c/users/pilot"));
    EXPECT_TRUE(fs::equivalent(systemFolders->appDataFolder(),
                               temp / "demo/prefix/drive_c/users/pilot/AppData/Roaming"));
    EXPECT_TRUE(fs::equivalent(systemFolders->documentsFolder(),
                               temp / "demo/prefix/drive_c/users/pilot/Documents"));
    EXPECT_TRUE(
        fs::equivalent(systemFolders->windowsFolder(), temp / "demo/prefix/drive_c/windows"));
}

} // namespace
} // namespace vellumar
