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
#include "support/TempFolder.h"
#include "support/TestServices.h"
#include "textures/SetCatalogue.h"

#include <QImage>
#include <QString>

#include <gtest/gtest.h>

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
    EXPECT_EQ(state.settings.MusicFiles.size(), 1u);

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
