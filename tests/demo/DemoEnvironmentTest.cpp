// The demo environment is built into temporary folders through the real file operations and
// then read the way a newcomer's program and simulator would read it: pictures decoded by Qt,
// INI and registry files read by the program's own readers. (DemoStartUpTest starts the
// program on it.)

#include "demo/DemoEnvironment.h"

#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "common/TextCompare.h"
#include "config/ProfileText.h"
#include "config/WineRegistryFile.h"
#include "demo/DemoDefaultCloudIni.h"
#include "demo/DemoProgram.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <QByteArray>
#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <sstream>

namespace vellumar {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUser = "pilot";

std::uint32_t U32(const std::string& b, std::size_t at)
{
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(b.at(at + static_cast<std::size_t>(i)));
    return value;
}

unsigned U16(const std::string& b, std::size_t at)
{
    return static_cast<unsigned char>(b.at(at)) | static_cast<unsigned char>(b.at(at + 1)) << 8;
}

// Every plain file below a folder, by path relative to it ("/" separated); links are not
// followed, so the prefix's drive link does not count drive C: twice.
std::map<std::string, std::string> FilesBelow(const std::string& root)
{
    std::map<std::string, std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file() && !entry.is_symlink())
            files[fs::relative(entry.path(), root).generic_string()] =
                test::ReadWholeFile(entry.path().string());
    return files;
}

bool EndsWith(const std::string& name, std::string_view suffix)
{
    return EndsWithIgnoreCase(name, suffix);
}

std::string Ini(const std::string& contents, std::string_view section, std::string_view key)
{
    return ProfileText::Read(contents, section, key, "<absent>", 4096);
}

// A cloud.ini value as the program takes it: everything from the first "'" is a comment.
std::string IniValue(const std::string& contents, std::string_view section, std::string_view key)
{
    std::string value = Ini(contents, section, key);
    if (const std::size_t apostrophe = value.find('\''); apostrophe != std::string::npos)
        value = std::string(TrimBlanks(value.substr(0, apostrophe)));
    return value;
}

std::string Native(std::string path)
{
    for (char& c : path)
        if (c == '\\' || c == '/')
            c = kNativeSeparator;
    return path;
}

// The spread of brightness in a picture: one that came out as a flat colour (all black, say)
// has none.
int BrightnessSpread(const QImage& picture)
{
    int low = 255, high = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const int v = qGray(picture.pixel(x, y));
            low = std::min(low, v);
            high = std::max(high, v);
        }
    return high - low;
}

std::vector<std::string> PlainFilesIn(const std::string& folder)
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.is_regular_file())
            names.push_back(entry.path().filename().string());
    return names;
}

// One demo shared by the tests that only read it.
class DemoEnvironmentTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        temp_ = std::make_unique<test::TempFolder>();
        test::FaultyFileOperations files;
        outcome_ = std::make_unique<DemoOutcome>(
            BuildDemoEnvironment(files, {(*temp_) / "demo", false, kUser, ""}));
        files_ = std::make_unique<std::map<std::string, std::string>>(FilesBelow(outcome_->folder));
    }
    static void TearDownTestSuite()
    {
        files_.reset();
        outcome_.reset();
        temp_.reset();
    }

    static const DemoOutcome& outcome() { return *outcome_; }
    static const std::map<std::string, std::string>& files() { return *files_; }
    static const std::string& file(const std::string& relative) { return files_->at(relative); }
    static std::string home(const std::string& relative)
    {
        return JoinPath(outcome_->home, Native(relative));
    }
    static const std::string& cloudIni() { return file("home/cloud.ini"); }

    static inline std::unique_ptr<test::TempFolder> temp_;
    static inline std::unique_ptr<DemoOutcome> outcome_;
    static inline std::unique_ptr<std::map<std::string, std::string>> files_;
};

TEST_F(DemoEnvironmentTest, SaysWhereToPointTheProgram)
{
    ASSERT_TRUE(outcome().built) << outcome().error;
    EXPECT_FALSE(outcome().replaced);
    EXPECT_EQ(outcome().prefix, JoinPath((*temp_) / "demo", "prefix"));
    EXPECT_EQ(outcome().home, JoinPath((*temp_) / "demo", "home"));
    EXPECT_EQ(static_cast<std::size_t>(outcome().files), files().size());
    EXPECT_LT(outcome().bytes, 6u << 20); // a few megabytes, not more
    EXPECT_TRUE(file(std::string(kDemoMarkerName)).starts_with(kDemoMarkerSignature));
}

TEST_F(DemoEnvironmentTest, EveryPictureDecodesAndTexturesAreBitmapsTheSimulatorLoads)
{
    int bitmaps = 0, eightBit = 0, gifs = 0, jpegs = 0;
    for (const auto& [name, contents] : files()) {
        const bool bitmap = EndsWith(name, ".bmp");
        gifs += EndsWith(name, ".gif");
        jpegs += EndsWith(name, ".jpg") || EndsWith(name, ".jpeg");
        if (!bitmap && !EndsWith(name, ".gif") && !EndsWith(name, ".jpg") &&
            !EndsWith(name, ".jpeg"))
            continue;
        const QImage picture = QImage::fromData(QByteArray::fromStdString(contents));
        ASSERT_FALSE(picture.isNull()) << name << " does not decode";
        EXPECT_GT(BrightnessSpread(picture), 40) << name << " is nearly flat";
        if (!bitmap)
            continue;
        // The simulator reads uncompressed bitmaps with the 40-byte header, 24 bits or 8 with
        // a palette, no larger than 256 pixels a side.
        ++bitmaps;
        ASSERT_GE(contents.size(), 54u) << name;
        const unsigned bits = U16(contents, 28);
        EXPECT_EQ(U32(contents, 14), 40u) << name;
        EXPECT_EQ(U32(contents, 30), 0u) << name << " is compressed";
        EXPECT_TRUE(bits == 24 || bits == 8) << name << " has " << bits << " bits";
        EXPECT_TRUE(picture.width() >= 64 && picture.width() <= 256 && picture.height() >= 64 &&
                    picture.height() <= 256)
            << name;
        eightBit += bits == 8;
    }
    EXPECT_GE(bitmaps, 50);
    EXPECT_GE(eightBit, 3); // the grey rain and snow textures
    EXPECT_GE(gifs, 10);
    EXPECT_GE(jpegs, 5);
}

TEST_F(DemoEnvironmentTest, SoundsAreShortPcmWaves)
{
    int waves = 0;
    for (const auto& [name, contents] : files()) {
        if (!EndsWith(name, ".wav"))
            continue;
        ++waves;
        ASSERT_GE(contents.size(), 44u) << name;
        EXPECT_TRUE(contents.starts_with("RIFF") && contents.substr(8, 8) == "WAVEfmt ") << name;
        EXPECT_EQ(U32(contents, 4) + 8, contents.size()) << name;
        EXPECT_EQ(U16(contents, 20), 1u) << name; // PCM
        EXPECT_EQ(contents.substr(36, 4), "data") << name;
        EXPECT_EQ(U32(contents, 40) + 44, contents.size()) << name;
        EXPECT_LT(contents.size(), 100000u) << name;
    }
    EXPECT_GE(waves, 9);
}

TEST_F(DemoEnvironmentTest, SetsHoldWhatTheSimulatorReadsAndNotesThatStayBehind)
{
    std::set<std::string> kinds;
    for (const auto& [name, contents] : files()) {
        if (!name.starts_with("home/Texture/"))
            continue;
        const std::string bare = name.substr(name.rfind('/') + 1);
        for (const char* ending : {".cld", ".xml", ".fx", "suneffect.cfg", "notes.txt"})
            if (EndsWith(bare, ending))
                kinds.insert(ending);
        if (EndsWith(bare, ".cld") || EndsWith(bare, ".cfg") || EndsWith(bare, ".fx")) {
            EXPECT_NE(contents.find("\r\n"), std::string::npos) << name << " has Windows line ends";
        }
    }
    EXPECT_EQ(kinds.size(), 5u);
    // Option sets: sub-folders of Texture\Option holding bitmaps.
    int options = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(home("Texture/Option"))) {
        ++options;
        const std::vector<std::string> names = PlainFilesIn(entry.path().string());
        EXPECT_TRUE(std::any_of(names.begin(), names.end(),
                                [](const std::string& n) { return EndsWith(n, ".bmp"); }));
    }
    EXPECT_GE(options, 2);
}

TEST_F(DemoEnvironmentTest, TheSoundWindowFindsSomethingOnEveryChannelAndEveryPieceOfMusic)
{
    for (const char* key : {"Ch1Path", "Ch2Path", "Ch3Path"}) {
        const std::string folder = home(IniValue(cloudIni(), "Sound", key));
        EXPECT_TRUE(fs::is_directory(folder)) << key;
        EXPECT_FALSE(fs::is_empty(folder)) << key;
    }
    // Channel 2 has a choice to make, so its random turns can be heard.
    EXPECT_GE(PlainFilesIn(home(IniValue(cloudIni(), "Sound", "Ch2Path"))).size(), 2u);

    // The music list is read up to its first gap, and a file that is not there is skipped
    // without a word: every key must name a file, one of them a playlist.
    int pieces = 0, playlists = 0;
    for (int n = 1; Ini(cloudIni(), "Sound", "MusicFile" + std::to_string(n)) != "<absent>"; ++n) {
        const std::string piece = IniValue(cloudIni(), "Sound", "MusicFile" + std::to_string(n));
        EXPECT_TRUE(fs::is_regular_file(piece)) << "MusicFile" << n << "=" << piece;
        ++pieces;
        playlists += EndsWith(piece, ".m3u");
    }
    EXPECT_GE(pieces, 3);
    EXPECT_EQ(playlists, 1);
}

TEST_F(DemoEnvironmentTest, TheSimulatorHasItsOriginalsAndWindowsItsEventSounds)
{
    // The simulator's originals that sets replace, so that a restore has something to bring
    // back, and an executable that starts under Wine.
    const std::string simulator = Native(IniValue(cloudIni(), "FS2004Path", "Path"));
    EXPECT_TRUE(test::ReadWholeFile(JoinPath(simulator, "fs9.exe")).starts_with("MZ"));
    for (const char* part : {"texture/cld01.bmp", "weather/clouds/clouds.cld", "effects/glow.fx",
                             "effects/texture/fx_glow.bmp", "UIRES/dlgsplash.bmp", "suneffect.cfg"})
        EXPECT_TRUE(fs::is_regular_file(JoinPath(simulator, Native(part)))) << part;

    // The sounds of the message box events, which the program plays without a button sound.
    const std::string& defaultUser = file("prefix/userdef.reg");
    for (const char* event :
         {"SystemAsterisk", "SystemExclamation", "SystemQuestion", "SystemHand"}) {
        const std::optional<std::string> sound = WineRegistryScanner::Find(
            defaultUser,
            {std::string("AppEvents\\Schemes\\Apps\\.Default\\") + event + "\\.Current"}, "");
        ASSERT_TRUE(sound.has_value()) << event;
        ASSERT_TRUE(StartsWithIgnoreCase(*sound, "%SystemRoot%")) << *sound;
        EXPECT_TRUE(fs::is_regular_file(
            JoinPath(JoinPath(outcome().prefix, "drive_c/windows"), Native(sound->substr(13)))))
            << *sound;
    }
}

TEST_F(DemoEnvironmentTest, SituationsComeInPairsWithPicturesAndNameExistingSets)
{
    int situations = 0;
    for (const auto& [name, contents] : files()) {
        if (!name.starts_with("home/Situation/") ||
            !(EndsWith(name, ".FLT") || EndsWith(name, ".WX")))
            continue;
        ++situations;
        const std::string stem = name.substr(0, name.rfind('.'));
        EXPECT_TRUE(files().contains(stem + ".jpg")) << name;
        EXPECT_TRUE(files().contains(stem + ".FLT") && files().contains(stem + ".WX")) << name;
        EXPECT_NE(Ini(contents, "Vellumar", "ShownText"), "<absent>") << name;
        int sets = 0;
        for (int n = 1; Ini(contents, "Vellumar", "SkyFolder" + std::to_string(n)) != "<absent>";
             ++n, ++sets) {
            const std::string folder =
                home("Texture/" + Ini(contents, "Vellumar", "SkyFolder" + std::to_string(n)));
            const std::vector<std::string> names =
                fs::is_directory(folder) ? PlainFilesIn(folder) : std::vector<std::string>{};
            EXPECT_TRUE(std::any_of(names.begin(), names.end(),
                                    [](const std::string& f) { return EndsWith(f, ".bmp"); }))
                << name << " names " << folder;
        }
        EXPECT_GE(sets, 1) << name;
    }
    EXPECT_GE(situations, 6);
    EXPECT_TRUE(files().contains("home/help/index.html"));
}

TEST_F(DemoEnvironmentTest, TheDemoIniKeepsEveryDocumentedSettingOfTheDefault)
{
    const std::string defaults(DefaultCloudIni());
    const std::string sections =
        ProfileText::Read(defaults, std::nullopt, std::nullopt, "", 1 << 16);
    std::size_t checked = 0;
    for (std::size_t start = 0; start < sections.size(); start = sections.find('\0', start) + 1) {
        const std::string section = sections.substr(start, sections.find('\0', start) - start);
        if (section.starts_with("Set"))
            continue; // the default's example set makes way for the demo's sets
        const std::string keys = ProfileText::Read(defaults, section, std::nullopt, "", 1 << 16);
        for (std::size_t k = 0; k < keys.size(); k = keys.find('\0', k) + 1, ++checked)
            EXPECT_NE(Ini(cloudIni(), section, keys.substr(k, keys.find('\0', k) - k)), "<absent>")
                << "[" << section << "] " << keys.substr(k, keys.find('\0', k) - k);
    }
    EXPECT_GE(checked, 40u);
    // The documentation comes along: every comment line of the default's settings.
    EXPECT_NE(cloudIni().find("; [AppName]  The program's name."), std::string::npos);
    EXPECT_EQ(cloudIni().find("Clouds\\My first set"), std::string::npos);
}

// ---------------------------------------------------------------------------------------------
// Building into folders that are not empty

class DemoRebuildTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::FaultyFileOperations files;

    DemoOutcome build(bool force = false)
    {
        return BuildDemoEnvironment(files, {temp / "demo", force, kUser, ""});
    }
};

TEST_F(DemoRebuildTest, AForeignFolderOrAFileIsRefusedAndLeftAlone)
{
    temp.write("demo/letter.txt", "mine");
    temp.write("demo/home/budget.xls", "also mine");
    const DemoOutcome outcome = build();
    EXPECT_FALSE(outcome.built);
    EXPECT_NE(outcome.error.find("--force"), std::string::npos);
    EXPECT_NE(outcome.error.find("not empty"), std::string::npos);
    EXPECT_EQ(FilesBelow(temp / "demo").size(), 2u);
    EXPECT_EQ(temp.read("demo/home/budget.xls"), "also mine");

    temp.write("file", "a file");
    const DemoOutcome onAFile = BuildDemoEnvironment(files, {temp / "file", true, kUser, ""});
    EXPECT_FALSE(onAFile.built);
    EXPECT_NE(onAFile.error.find("is a file"), std::string::npos);
    EXPECT_EQ(temp.read("file"), "a file");
}

TEST_F(DemoRebuildTest, ForceBuildsThereAndKeepsWhatIsNotTheDemos)
{
    temp.write("demo/letter.txt", "mine");
    temp.write("demo/home/budget.xls", "replaced with the rest of home");
    const DemoOutcome outcome = build(true);
    ASSERT_TRUE(outcome.built) << outcome.error;
    EXPECT_TRUE(outcome.replaced);
    EXPECT_EQ(temp.read("demo/letter.txt"), "mine");
    EXPECT_FALSE(fs::exists(temp / "demo/home/budget.xls"));
    EXPECT_TRUE(fs::is_regular_file(temp / "demo/home/cloud.ini"));
}

TEST_F(DemoRebuildTest, AnEarlierDemoIsRebuiltExactlyAsNew)
{
    ASSERT_TRUE(build().built);
    const std::map<std::string, std::string> first = FilesBelow(temp / "demo");

    // A newcomer's experiments: an installed set, an edited cloud.ini, a stray set folder.
    temp.write("demo/home/Texture/Clouds/Experiment/cld99.bmp", "x");
    temp.write("demo/home/cloud.ini", "[AppName]\r\nName=edited\r\n");
    fs::remove(temp / "demo/prefix/drive_c/Program Files (x86)/Microsoft Games/Flight Simulator "
                      "9/texture/sun.bmp");

    for (bool force : {false, true}) {
        const DemoOutcome again = build(force);
        ASSERT_TRUE(again.built) << again.error;
        EXPECT_TRUE(again.replaced);
        EXPECT_EQ(FilesBelow(temp / "demo"), first) << (force ? "with" : "without") << " --force";
    }
}

TEST_F(DemoRebuildTest, AWriteThatFailsIsReportedAndTheNextRunFinishesTheJob)
{
    files.failReplace = [](const std::string& path) { return path.ends_with("system.reg"); };
    const DemoOutcome failed = build();
    EXPECT_FALSE(failed.built);
    EXPECT_NE(failed.error.find("system.reg"), std::string::npos);
    EXPECT_FALSE(fs::exists(temp / "demo/home")); // nothing is written after a failure

    // The half-built folder is recognised as a demo, so no --force is needed to finish it.
    files.failReplace = nullptr;
    const DemoOutcome finished = build();
    ASSERT_TRUE(finished.built) << finished.error;
    EXPECT_TRUE(fs::is_regular_file(temp / "demo/home/cloud.ini"));
}

TEST_F(DemoRebuildTest, AReadOnlyFileInTheOldDemoStopsTheRebuildWithItsName)
{
    // An earlier demo as far as the rebuild is concerned: the marker and a home folder.
    temp.write("demo/" + std::string(kDemoMarkerName), std::string(kDemoMarkerSignature) + "\n");
    temp.write("demo/home/Sound/button.wav", "RIFF");
    const std::string locked = temp / "demo/home/Sound/button.wav";
    ASSERT_TRUE(files.setAttributes(locked, FileAttribute::ReadOnly));
    const DemoOutcome outcome = build();
    EXPECT_FALSE(outcome.built);
    EXPECT_NE(outcome.error.find(temp / "demo/home"), std::string::npos);
    EXPECT_TRUE(fs::exists(locked));
}

// ---------------------------------------------------------------------------------------------
// Pieces with rules of their own

TEST(DemoRegistryTextTest, ANameBeyondAsciiReadsBackThroughTheProgramsScanner)
{
    test::TempFolder temp;
    test::FaultyFileOperations files;
    // Quotes would be escaped too, but Windows allows none in a folder name.
    const std::string name = "Zo\xC3\xAB 'Ace' M\xC3\xBCller";
    const DemoOutcome outcome = BuildDemoEnvironment(files, {temp / "demo", false, name, ""});
    ASSERT_TRUE(outcome.built) << outcome.error;
    const std::string registry = temp.read("demo/prefix/system.reg");
    EXPECT_EQ(WineRegistryScanner::Find(
                  registry, {"Software\\Microsoft\\Windows NT\\CurrentVersion"}, "RegisteredOwner"),
              name);
    EXPECT_EQ(WineRegistryScanner::Find(
                  temp.read("demo/prefix/user.reg"),
                  {"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders"},
                  "Personal"),
              "C:\\users\\" + name + "\\Documents");
    // Through the program's own file operations: they take UTF-8 on every system.
    EXPECT_EQ(FolderExists(files, temp / ("demo/prefix/drive_c/users/" + name + "/Documents")),
              "OK");
}

TEST(DemoProgramTest, PrintsTheVariablesToExportAndRefusesWhatItMustNotTouch)
{
    test::TempFolder temp;
    test::TestServices fakes;
    std::ostringstream out, err;
    const std::string folder = temp / "demo with blanks";
    EXPECT_EQ(RunDemoProgram(folder, false, fakes.files, out, err), 0);
    const std::string printed = out.str();
    EXPECT_NE(printed.find("export WINEPREFIX='" + JoinPath(folder, "prefix") + "'\n"),
              std::string::npos)
        << printed;
    EXPECT_NE(printed.find("export VELLUMAR_HOME='" + JoinPath(folder, "home") + "'\n"),
              std::string::npos);
    const std::string cd = JoinPath(folder, Native("home/CD/Vellumar Demo.cue"));
    EXPECT_NE(printed.find("export VELLUMAR_CD='" + cd + "'\n"), std::string::npos) << printed;
    EXPECT_TRUE(fs::is_regular_file(cd));
    EXPECT_NE(temp.read("demo with blanks/" + std::string(kDemoMarkerName))
                  .find("export VELLUMAR_CD='" + cd + "'\r\n"),
              std::string::npos);
    std::istringstream lines(printed);
    for (std::string line; std::getline(lines, line);)
        EXPECT_TRUE(line.starts_with("# ") || line.starts_with("export ")) << line; // fit for eval

    out.str("");
    EXPECT_EQ(RunDemoProgram(folder, true, fakes.files, out, err), 0);
    EXPECT_NE(out.str().find("rebuilt"), std::string::npos);

    temp.write("other/keep.txt", "x");
    err.str("");
    EXPECT_EQ(RunDemoProgram(temp / "other", false, fakes.files, out, err), 1);
    EXPECT_NE(err.str().find("--force"), std::string::npos);
    // An unset shell variable must not build in the current folder.
    EXPECT_EQ(RunDemoProgram("", false, fakes.files, out, err), 2);
}

TEST(DemoProgramTest, FsExeStartsTheStandInBesideTheDemoOrStaysAPlaceholderWithANote)
{
    test::TempFolder temp;
    test::TestServices fakes;
    std::ostringstream out, err;
    const std::string standin = temp.write("bin/vellumar-standin", "#!/bin/sh\n");
    const std::string fs9 = "prefix/drive_c/Program Files (x86)/Microsoft Games/"
                            "Flight Simulator 9/fs9.exe";
    ASSERT_EQ(RunDemoProgram(temp / "demo", false, fakes.files, out, err, standin), 0);
    const std::string script = temp.read("demo/" + fs9);
    EXPECT_TRUE(script.starts_with("#!/bin/sh\n")) << script;
    // No exec: the shell's command line must go on naming fs9.exe for the watch to find it.
    EXPECT_EQ(script.find("exec"), std::string::npos) << script;
    EXPECT_NE(script.find(ShellQuoted(standin) + " --simulator \"$(dirname \"$0\")\""),
              std::string::npos)
        << script;
    const std::string config = temp / ("demo/prefix/drive_c/users/" + CurrentUserName() +
                                       "/AppData/Roaming/Microsoft/FS9/fs9.cfg");
    EXPECT_NE(script.find("--config " + ShellQuoted(config)), std::string::npos) << script;
#ifndef _WIN32
    EXPECT_NE(fs::status(temp / ("demo/" + fs9)).permissions() & fs::perms::others_exec,
              fs::perms::none);
#endif
    EXPECT_EQ(err.str(), "");

    ASSERT_EQ(RunDemoProgram(temp / "demo", false, fakes.files, out, err, temp / "bin/gone"), 0);
    EXPECT_TRUE(temp.read("demo/" + fs9).starts_with("MZ"));
    EXPECT_NE(err.str().find("note: the simulator's stand-in " + (temp / "bin/gone")),
              std::string::npos)
        << err.str();
}

} // namespace
} // namespace vellumar
